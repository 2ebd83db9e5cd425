// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Membrane: solves -laplace u = 2 over the covered part of a grid, with u = 0 at its outline (StrokeRelief.h says what
// for). Finite volumes, with half a cell between the middle of an outermost cell and the outline; a partly covered cell
// is as much smaller. Grids of half the size are solved first, and every grid is relaxed in the two colours of a
// chessboard, so that the order of the threads does not matter.
#pragma once

#include <cstddef>
#include <vector>

/// Numbers on a grid of cells, row by row.
struct CellField
{
    int width = 0;
    int height = 0;
    std::vector<float> values;

    CellField(int w, int h) : width(w), height(h), values(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

    float& at(int x, int y) { return values[index(x, y)]; }
    float at(int x, int y) const { return values[index(x, y)]; }
    /// The value of the nearest cell of the grid.
    float near(int x, int y) const;

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

/// The membrane over a coverage of 0 to 1, in units of cells squared. Beyond the grid's borders the coverage goes on as
/// it is there. Single precision.
CellField membraneOver(const CellField& coverage);
