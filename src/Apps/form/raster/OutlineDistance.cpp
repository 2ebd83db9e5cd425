// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The distances are added row by row on one thread, so that the sum is the same on every machine.
#include "form/raster/OutlineDistance.h"

#include "form/raster/CellDistances.h"
#include "form/raster/CutSides.h"

#include <algorithm>
#include <cmath>

OutlineDistance measureOutlineDistance(const CellMask& mask, const QRect& grid)
{
    OutlineDistance measured;
    if (mask.box().isEmpty())
        return measured;
    const CutSides cut = cutSides(mask, grid);
    measured.cut = cut.any();
    const QRect box = mask.box().adjusted(cut.left ? 0 : -1, cut.top ? 0 : -1, cut.right ? 0 : 1, cut.bottom ? 0 : 1);
    const double longest = std::max(grid.width(), grid.height()) / 2.0;
    double sum = 0.0;
    for (const int square : squaredDistancesInside(mask, box)) {
        if (square == 0)
            continue;
        const double distance = std::min(std::sqrt(static_cast<double>(square)) - 0.5, longest);
        sum += distance;
        measured.largest = std::max(measured.largest, distance);
        ++measured.area;
    }
    if (measured.area > 0)
        measured.mean = sum / measured.area;
    return measured;
}
