// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blend of a normal into an output pixel by hand.
#include "reference/Blend.h"

#include <gtest/gtest.h>

#include <cmath>

namespace reference {
namespace {

RefPixel16 blended(RefPixel16 out, RefPixel16 object, double a, std::int16_t blue)
{
    blendNormal16(out, object, a, blue);
    return out;
}

RefPixelFloat blended(RefPixelFloat out, RefPixelFloat object, double a, float blue)
{
    blendNormalFloat(out, object, a, blue);
    return out;
}

TEST(ReferenceBlend16, ChangesNothingWithoutCoverage)
{
    EXPECT_EQ(blended(RefPixel16{1, 2, 3, 4}, RefPixel16{5, 6, 7, 8}, 0.0, 9), (RefPixel16{1, 2, 3, 4}));
    EXPECT_EQ(blended(RefPixel16{1, 2, 3, 4}, RefPixel16{5, 6, 7, 8}, -1.0, 9), (RefPixel16{1, 2, 3, 4}));
}

TEST(ReferenceBlend16, ReplacesAnEmptyOutput)
{
    EXPECT_EQ(blended(RefPixel16{1, 2, 3, 0}, RefPixel16{5, 6, 7, 8}, 0.5, 9), (RefPixel16{5, 6, 9, 16383}));
    EXPECT_EQ(blended(RefPixel16{1, 2, 3, -4}, RefPixel16{5, 6, 7, 8}, 0.5, 9), (RefPixel16{5, 6, 9, 16383}));
}

TEST(ReferenceBlend16, ReplacesWhateverIsThereAtFullCoverage)
{
    EXPECT_EQ(blended(RefPixel16{1, 2, 3, 4}, RefPixel16{5, 6, 7, 8}, 1.0, 9), (RefPixel16{5, 6, 9, 32767}));
}

TEST(ReferenceBlend16, KeepsTheCoverageItReplacesWith)
{
    for (int alpha = 1; alpha <= 32439; ++alpha) {
        ASSERT_EQ(blended(RefPixel16{}, RefPixel16{}, alpha / 32767.0, 0).a, alpha);
    }
}

TEST(ReferenceBlend16, MixesTheDirectionsAndTruncates)
{
    // Out decodes to (1, 3.05e-5, 0), the object to (3.05e-5, 3.05e-5, 1). Half of each: (0.5000153, 3.05e-5, 0.5), of
    // length 0.7071176: x = 0.7071176, 1.7071176 x 16383.5 = 27968.6, truncated; y = 4.316e-5, 16384.2. Alpha: all of
    // 32767.
    EXPECT_EQ(blended(RefPixel16{32767, 16384, 7, 32767}, RefPixel16{16384, 16384, 5, 1}, 0.5, 9),
              (RefPixel16{27968, 16384, 9, 32767}));
    // Alpha: 10000 x 0.75 + 0.25 x 32767 = 15691.75.
    EXPECT_EQ(blended(RefPixel16{16384, 16384, 0, 10000}, RefPixel16{16384, 16384, 0, 1}, 0.25, 9).a, 15691);
}

TEST(ReferenceBlendFloat, ChangesNothingWithoutCoverage)
{
    EXPECT_EQ(blended(RefPixelFloat{1, 2, 3, 4}, RefPixelFloat{5, 6, 7, 8}, 0.0, 9), (RefPixelFloat{1, 2, 3, 4}));
}

TEST(ReferenceBlendFloat, ReplacesAnEmptyOutputAndAtFullCoverage)
{
    EXPECT_EQ(blended(RefPixelFloat{1, 2, 3, 0}, RefPixelFloat{5, 6, 7, 8}, 0.5, 9), (RefPixelFloat{5, 6, 9, 0.5F}));
    EXPECT_EQ(blended(RefPixelFloat{1, 2, 3, 4}, RefPixelFloat{5, 6, 7, 8}, 1.0, 9), (RefPixelFloat{5, 6, 9, 1.0F}));
}

TEST(ReferenceBlendFloat, MixesTheDirections)
{
    // (1, 0, 0) and (0, 0, 1) in halves: (0.707107, 0, 0.707107), encoded 0.853553.
    const RefPixelFloat mixed = blended(RefPixelFloat{1, 0.5F, 0, 1}, RefPixelFloat{0.5F, 0.5F, 0, 1}, 0.5, 0.25F);
    EXPECT_NEAR(mixed.r, 0.853553, 1e-6);
    EXPECT_EQ(mixed.g, 0.5F);
    EXPECT_EQ(mixed.b, 0.25F);
    EXPECT_EQ(mixed.a, 1.0F);
}

TEST(ReferenceBlendFloat, TurnsAwayWhereBlueIsNegative)
{
    // Out decodes to (0.6, 0, -0.8), the object to (0, 0, 1). Halves: (0.3, 0, 0.1), x = 0.948683, encoded 0.974342.
    EXPECT_NEAR(blended(RefPixelFloat{0.8F, 0.5F, -1, 1}, RefPixelFloat{0.5F, 0.5F, 0, 1}, 0.5, 0).r, 0.974342, 1e-6);
    // The object's own blue has the same effect: (0.3, 0, 0.4 - 0.5): x = 0.948683 as well.
    EXPECT_NEAR(blended(RefPixelFloat{0.8F, 0.5F, 0, 1}, RefPixelFloat{0.5F, 0.5F, -1, 1}, 0.5, 7).r, 0.974342, 1e-6);
    // With positive blue: (0.3, 0, 0.9), x = 0.316228, encoded 0.658114.
    EXPECT_NEAR(blended(RefPixelFloat{0.8F, 0.5F, 1, 1}, RefPixelFloat{0.5F, 0.5F, 0, 1}, 0.5, 0).r, 0.658114, 1e-6);
}

TEST(ReferenceBlendFloat, GivesOppositeDirectionsTheMiddle)
{
    EXPECT_EQ(blended(RefPixelFloat{0.5F, 0.5F, -1, 1}, RefPixelFloat{0.5F, 0.5F, 0, 1}, 0.5, 0),
              (RefPixelFloat{0.5F, 0.5F, 0, 1}));
}

TEST(ReferenceBlendFloat, CutsTheMixedAlphaToZeroOrOne)
{
    const RefPixelFloat up{0.5F, 0.5F, 0, 1};
    // 0.5 x 0.75 + 0.5 = 0.875, cut to 0.
    EXPECT_EQ(blended(RefPixelFloat{0.5F, 0.5F, 0, 0.75F}, up, 0.5, 0).a, 0.0F);
    EXPECT_EQ(blended(RefPixelFloat{0.5F, 0.5F, 0, std::nextafter(1.0F, 0.0F)}, up, 0.5, 0).a, 0.0F);
    EXPECT_EQ(blended(RefPixelFloat{0.5F, 0.5F, 0, 1.0F}, up, 0.5, 0).a, 1.0F);
    // 0.5 x 5 + 0.5 = 3, clamped to 1.
    EXPECT_EQ(blended(RefPixelFloat{0.5F, 0.5F, 0, 5.0F}, up, 0.5, 0).a, 1.0F);
}

TEST(ReferenceBlendFloat, KeepsAFullAlphaUnderEveryFloatCoverage)
{
    for (float a = 0.9998F; a > 1e-7F; a *= 0.98F) {
        const double coverage = static_cast<double>(a);
        ASSERT_GE((1.0 - coverage) * 1.0 + coverage, 1.0);
        ASSERT_EQ(blended(RefPixelFloat{0.5F, 0.5F, 0, 1}, RefPixelFloat{0.5F, 0.5F, 0, 1}, coverage, 0).a, 1.0F);
    }
}

} // namespace
} // namespace reference
