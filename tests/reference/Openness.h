// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The slow reference of ambient occlusion: every pixel looks along its own 16 lines, at every pixel of each. Angles are
// measured with arc tangents, and the shares of the directions follow from their own angles.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace reference {

/// The heights of a picture of a size.
struct Heights
{
    int width;
    int height;
    std::function<double(int x, int y)> at;

    bool contains(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }
};

/// The elevation angle of pixel b, seen from pixel a.
inline double angleTo(const Heights& heights, int ax, int ay, int bx, int by)
{
    return std::atan2(heights.at(bx, by) - heights.at(ax, ay), std::hypot(bx - ax, by - ay));
}

/// The angle of the surface itself at a pixel in a direction: of the slopes to the pixels before and behind the one
/// that is nearer to 0, and 0 if one rises and the other falls. At the border there may be one of them only.
inline double surfaceAngle(const Heights& heights, int x, int y, int dx, int dy)
{
    const double ahead = angleTo(heights, x, y, x + dx, y + dy);
    if (!heights.contains(x - dx, y - dy))
        return ahead;
    const double behind = -angleTo(heights, x, y, x - dx, y - dy);
    if ((ahead > 0.0) != (behind > 0.0))
        return 0.0;
    return std::abs(ahead) < std::abs(behind) ? ahead : behind;
}

/// The light that reaches a pixel, 0 to 1.
inline double openness(const Heights& heights, int x, int y)
{
    const std::vector<std::pair<int, int>> steps{{1, 0},  {2, 1},  {1, 1},  {1, 2},   {0, 1},   {-1, 2},
                                                 {-1, 1}, {-2, 1}, {-1, 0}, {-2, -1}, {-1, -1}, {-1, -2},
                                                 {0, -1}, {1, -2}, {1, -1}, {2, -1}};
    const auto directionAngle = [&](std::size_t i) {
        const auto& [dx, dy] = steps[i % steps.size()];
        const double angle = std::atan2(dy, dx);
        return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
    };
    double open = 1.0;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto [dx, dy] = steps[i];
        if (!heights.contains(x + dx, y + dy))
            continue;
        double horizon = -std::numbers::pi;
        for (int bx = x + dx, by = y + dy; heights.contains(bx, by); bx += dx, by += dy)
            horizon = std::max(horizon, angleTo(heights, x, y, bx, by));
        double between = directionAngle(i + 1) - directionAngle(i + steps.size() - 1);
        if (between < 0.0)
            between += 2.0 * std::numbers::pi;
        const double share = between / 2.0 / (2.0 * std::numbers::pi);
        open -= share * std::max(0.0, std::sin(horizon) - std::sin(surfaceAngle(heights, x, y, dx, dy)));
    }
    return std::max(open, 0.0);
}

} // namespace reference
