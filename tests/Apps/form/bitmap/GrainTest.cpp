// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/pixels/Grain.h"

#include <gtest/gtest.h>

namespace {

constexpr int kLeast = 2000;

constexpr int kSide = 40; // 2 * 38 * 40 threes

// A plane whose pixel at (x, y) is the grey that `shade` says.
template<typename Shade>
PixelPlane<QRgb> greys(Shade shade, int width = kSide)
{
    PixelPlane<QRgb> plane(width, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < width; ++x) {
            const int grey = shade(x, y);
            plane.at(x, y) = qRgb(grey, grey, grey);
        }
    return plane;
}

} // namespace

TEST(Grain, FlatColoursAndEvenShadingHaveNone)
{
    EXPECT_EQ(grainOf(greys([](int, int) { return 90; }), kLeast), 0.0);
    EXPECT_EQ(grainOf(greys([](int x, int y) { return 3 * x + 2 * y; }), kLeast), 0.0);
}

TEST(Grain, EveryPixelThatDiffersFromBothOfItsNeighboursCounts)
{
    EXPECT_EQ(grainOf(greys([](int x, int y) { return (x + y) % 2 ? 90 : 92; }), kLeast), 1.0);
    EXPECT_EQ(grainOf(greys([](int x, int y) { return (x + y) % 2 ? 90 : 91; }), kLeast), 0.0)
        << "one level is rounding";
    EXPECT_EQ(grainOf(greys([](int x, int) { return x % 2 ? 90 : 92; }), kLeast), 0.5)
        << "along rows, not along columns";
}

TEST(Grain, EdgesCountNeitherWay)
{
    const auto halves = [](int x, int y) { return x < kSide / 2 ? 200 : (x + y) % 2 ? 90 : 92; };
    // Left: 18 threes a row, right: 18, both full of what they are; across the edge: 2 of more than twenty levels.
    // Down: 38 a column. So 40 rows of 18 and 20 columns of 38 on either side.
    EXPECT_EQ(grainOf(greys(halves), kLeast), 0.5);
}

TEST(Grain, WhatIsNotOpaqueSaysNothing)
{
    PixelPlane<QRgb> plane = greys([](int x, int y) { return (x + y) % 2 ? 90 : 92; });
    for (int i = 0; i < plane.count(); ++i)
        plane[i] = qRgba(qRed(plane[i]), 90, 90, 254);
    EXPECT_EQ(grainOf(plane, kLeast), 0.0);
}

TEST(Grain, FewPixelsSayNothing)
{
    const auto checks = [](int x, int y) { return (x + y) % 2 ? 90 : 92; };
    EXPECT_EQ(grainOf(greys(checks, 26), kLeast), 0.0) << "24 * 40 + 26 * 38 = 1,948 threes";
    EXPECT_EQ(grainOf(greys(checks, 27), kLeast), 1.0) << "25 * 40 + 27 * 38 = 2,026 threes";
}

TEST(Grain, NoiseGoesWhereSquaresAreAveraged)
{
    const PixelPlane<QRgb> averages = averagesOf(greys([](int x, int y) { return (x + y) % 2 ? 88 : 92; }), 4);
    ASSERT_EQ(averages.width(), kSide / 4);
    ASSERT_EQ(averages.height(), kSide / 4);
    for (int i = 0; i < averages.count(); ++i)
        EXPECT_EQ(averages[i], qRgb(90, 90, 90));
}

TEST(Grain, OnlySquaresThatAreAllOpaqueHaveAnAverage)
{
    PixelPlane<QRgb> plane = greys([](int, int) { return 90; }, 42);
    plane.at(5, 1) = qRgba(90, 90, 90, 254);
    const PixelPlane<QRgb> averages = averagesOf(plane, 4);
    ASSERT_EQ(averages.width(), 10) << "two columns are left over";
    EXPECT_EQ(qAlpha(averages.at(0, 0)), 255);
    EXPECT_EQ(qAlpha(averages.at(1, 0)), 0);
}
