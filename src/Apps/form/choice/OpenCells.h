// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenCells: the cells of a line that show no part yet. Each goes to the nearest part that reaches it.
#pragma once

#include "form/raster/CellDistances.h"

#include <map>
#include <vector>

/// How far outside its outline each part may claim cells of a line, in cells.
using InkReaches = std::map<int, double>;

class OpenCells
{
public:
    struct Cell
    {
        int x;
        int y;
    };

    void add(int y, int from, int to);
    const std::vector<Cell>& cells() const { return _cells; }

    /// Measures the cells' distances from a part. Of parts that are as far away the one that was measured last counts.
    ///
    /// @param widest the farthest that the part may reach, in cells
    void measure(int part, const DistanceToCovered& distances, double widest);

    /// The part that each cell goes to; -1 for none.
    std::vector<int> claimed(const InkReaches& reaches) const;

private:
    struct Measured
    {
        int part;
        std::vector<int> squared; // by cell
    };

    std::vector<Cell> _cells;
    std::vector<Measured> _parts;
};
