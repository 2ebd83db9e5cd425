// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/PartExtent.h"

#include "form/raster/CellDistances.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFineEnough = 256;   // cells along the longer side
constexpr int kLargeEnough = 4000; // cells: smaller parts are measured on a finer grid, which takes little time
constexpr double kHalfCell = 0.5;

// The cells of a worn shape within its reach of a body.
CellMask within(const WornShape& worn, const CellMask& mask, const DistanceToCovered& body)
{
    const QRect& all = body.box();
    const double reach = worn.reach + kHalfCell;
    const int most = static_cast<int>(reach * reach);
    const auto isNear = [&](int x, int y) { return body.squared(x, y, most) <= most; };
    CellMask near(mask.box() & all);
    for (int y = near.box().top(); y <= near.box().bottom(); ++y)
        for (const CellRun& run : mask.runs(y))
            for (int x = std::max(run.from, all.left()); x < std::min(run.to, all.right() + 1); ++x)
                if (isNear(x, y))
                    near.append(y, x, x + 1);
    return near;
}

} // namespace

CellMask shownCells(const Part& part, const std::vector<ShapeFacts>& facts, const QRect& bounds)
{
    CellMask shown = part.region;
    double farthest = -1.0;
    for (const WornShape& worn : part.worn)
        if (worn.whole)
            shown.unite(facts[static_cast<std::size_t>(worn.shape)].mask);
        else
            farthest = std::max(farthest, worn.reach);
    if (farthest < 0.0)
        return shown;
    const int margin = static_cast<int>(std::ceil(farthest)) + 1;
    const QRect near = part.region.box().adjusted(-margin, -margin, margin, margin) & bounds;
    const DistanceToCovered body(part.region, near);
    for (const WornShape& worn : part.worn)
        if (!worn.whole)
            shown.unite(within(worn, facts[static_cast<std::size_t>(worn.shape)].mask, body));
    return shown;
}

std::optional<ObjectExtent> extentOf(const Part& part, const std::vector<ShapeFacts>& facts, const Grid& grid)
{
    // Between two pieces there may be cells that neither covers by half.
    const bool isInPieces = part.body.size() > 1;
    if (grid.longSide() < kFineEnough || part.region.area() < kLargeEnough || isInPieces)
        return {};
    const double unit = grid.sceneUnitsPerCell();
    if (part.worn.empty())
        return extentOf(facts[static_cast<std::size_t>(part.body.front())].distances, unit);
    return extentOf(measureOutlineDistance(shownCells(part, facts, grid.bounds()), grid.bounds()), unit);
}
