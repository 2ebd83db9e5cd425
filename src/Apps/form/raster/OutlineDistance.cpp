// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Cells at the same distance are counted and added together, in the order of the distances, so that an area and its
// mirror image have the same sum.
#include "form/raster/OutlineDistance.h"

#include "form/raster/CellDistances.h"
#include "form/raster/CutSides.h"

#include <algorithm>
#include <cmath>
#include <vector>

OutlineDistance measureOutlineDistance(const CellMask& mask, const QRect& grid)
{
    OutlineDistance measured;
    if (mask.box().isEmpty())
        return measured;
    const CutSides cut = cutSides(mask, grid);
    measured.cut = cut.any();
    const QRect box = mask.box().adjusted(cut.left ? 0 : -1, cut.top ? 0 : -1, cut.right ? 0 : 1, cut.bottom ? 0 : 1);
    const double longest = std::max(grid.width(), grid.height()) / 2.0;
    // From here on the limit is the distance.
    const int most = static_cast<int>((longest + 0.5) * (longest + 0.5)) + 1;
    const std::vector<int> counts = countSquaredDistancesInside(mask, box, most);
    double sum = 0.0;
    for (std::size_t square = 1; square < counts.size(); ++square) {
        if (counts[square] == 0)
            continue;
        const double distance = std::min(std::sqrt(static_cast<double>(square)) - 0.5, longest);
        sum += counts[square] * distance;
        measured.largest = distance;
        measured.area += counts[square];
    }
    if (measured.area > 0)
        measured.mean = sum / measured.area;
    return measured;
}
