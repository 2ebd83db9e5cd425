// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pen's width is the median width of the long lines.
#include "form/choice/Ink.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kDark = 40.0;      // lightness
constexpr double kWidest = 0.05;    // of the picture's longer side
constexpr double kLong = 6.0;       // elongation
constexpr double kShort = 2.5;      // elongation of the shortest line
constexpr double kPenVaries = 0.25; // of its width
constexpr std::size_t kLines = 3;   // fewer long lines do not define a pen

bool isDark(const ShapeFacts& shape)
{
    return shape.colour.lightness < kDark && shape.opacity >= kSolid;
}

} // namespace

Ink::Ink(const std::vector<ShapeFacts>& facts, const Grid& grid) : _widest(kWidest * grid.longSide())
{
    std::vector<double> widths;
    for (const ShapeFacts& shape : facts)
        if (isLongLine(shape))
            widths.push_back(shape.width);
    if (widths.size() < kLines)
        return;
    const auto middle = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
    std::ranges::nth_element(widths, middle);
    _pen = *middle;
}

bool Ink::isLongLine(const ShapeFacts& shape) const
{
    return isDark(shape) && shape.width < _widest && shape.elongation() > kLong;
}

bool Ink::isInk(const ShapeFacts& shape) const
{
    const bool byThePen =
        isDark(shape) && shape.elongation() > kShort && std::abs(shape.width - _pen) < kPenVaries * _pen;
    return shape.isOutline || byThePen || isLongLine(shape);
}
