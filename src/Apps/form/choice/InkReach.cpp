// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The line's cells outside the part are counted by their distance. Along an outline there are many, up to the far side
// of the line, and then none. A line that leaves has about as many at every distance as it is wide.
#include "form/choice/InkReach.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kThin = 3.0;     // cells: what a thinner line shows where it leaves a part is not seen
constexpr double kFarSide = 0.4;  // of the cells at the outline: fewer lie beyond the line's far side
constexpr double kCrossing = 3.0; // widths: a longer contact follows the outline

// The number of the line's cells in each step outside the part.
std::vector<int> countByDistance(const ShapeFacts& line, const DistanceToCovered& part, int steps)
{
    std::vector<int> counts(static_cast<std::size_t>(steps));
    const QRect box = part.box();
    const int most = steps * steps;
    line.mask.forEachRun([&](int y, int from, int to) {
        if (y < box.top() || y > box.bottom())
            return;
        for (int x = std::max(from, box.left()); x < std::min(to, box.right() + 1); ++x)
            if (const int squared = part.squared(x, y, most); squared > 0 && squared <= most)
                ++counts[static_cast<std::size_t>(std::ceil(std::sqrt(squared))) - 1];
    });
    return counts;
}

} // namespace

double widestReach(const ShapeFacts& line)
{
    return line.width + 1.0;
}

double inkReach(const ShapeFacts& line, const DistanceToCovered& part)
{
    const double widest = widestReach(line);
    if (line.width < kThin)
        return widest;
    const std::vector<int> counts = countByDistance(line, part, static_cast<int>(std::ceil(widest)));
    const int contact = counts.front();
    const auto farSide =
        std::find_if(counts.rbegin(), counts.rend(), [&](int count) { return count >= kFarSide * contact; });
    const auto reach = static_cast<double>(counts.rend() - farSide);
    const bool follows = reach + 1.0 < widest || contact >= kCrossing * line.width;
    return follows ? std::min(widest, reach + 1.0) : 0.0;
}
