// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AreaRuns: which area each cell of a grid belongs to, as runs of cells of one area along the rows.
#pragma once

#include "form/lines/CellBits.h"

#include <vector>

/// Cells of one area beside each other in a row. The area is kNoLabel for cells of none.
struct AreaRun
{
    PixelRun cells;
    int area;
};

/// Runs of one grid, row by row from left to right.
struct AreaRuns
{
    int width = 0;
    int height = 0;
    std::vector<AreaRun> runs;

    /// Adds a run after the others; cells of one area beside each other become one run.
    void append(const PixelRun& cells, int area);
};

/// The connected areas of the marked cells, numbered from 0 by their first cells.
AreaRuns connectedAreas(const CellBits& marked);

/// Grows areas over cells that may be connected with them, all at the same speed: such a cell comes to the area that
/// the shortest path over open cells leads to (PixelDistances.h), of two equally near ones to the first. The runs are
/// those of the open cells, of kNoLabel where no area can be reached.
///
/// @param areas in open cells only
AreaRuns grownOver(const AreaRuns& areas, const CellBits& open);

/// The same over all cells that belong to no area.
AreaRuns grownOverAll(const AreaRuns& areas);
