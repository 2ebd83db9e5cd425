// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares the distances with a search through all cells.
#include "form/raster/OutlineDistance.h"

#include "form/raster/CellDistances.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

constexpr int kLarge = 160; // cells a side

// A few ellipses and rectangles.
CellMask someBroadArea()
{
    CellMask area;
    for (int left = *rc::gen::inRange(1, 5); left > 0; --left) {
        const QRect box(*rc::gen::inRange(1, 70), *rc::gen::inRange(1, 70), *rc::gen::inRange(16, 90),
                        *rc::gen::inRange(16, 90));
        const bool isRectangle = *rc::gen::arbitrary<bool>();
        const QPointF middle = QRectF(box).center() - QPointF(0.5, 0.5);
        area.unite(CellMask::where(box, [&](int x, int y) {
            return isRectangle || std::hypot((x - middle.x()) / box.width(), (y - middle.y()) / box.height()) <= 0.5;
        }));
    }
    return area;
}

CellMask upsideDown(const CellMask& mask)
{
    return CellMask::where(QRect(0, 0, kLarge, kLarge), [&](int x, int y) { return mask.at(x, kLarge - 1 - y); });
}

} // namespace

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
    int outline = 0;
    mask.forEach([&](int x, int y) {
        outline += mask.at(x - 1, y) && mask.at(x + 1, y) && mask.at(x, y - 1) && mask.at(x, y + 1) ? 0 : 1;
    });
    RC_ASSERT(measured.area == mask.area());
    RC_ASSERT(measured.outline == outline);
    RC_ASSERT(std::abs(measured.mean * std::max(1, mask.area()) - sum) < 1e-9);
    RC_ASSERT(std::abs(measured.largest - largest) < 1e-12);
}

// Not all rows of a broad area are measured.
RC_GTEST_PROP(OutlineDistance, ofABroadAreaIsNearThatOfAllItsCells, ())
{
    const CellMask mask = someBroadArea();
    const QRect grid(0, 0, kLarge, kLarge);
    double sum = 0.0;
    int farthest = 0;
    for (const int square : squaredDistancesInside(mask, grid)) {
        sum += square > 0 ? std::sqrt(square) - 0.5 : 0.0;
        farthest = std::max(farthest, square);
    }
    const OutlineDistance measured = measureOutlineDistance(mask, grid);
    const double mean = sum / mask.area();
    const double largest = std::sqrt(farthest) - 0.5;
    RC_ASSERT(measured.area == mask.area());
    RC_ASSERT(std::abs(measured.mean - mean) < 0.03 * mean);
    RC_ASSERT(measured.largest <= largest);
    RC_ASSERT(measured.largest > 0.9 * largest);
}

RC_GTEST_PROP(OutlineDistance, ofAMirroredAreaIsTheSame, ())
{
    const CellMask mask = someBroadArea();
    const QRect grid(0, 0, kLarge, kLarge);
    const OutlineDistance one = measureOutlineDistance(mask, grid);
    const OutlineDistance other = measureOutlineDistance(upsideDown(mask), grid);
    RC_ASSERT(one.mean == other.mean);
    RC_ASSERT(one.largest == other.largest);
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
