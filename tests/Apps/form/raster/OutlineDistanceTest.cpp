// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares the distances with a search through all cells.
#include "form/raster/OutlineDistance.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <cmath>

RC_GTEST_PROP(OutlineDistance, isThatOfTheNearestUncoveredCell, ())
{
    // A ring of uncovered cells, so that the grid's border does not matter.
    constexpr int kSide = 14;
    const QRect grid(0, 0, kSide, kSide);
    const CellMask mask =
        CellMask::where(QRect(1, 1, kSide - 2, kSide - 2), [](int, int) { return *rc::gen::inRange(0, 8) > 0; });
    double sum = 0.0;
    double largest = 0.0;
    mask.forEach([&](int x, int y) {
        double nearest = 1e9;
        for (int v = 0; v < kSide; ++v)
            for (int u = 0; u < kSide; ++u)
                if (!mask.at(u, v))
                    nearest = std::min(nearest, std::hypot(u - x, v - y));
        sum += nearest - 0.5;
        largest = std::max(largest, nearest - 0.5);
    });
    const OutlineDistance measured = measureOutlineDistance(mask, grid);
    RC_ASSERT(measured.area == mask.area());
    RC_ASSERT(std::abs(measured.mean * std::max(1, mask.area()) - sum) < 1e-9);
    RC_ASSERT(std::abs(measured.largest - largest) < 1e-12);
}

TEST(OutlineDistance, OfWhatFillsTheGridIsHalfOfIt)
{
    const CellMask mask = CellMask::where(QRect(0, 0, 10, 20), [](int, int) { return true; });
    const OutlineDistance measured = measureOutlineDistance(mask, QRect(0, 0, 10, 20));
    EXPECT_EQ(measured.mean, 10.0);
    EXPECT_TRUE(measured.cut);
}

TEST(OutlineDistance, OfNothingIsNothing)
{
    EXPECT_EQ(measureOutlineDistance(CellMask(), QRect(0, 0, 10, 10)).area, 0);
    EXPECT_EQ(measureOutlineDistance(CellMask(QRect(2, 2, 3, 3)), QRect(0, 0, 10, 10)).area, 0);
}
