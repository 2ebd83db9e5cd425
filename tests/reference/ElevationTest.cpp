// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Elevation by hand: spans and ranges, shaping, depth, the value in blue, and how often single precision shows.
#include "reference/Elevation.h"

#include <gtest/gtest.h>

#include <cmath>

namespace reference {
namespace {

RefImage16 row16(const std::vector<std::int16_t>& reds)
{
    RefImage16 image(RefBox{0, 0, static_cast<int>(reds.size()), 1});
    for (std::size_t i = 0; i < reds.size(); ++i) {
        image.pixels[i] = RefPixel16{reds[i], 0, 77, 32767};
    }
    return image;
}

RefImageFloat rowFloat(const std::vector<float>& reds)
{
    RefImageFloat image(RefBox{0, 0, static_cast<int>(reds.size()), 1});
    for (std::size_t i = 0; i < reds.size(); ++i) {
        image.pixels[i] = RefPixelFloat{reds[i], 0, 77, 1};
    }
    return image;
}

TEST(ReferenceRange, IsThatOfThePositiveValues)
{
    const RefSpan span = positiveSpan16(row16({0, 300, 100, -500}));
    EXPECT_EQ(span.lowest, 100.0F);
    EXPECT_EQ(span.highest, 300.0F);
    EXPECT_EQ(rangeOfSpan(span), (RefRange{100.0F, 0.005F}));

    EXPECT_EQ(rangeOfSpan(positiveSpanFloat(rowFloat({0, 0.25F, -3, 0.75F}))), (RefRange{0.25F, 2.0F}));
}

TEST(ReferenceRange, OfOneConstantValueHasScaleOne)
{
    EXPECT_EQ(rangeOfSpan(positiveSpan16(row16({0, 700, 700}))), (RefRange{700.0F, 1.0F}));
    EXPECT_EQ(rangeOfSpan(positiveSpanFloat(rowFloat({0.5F}))), (RefRange{0.5F, 1.0F}));
}

TEST(ReferenceRange, WithoutAnyPositiveValueIsThatOfTheStartValues)
{
    EXPECT_EQ(rangeOfSpan(positiveSpan16(row16({0, -4}))), (RefRange{32767.0F, -1.0F / 65534.0F}));
    EXPECT_EQ(rangeOfSpan(positiveSpanFloat(rowFloat({0, -4}))), (RefRange{32767.0F, -1.0F / 65534.0F}));
    EXPECT_EQ(rangeOfSpan(RefSpan{}), (RefRange{32767.0F, -1.0F / 65534.0F}));
}

TEST(ReferenceElevation, IsLinearForSmoothnessZeroOneAndBelow)
{
    for (const double smoothness : {0.0, 1.0, -2.0, std::nan("")}) {
        EXPECT_EQ(shapedElevation(0.25F, smoothness), 0.25F) << smoothness;
    }
}

TEST(ReferenceElevation, IsThePowerOfTheReciprocalOtherwise)
{
    EXPECT_EQ(shapedElevation(0.25F, 2.0), 0.5F);
    EXPECT_NEAR(shapedElevation(0.3F, 2.0), std::sqrt(0.3), 6e-8);
    EXPECT_NEAR(shapedElevation(0.5F, 0.5), 0.25, 3e-8);
    EXPECT_NEAR(shapedElevation(0.125F, 3.0), 0.5, 6e-8);
}

TEST(ReferenceElevation, LeavesBothEndsAlone)
{
    EXPECT_EQ(shapedElevation(0.0F, 2.0), 0.0F);
    EXPECT_EQ(shapedElevation(1.0F, 2.0), 1.0F);
}

TEST(ReferenceElevation, GrowsWithTheCanvas)
{
    EXPECT_EQ(canvasFactor(RefBox{0, 0, 720, 5}), 1.0F);
    EXPECT_EQ(canvasFactor(RefBox{-100, 0, 1340, 5}), 2.0F);
    EXPECT_EQ(depthHeight(1.0, 1.0F), 37.5);
    EXPECT_EQ(depthHeight(1.0, 2.0F), 75.0);
    EXPECT_EQ(depthHeight(-0.5, 1.0F), -18.75);
    // 100 / 720 is rounded to a float, and the product is not.
    EXPECT_EQ(depthHeight(1.0, canvasFactor(RefBox{0, 0, 100, 1})), 37.5 * static_cast<double>(100.0F / 720.0F));
}

TEST(ReferenceDepth16, RisesFromTheLowestToTheHighestValue)
{
    // Span 100 ... 300, scale 0.005: shares 0, 0.25 and 1 (200 x 0.005F = 0.99999998, nearest float 1).
    RefImage16 blurred = row16({100, 150, 300, 0, -9});
    const RefDepth depth = makeDepth16(blurred, 0.0, 37.5, 1.0);

    EXPECT_EQ(depth.box, blurred.box);
    EXPECT_EQ(depth.at(0, 0), 0.0F);
    EXPECT_EQ(depth.at(1, 0), 9.375F);
    EXPECT_EQ(depth.at(2, 0), 37.5F);
    EXPECT_EQ(depth.at(3, 0), 0.0F);
    EXPECT_EQ(depth.at(4, 0), 0.0F);

    EXPECT_EQ(blurred.at(0, 0).b, 1);
    EXPECT_EQ(blurred.at(1, 0).b, 8192); // 0.25 x 32765 + 1 = 8192.25
    EXPECT_EQ(blurred.at(2, 0).b, 32766);
    EXPECT_EQ(blurred.at(3, 0).b, 77) << "blue of pixels below is not touched";
    EXPECT_EQ(blurred.at(4, 0), (RefPixel16{0, 0, 77, 32767})) << "red below 1 becomes 0";
}

TEST(ReferenceDepth16, HasItsProfileShaped)
{
    RefImage16 blurred = row16({100, 150, 300});
    const RefDepth depth = makeDepth16(blurred, 0.0, 37.5, 2.0);
    EXPECT_EQ(depth.at(1, 0), 18.75F);
    EXPECT_EQ(blurred.at(1, 0).b, 16383); // 0.5 x 32765 + 1 = 16383.5
}

TEST(ReferenceDepth16, SinksForNegativeElevations)
{
    RefImage16 blurred = row16({100, 150, 300});
    const RefDepth depth = makeDepth16(blurred, 0.0, -37.5, 1.0);
    EXPECT_EQ(depth.at(1, 0), -9.375F);
    EXPECT_TRUE(depth.hasDepth(1, 0));
    EXPECT_EQ(depth.rangeLow, -37.5);
    EXPECT_EQ(depth.rangeHigh, 0.0);
}

TEST(ReferenceDepth16, IsUntouchedWithoutAnyPositiveValue)
{
    RefImage16 blurred = row16({0, -9});
    const RefDepth depth = makeDepth16(blurred, 5.0, 37.5, 1.0);
    EXPECT_FALSE(depth.hasDepth(0, 0));
    EXPECT_FALSE(depth.hasDepth(1, 0));
    EXPECT_EQ(blurred.at(1, 0), (RefPixel16{-9, 0, 77, 32767}));
    EXPECT_EQ(depth.rangeHigh, 37.5);
}

TEST(ReferenceDepth16, OfOneConstantValueIsLow)
{
    RefImage16 blurred = row16({500, 500});
    const RefDepth depth = makeDepth16(blurred, 0.0, 37.5, 2.0);
    EXPECT_FALSE(depth.hasDepth(0, 0));
    EXPECT_EQ(blurred.at(0, 0).b, 1);
}

TEST(ReferenceDepth16, GivesAHighestPixelOneLessWhereTheScaleFallsShort)
{
    // 2^29 / 41 = 13094412.488, so the float 1/41 is (2^29 - 20) / 41 x 2^-29, and 41 times it is 1 - 0.625 x 2^-24,
    // which rounds to 1 - 2^-24: 32765 times that, + 1, is just below 32766.
    RefImage16 fortyOne = row16({1, 42});
    makeDepth16(fortyOne, 0.0, 37.5, 1.0);
    EXPECT_EQ(fortyOne.at(1, 0).b, 32765);

    int short_ = 0;
    for (int span = 1; span <= 32766; ++span) {
        RefImage16 blurred = row16({1, static_cast<std::int16_t>(span + 1)});
        makeDepth16(blurred, 0.0, 37.5, 1.0);
        ASSERT_GE(blurred.at(1, 0).b, 32765);
        short_ += blurred.at(1, 0).b == 32765 ? 1 : 0;
    }
    EXPECT_NEAR(short_ / 32766.0, 0.15, 0.005);
}

TEST(ReferenceDepthFloat, StoresTheElevationAsItIs)
{
    RefImageFloat blurred = rowFloat({0.25F, 0.375F, 0.75F, 0.0F, -1.0F});
    const RefDepth depth = makeDepthFloat(blurred, 0.0, 37.5, 1.0);
    EXPECT_EQ(depth.at(0, 0), 0.0F);
    EXPECT_EQ(depth.at(1, 0), 9.375F);
    EXPECT_EQ(depth.at(2, 0), 37.5F);
    EXPECT_EQ(depth.at(4, 0), 0.0F);
    EXPECT_EQ(blurred.at(1, 0), (RefPixelFloat{0.375F, 0, 0.25F, 1}));
    EXPECT_EQ(blurred.at(2, 0).b, 1.0F);
    EXPECT_EQ(blurred.at(4, 0), (RefPixelFloat{0, 0, 77, 1}));
}

TEST(ReferenceDepthFloat, CountsEveryPositiveValueAndNotOnlyThoseFromOne)
{
    RefImageFloat blurred = rowFloat({0.001F, 0.002F});
    const RefDepth depth = makeDepthFloat(blurred, 0.0, 37.5, 1.0);
    EXPECT_EQ(blurred.at(0, 0).r, 0.001F);
    EXPECT_NEAR(depth.at(1, 0), 37.5, 1e-5);
}

TEST(ReferenceDepthFloat, IsUntouchedWithoutAnyPositiveValue)
{
    RefImageFloat blurred = rowFloat({0, -9});
    EXPECT_FALSE(makeDepthFloat(blurred, 5.0, 37.5, 1.0).hasDepth(0, 0));
    EXPECT_EQ(blurred.at(1, 0).r, -9.0F);
}

} // namespace
} // namespace reference
