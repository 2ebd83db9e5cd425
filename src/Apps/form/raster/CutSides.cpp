// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/raster/CutSides.h"

namespace {

// A side cuts an area that covers more of it than this share of the area's breadth. A disc that touches a side covers a
// tenth of its breadth, on a grid of a few hundred cells.
constexpr double kTouching = 0.2;

bool isCut(int covered, int breadth)
{
    return covered > kTouching * breadth;
}

} // namespace

CutSides cutSides(const CellMask& mask, const QRect& grid)
{
    const QRect& box = mask.box();
    int left = 0;
    int right = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        left += mask.at(grid.left(), y) ? 1 : 0;
        right += mask.at(grid.right(), y) ? 1 : 0;
    }
    int top = 0;
    int bottom = 0;
    for (int x = box.left(); x <= box.right(); ++x) {
        top += mask.at(x, grid.top()) ? 1 : 0;
        bottom += mask.at(x, grid.bottom()) ? 1 : 0;
    }
    return {isCut(left, box.height()), isCut(top, box.width()), isCut(right, box.height()), isCut(bottom, box.width())};
}
