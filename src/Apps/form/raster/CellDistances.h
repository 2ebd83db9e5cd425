// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellDistances: exact Euclidean distances between the centres of cells.
//
// The algorithm is that of P. Felzenszwalb, D. Huttenlocher, "Distance Transforms of Sampled Functions", Theory of
// Computing 8 (2012): the lower envelope of parabolas, along columns and then along rows.
#pragma once

#include "form/raster/CellMask.h"

#include <cstdint>
#include <vector>

/// The squared distance of every cell of a box, row by row, to the nearest uncovered cell inside the box; 0 for an
/// uncovered cell. If the box holds no uncovered cell, all are larger than any distance.
std::vector<int> squaredDistancesInside(const CellMask& mask, const QRect& box);

/// How many cells of a box lie at each of these squared distances. The last number, at the index `most` or at the
/// square of the box's diagonal, counts the cells that lie that far and farther.
std::vector<int> countSquaredDistancesInside(const CellMask& mask, const QRect& box, int most);

/// The distances from cells of a box to the nearest covered cell of a mask, for callers that ask for few cells.
class DistanceToCovered
{
public:
    DistanceToCovered() = default;
    DistanceToCovered(const CellMask& mask, const QRect& box);

    const QRect& box() const { return _box; }

    /// The squared distance of a cell; any number above `most` if it is larger than that.
    ///
    /// @param x, y inside the box
    /// @param most at most a billion
    int squared(int x, int y, int most) const;

private:
    QRect _box;
    std::vector<std::uint16_t> _steps; // along the column of each cell
};
