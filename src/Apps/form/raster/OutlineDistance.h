// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Distances of an area's cells to its outline: exact Euclidean ones between the centres of cells, less the half cell
// that lies between a centre and the outline. A border of the grid that cuts an area is no outline: the area is
// measured as if it went on. A border that an area merely touches, as a disc does that fills its picture, is none of
// its business.
#pragma once

#include "form/raster/CellMask.h"

/// What the distances tell of an area. Lengths are in cells.
struct OutlineDistance
{
    double mean = 0.0;
    double largest = 0.0;
    int area = 0;     ///< in cells
    bool cut = false; ///< the border of the grid cuts the area
};

/// Measures an area. Of an area without any outline in the grid, both distances are half of the grid's longer side.
OutlineDistance measureOutlineDistance(const CellMask& mask, const QRect& grid);
