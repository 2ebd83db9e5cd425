// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The mask of an object by hand: weighing, rectangle, crop, and the clip of a blurred picture to it.
#include "reference/Mask.h"

#include "reference/GeometryClip.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace reference {
namespace {

TEST(ReferenceMask, IsNoneWithoutPixels)
{
    EXPECT_FALSE(makeMask16(RefImage16(RefBox{}, RefBox{0, 0, 5, 5}, 5, 5)).has_value());
    EXPECT_FALSE(makeMaskFloat(RefImageFloat(RefBox{}, RefBox{0, 0, 5, 5}, 5, 5)).has_value());
}

TEST(ReferenceMask, HasNoPixelsButIsThereWithoutAnyPositiveValue)
{
    RefImage16 accumulator(RefBox{0, 0, 2, 2}, RefBox{0, 0, 5, 5}, 5, 5);
    accumulator.at(0, 0).r = -3;
    const auto mask = makeMask16(accumulator);
    ASSERT_TRUE(mask.has_value());
    EXPECT_TRUE(mask->box.empty());
    EXPECT_EQ(mask->canvas, (RefBox{0, 0, 5, 5}));
}

TEST(ReferenceMask16, WeighsTheValueByItsCoverage)
{
    RefImage16 mask(RefBox{0, 0, 4, 1});
    mask.at(0, 0) = RefPixel16{10000, 5, 6, 16384}; // 10000 x 0.500015 = 5000.15
    mask.at(1, 0) = RefPixel16{-5, 0, 0, 20000};    // -5 x 0.61037 = -3.05, toward zero
    mask.at(2, 0) = RefPixel16{1, 0, 0, 0};         // positive before the weighing, 0 after it
    mask.at(3, 0) = RefPixel16{0, 9, 9, 32767};

    EXPECT_EQ(weighByCoverage16(mask), (RefBox{0, 0, 3, 1}));

    EXPECT_EQ(mask.at(0, 0), (RefPixel16{5000, 0, 0, 32767}));
    EXPECT_EQ(mask.at(1, 0), (RefPixel16{-3, 0, 0, 32767}));
    EXPECT_EQ(mask.at(2, 0), (RefPixel16{0, 0, 0, 32767}));
    EXPECT_EQ(mask.at(3, 0), (RefPixel16{0, 0, 0, 32767}));
}

TEST(ReferenceMask16, WeighsInDouble)
{
    // In single precision one pair of value and coverage in 3000 would be truncated to another integer, off by one.
    int pairs = 0;
    int different = 0;
    RefImage16 row(RefBox{0, 0, 1, 1});
    for (int r = 1; r <= 32767; r += 23) {
        for (int a = 1; a <= 32767; a += 29) {
            row.at(0, 0) = RefPixel16{static_cast<std::int16_t>(r), 0, 0, static_cast<std::int16_t>(a)};
            weighByCoverage16(row);
            volatile float coverage = static_cast<float>(a) / 32767.0F;
            volatile float inSingle = static_cast<float>(r) * coverage;
            const int difference = std::abs(row.at(0, 0).r - static_cast<int>(inSingle));
            ASSERT_LE(difference, 1);
            different += difference;
            ++pairs;
        }
    }
    EXPECT_NEAR(static_cast<double>(pairs) / different, 3000.0, 300.0);
}

TEST(ReferenceMaskFloat, WeighsTheValueByItsCoverage)
{
    RefImageFloat mask(RefBox{0, 0, 2, 1});
    mask.at(0, 0) = RefPixelFloat{0.5F, 1, 1, 0.5F};
    mask.at(1, 0) = RefPixelFloat{-0.5F, 1, 1, 0.5F};
    EXPECT_EQ(weighByCoverageFloat(mask), (RefBox{0, 0, 1, 1}));
    EXPECT_EQ(mask.at(0, 0), (RefPixelFloat{0.25F, 0, 0, 1}));
    EXPECT_EQ(mask.at(1, 0), (RefPixelFloat{-0.25F, 0, 0, 1}));
}

TEST(ReferenceMask, IsCroppedToTwoPixelsAroundWhatIsPositive)
{
    RefImage16 accumulator(RefBox{3, 0, 20, 8}, RefBox{0, 0, 20, 8}, 20, 8);
    accumulator.at(4, 7) = RefPixel16{100, 0, 0, 32767};

    const auto mask = makeMask16(accumulator);

    ASSERT_TRUE(mask.has_value());
    EXPECT_EQ(mask->box, (RefBox{2, 5, 7, 10}));
    EXPECT_EQ(mask->at(4, 7), (RefPixel16{100, 0, 0, 32767}));
    EXPECT_EQ(mask->at(5, 6), (RefPixel16{0, 0, 0, 32767})) << "background that was there keeps full alpha";
    EXPECT_EQ(mask->at(2, 6), RefPixel16{}) << "new on the left";
    EXPECT_EQ(mask->at(4, 8), RefPixel16{}) << "new below";
    EXPECT_EQ(accumulator.at(4, 7).a, 32767);
}

TEST(ReferenceMaskFloat, IsCroppedInTheSameWay)
{
    RefImageFloat accumulator(RefBox{3, 0, 20, 8}, RefBox{0, 0, 20, 8}, 20, 8);
    accumulator.at(4, 7) = RefPixelFloat{0.5F, 0, 0, 1};
    const auto mask = makeMaskFloat(accumulator);
    ASSERT_TRUE(mask.has_value());
    EXPECT_EQ(mask->box, (RefBox{2, 5, 7, 10}));
    EXPECT_EQ(mask->at(4, 7), (RefPixelFloat{0.5F, 0, 0, 1}));
    EXPECT_EQ(mask->at(5, 6), (RefPixelFloat{0, 0, 0, 1}));
    EXPECT_EQ(mask->at(2, 6), RefPixelFloat{});
}

TEST(ReferenceGeometryClip, ReachesTwoPixelsInEachDirection)
{
    RefImage16 mask(RefBox{0, 0, 1, 1});
    mask.at(0, 0) = RefPixel16{1, 0, 0, 32767};
    RefImageFloat maskFloat(RefBox{0, 0, 1, 1});
    maskFloat.at(0, 0) = RefPixelFloat{0.01F, 0, 0, 1};
    for (int y = -3; y <= 3; ++y) {
        for (int x = -3; x <= 3; ++x) {
            const bool near = x != -3 && x != 3 && y != -3 && y != 3;
            EXPECT_EQ(geometryNear16(mask, x, y), near) << x << ", " << y;
            EXPECT_EQ(geometryNearFloat(maskFloat, x, y), near) << x << ", " << y;
        }
    }
}

TEST(ReferenceGeometryClip, CountsRedAndGreenAboveZeroOnly)
{
    RefImage16 mask(RefBox{0, 0, 1, 1});
    mask.at(0, 0) = RefPixel16{0, 0, 5, 32767};
    EXPECT_FALSE(geometryNear16(mask, 0, 0));
    mask.at(0, 0) = RefPixel16{-1, -1, 0, 0};
    EXPECT_FALSE(geometryNear16(mask, 0, 0));
    mask.at(0, 0) = RefPixel16{0, 1, 0, 0};
    EXPECT_TRUE(geometryNear16(mask, 1, 1));

    RefImageFloat maskFloat(RefBox{0, 0, 1, 1});
    maskFloat.at(0, 0) = RefPixelFloat{0, 0, 1, 1};
    EXPECT_FALSE(geometryNearFloat(maskFloat, 0, 0));
    maskFloat.at(0, 0).r = 1e-30F;
    EXPECT_TRUE(geometryNearFloat(maskFloat, 2, -2));
    EXPECT_FALSE(geometryNearFloat(maskFloat, 2, -3));
}

TEST(ReferenceGeometryClip, ClearsAllChannelsAndKeepsTheRectangle)
{
    RefImage16 mask(RefBox{0, 0, 1, 1});
    mask.at(0, 0).r = 9;
    RefImage16 blurred(RefBox{0, 0, 5, 1});
    for (RefPixel16& pixel : blurred.pixels) {
        pixel = RefPixel16{50, 0, 0, 32767};
    }
    clipToGeometry16(blurred, mask);
    EXPECT_EQ(blurred.box, (RefBox{0, 0, 5, 1}));
    EXPECT_EQ(blurred.at(2, 0), (RefPixel16{50, 0, 0, 32767}));
    EXPECT_EQ(blurred.at(3, 0), RefPixel16{});
    EXPECT_EQ(blurred.at(4, 0), RefPixel16{});
}

} // namespace
} // namespace reference
