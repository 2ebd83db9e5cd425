// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OutlineDistance: the distances of an area's cells to its outline: exact Euclidean distances between the centres of
// cells, minus the half cell between a centre and the outline. A border of the grid that cuts an area is not an
// outline: the area is measured as if it continued there. A border that the area merely touches, such as that of a
// picture filled by a disc, does count as outline.
#pragma once

#include "form/raster/CellMask.h"

/// The statistics of an area's distances. Lengths are in cells.
struct OutlineDistance
{
    double mean = 0.0;
    double largest = 0.0;
    int area = 0;     ///< in cells
    bool cut = false; ///< the border of the grid cuts the area
    int outline = 0;  ///< the cells that have an uncovered one beside them
};

/// Measures an area. If no outline of the area lies inside the grid, both distances are half of the grid's longer side.
OutlineDistance measureOutlineDistance(const CellMask& mask, const QRect& grid);
