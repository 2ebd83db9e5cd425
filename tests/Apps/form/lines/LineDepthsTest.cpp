// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares depths with the shortest paths to all cells of lines: without obstacles, such a path takes as many diagonal
// steps as it can.
#include "form/lines/LineDepths.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

int pathLength(int across, int down)
{
    const auto [shorter, longer] = std::minmax({std::abs(across), std::abs(down)});
    return 4 * shorter + 3 * (longer - shorter);
}

int nearestLine(const PixelPlane<char>& lines, int x, int y)
{
    int nearest = 3 * (std::max(lines.width(), lines.height()) / 2 + 1);
    for (int row = 0; row < lines.height(); ++row)
        for (int column = 0; column < lines.width(); ++column)
            if (lines.at(column, row) != 0)
                nearest = std::min(nearest, pathLength(column - x, row - y));
    return nearest;
}

} // namespace

RC_GTEST_PROP(LineDepths, areTheShortestPathsToALine, ())
{
    PixelPlane<char> lines(*rc::gen::inRange(1, 16), *rc::gen::inRange(1, 16), 0);
    const int sparse = *rc::gen::inRange(1, 40);
    for (int i = 0; i < lines.count(); ++i)
        lines[i] = *rc::gen::inRange(0, 40) >= sparse ? 1 : 0;

    const PixelPlane<std::int16_t> depths = depthsBetween(lines);
    for (int y = 0; y < lines.height(); ++y)
        for (int x = 0; x < lines.width(); ++x)
            RC_ASSERT(int{depths.at(x, y)} == nearestLine(lines, x, y));
}

TEST(LineDepths, AreLargeInALargeEmptyPlane)
{
    const PixelPlane<char> none(kLongestSide, 3, 0);
    EXPECT_EQ(depthsBetween(none).at(1000, 1), 3 * 1025);
    PixelPlane<char> one = none;
    one.at(0, 1) = 1;
    EXPECT_EQ(depthsBetween(one).at(1000, 1), 3000);
    EXPECT_EQ(depthsBetween(one).at(1000, 2), 3001);
}
