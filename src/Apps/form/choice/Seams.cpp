// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lines lie beneath all areas, so they are seen where an area's edge does not cover its pixels, and nowhere else.
#include "form/choice/Seams.h"

#include "form/choice/Outlines.h"

#include <algorithm>

namespace {

// Uniting paths takes time quadratic in their elements.
constexpr int kMostElements = 400;
// In widths of the lines: at the areas' common outline a line would add to their coverage.
constexpr double kFromBorder = 2.5;

bool isOpaque(const DIO_Shape& shape)
{
    return shape.opacity >= 1.0 && shape.picture.isNull();
}

} // namespace

std::vector<DIO_Shape> seamsBeneath(const std::vector<DIO_Shape>& areas, double width)
{
    int elements = 0;
    for (const DIO_Shape& area : areas)
        elements += area.path.elementCount();
    if (areas.size() < 2 || elements > kMostElements || !std::ranges::all_of(areas, isOpaque))
        return {};
    // Areas that only touch would keep the seam between them in the common outline, so they are grown first.
    QPainterPath together;
    for (const DIO_Shape& area : areas) {
        const QPainterPath outline = outlineOf(area);
        together = together.united(outline.united(strokeAlong(outline, width)));
    }
    std::vector<DIO_Shape> seams;
    const QPainterPath within = together.subtracted(strokeAlong(together, kFromBorder * width));
    for (std::size_t i = 1; i < areas.size(); ++i)
        seams.push_back({strokeAlong(outlineOf(areas[i]), width), within, 1.0, areas[i].paint, {}});
    return seams;
}
