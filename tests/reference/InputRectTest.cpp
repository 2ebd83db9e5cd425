// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The growth of the input rectangle, and the greys of the colour table, by hand.
#include "reference/InputRect.h"
#include "reference/DepthPaint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace reference {
namespace {

TEST(ReferenceInputRect, GrowsByTheWidestBevel)
{
    // 1920 x 1 x 3 / 720 = 8; + 0.5, truncated: 8.
    EXPECT_EQ(inputGrowth({1.0, 3.0, 2.0}, 1.0, 1920.0), 8);
    EXPECT_EQ(inputRect(RefBox{0, 0, 10, 20}, {3.0}, 1.0, 1920.0), (RefBox{-8, -8, 18, 28}));
    // Scaled to a quarter: 2.
    EXPECT_EQ(inputGrowth({3.0}, 0.25, 1920.0), 2);
}

TEST(ReferenceInputRect, RoundsHalvesUp)
{
    // 720 x 1 x 2.5 / 720 = 2.5; + 0.5 = 3. With 2.4: 2.9, truncated 2.
    EXPECT_EQ(inputGrowth({2.5}, 1.0, 720.0), 3);
    EXPECT_EQ(inputGrowth({2.4}, 1.0, 720.0), 2);
}

TEST(ReferenceInputRect, CountsNegativeAndNonFiniteBevelsAsZero)
{
    EXPECT_EQ(inputGrowth({-5.0}, 1.0, 1920.0), 0);
    EXPECT_EQ(inputGrowth({std::nan(""), 3.0}, 1.0, 1920.0), 8);
    EXPECT_EQ(inputGrowth({std::numeric_limits<double>::infinity()}, 1.0, 1920.0), 0);
}

TEST(ReferenceInputRect, StaysWithinAnInt)
{
    EXPECT_EQ(inputGrowth({1e300}, 1.0, 1920.0), std::numeric_limits<int>::max());
}

TEST(ReferenceInputRect, StaysAsItIsWithoutBevelsOrPixels)
{
    EXPECT_EQ(inputRect(RefBox{1, 2, 3, 4}, {}, 100.0, 1920.0), (RefBox{1, 2, 3, 4}));
    EXPECT_TRUE(inputRect(RefBox{}, {30.0}, 1.0, 1920.0).empty());
}

TEST(ReferenceDepthPaint, IsTheLowByteInGrey)
{
    EXPECT_EQ(depthPaint(128), (RefPaint{128, 128, 128, 255}));
    EXPECT_EQ(depthPaint(255), (RefPaint{255, 255, 255, 255}));
    EXPECT_EQ(depthPaint(0), (RefPaint{0, 0, 0, 255}));
    EXPECT_EQ(depthPaint(256), (RefPaint{0, 0, 0, 255}));
    EXPECT_EQ(depthPaint(300), (RefPaint{44, 44, 44, 255}));
    EXPECT_EQ(depthPaint(-1), (RefPaint{255, 255, 255, 255}));
}

TEST(ReferenceDepthPaint, IsTransparentForUnlistedColoursAndTheLastRowsForDoubleOnes)
{
    EXPECT_EQ(depthPaintOf({}, 7), RefPaint{});
    EXPECT_EQ(depthPaintOf({{5, 10}}, 7), RefPaint{});
    EXPECT_EQ(depthPaintOf({{7, 10}, {5, 30}, {7, 20}}, 7), (RefPaint{20, 20, 20, 255}));
}

} // namespace
} // namespace reference
