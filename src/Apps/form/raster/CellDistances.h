// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellDistances: exact Euclidean distances between the centres of cells.
//
// The algorithm is that of P. Felzenszwalb, D. Huttenlocher, "Distance Transforms of Sampled Functions", Theory of
// Computing 8 (2012): the lower envelope of parabolas, along columns and then along rows.
#pragma once

#include "form/raster/CellMask.h"

#include <cstdint>
#include <span>
#include <vector>

/// The lower envelope of the parabolas (x - i)^2 + steps[i]^2 along a row, evaluated at every x.
class LowerEnvelope
{
public:
    /// @param longest the number of cells of the longest row
    explicit LowerEnvelope(std::size_t longest);

    /// Replaces the steps along columns by squared distances.
    void replace(std::span<int> line);

private:
    void find(std::span<const int> line);
    double meeting(int place, int height) const;

    std::vector<int> _places;
    std::vector<int> _heights;
    std::vector<double> _starts;
    std::vector<double> _reciprocals;
    std::size_t _count = 0;
};

/// The same for rows whose cells are all near an uncovered one: the nearest column is looked for among those around
/// each cell, for many cells at a time.
class NearestInRow
{
public:
    /// @param longest the number of cells of the longest row
    explicit NearestInRow(std::size_t longest);

    /// Replaces the steps along columns by squared distances.
    ///
    /// @param farthest that no distance exceeds, at most 16
    void replace(std::span<int> line, int farthest);

private:
    std::vector<std::int16_t> _squares; // with cells beyond both ends
    std::vector<std::int16_t> _nearest;
};

/// The squared distance of every cell of a box, row by row, to the nearest uncovered cell inside the box; 0 for an
/// uncovered cell. If the box holds no uncovered cell, all are larger than any distance.
std::vector<int> squaredDistancesInside(const CellMask& mask, const QRect& box);

/// The squared distances of the cells of a box to the nearest uncovered cell inside the box, row by row as they are
/// asked for, for callers that need only some of the rows.
class DistancesInside
{
public:
    /// @param mask lives as long as the distances
    DistancesInside(const CellMask& mask, const QRect& box);

    int rows() const { return _box.height(); }

    /// The squared distances of a row of the box, counted from the top; 0 for an uncovered cell, and more than any
    /// distance for all cells if the box holds no uncovered one. They stay until the next call.
    std::span<const int> row(int row);

    /// No cell is farther from an uncovered one in its column, if each column has one.
    int mostSteps() const { return _mostSteps; }

private:
    const CellMask& _mask;
    QRect _box;
    std::vector<std::uint16_t> _steps; // along the column of each cell
    int _mostSteps = 0;
    std::vector<int> _row;
    NearestInRow _nearest;
    LowerEnvelope _envelope;
};

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
