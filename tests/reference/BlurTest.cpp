// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The direct Gaussian by hand: size, weights, padding, channels, rounding.
#include "reference/Blur.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace reference {
namespace {

RefImage16 dot16(std::int16_t value)
{
    RefImage16 mask(RefBox{10, 10, 11, 11}, RefBox{0, 0, 40, 30}, 40, 30);
    mask.at(10, 10) = RefPixel16{value, 0, 0, 32767};
    return mask;
}

TEST(ReferenceBlur, TakesAQuarterOfTheBevelScaledToTheResolution)
{
    EXPECT_DOUBLE_EQ(bevelSigma(5.0, 720), 1.25);
    EXPECT_DOUBLE_EQ(bevelSigma(3.0, 1920), 2.0);
}

TEST(ReferenceBlur, HasWeightsOfAGaussianThatSumToOne)
{
    for (const double sigma : {0.1, 0.3, 1.0, 7.3}) {
        const std::vector<double> weights = gaussianWeights(sigma);
        const std::size_t centre = weights.size() / 2;
        EXPECT_EQ(weights.size() % 2, 1U);
        EXPECT_EQ(centre, static_cast<std::size_t>(8.0 * sigma));
        EXPECT_NEAR(std::accumulate(weights.begin(), weights.end(), 0.0), 1.0, 1e-14);
        for (std::size_t d = 1; d <= centre; ++d) {
            EXPECT_EQ(weights[centre - d], weights[centre + d]);
            const double distance = static_cast<double>(d);
            EXPECT_NEAR(weights[centre + d] / weights[centre], std::exp(-distance * distance / (2 * sigma * sigma)),
                        1e-14);
        }
    }
}

TEST(ReferenceBlur, SpreadsOnePixel)
{
    const RefImage16 blurred = gaussianBlur16(dot16(32767), 1.0);

    // Four pixels on every side, canvas and size as before.
    EXPECT_EQ(blurred.box, (RefBox{6, 6, 15, 15}));
    EXPECT_EQ(blurred.canvas, (RefBox{0, 0, 40, 30}));
    EXPECT_EQ(blurred.width, 40);

    // The weights' sum before division is sqrt(2 pi) to eight digits: the centre is 32767 / (2 pi) = 5215.03.
    EXPECT_EQ(blurred.at(10, 10), (RefPixel16{5215, 0, 0, 32767}));
    // One pixel beside: times exp(-1/2) = 0.606531: 3163.08. Diagonally: times exp(-1) = 0.367879: 1918.502.
    EXPECT_EQ(blurred.at(11, 10).r, 3163);
    EXPECT_EQ(blurred.at(10, 9).r, 3163);
    EXPECT_EQ(blurred.at(9, 11).r, 1919);
    // Four pixels beside: times exp(-8) = 0.00033546: 1.749. In the corner: times exp(-16): 0.0006; without red there
    // is no alpha.
    EXPECT_EQ(blurred.at(14, 10), (RefPixel16{2, 0, 0, 32767}));
    EXPECT_EQ(blurred.at(14, 14), RefPixel16{});
}

TEST(ReferenceBlur, GrowsByFourSigmasRoundedUp)
{
    EXPECT_EQ(gaussianBlur16(dot16(9), 0.3).box, (RefBox{8, 8, 13, 13}));  // 1.2 -> 2
    EXPECT_EQ(gaussianBlur16(dot16(9), 1.25).box, (RefBox{5, 5, 16, 16})); // 5
}

TEST(ReferenceBlur, DoesNotBlurBelowAnEighthOfAPixel)
{
    const RefImage16 blurred = gaussianBlur16(dot16(123), 0.1);
    EXPECT_EQ(blurred.box, (RefBox{9, 9, 12, 12}));
    EXPECT_EQ(blurred.at(10, 10), (RefPixel16{123, 0, 0, 32767}));
    EXPECT_EQ(blurred.at(11, 10), RefPixel16{});
}

TEST(ReferenceBlur, KeepsAConstantFarFromTheBorderAndFadesAtIt)
{
    RefImageFloat mask(RefBox{0, 0, 41, 41});
    for (RefPixelFloat& pixel : mask.pixels) {
        pixel = RefPixelFloat{0.75F, 0.3F, 0.2F, 1};
    }
    const RefImageFloat blurred = gaussianBlurFloat(mask, 2.0);
    EXPECT_EQ(blurred.at(20, 20), (RefPixelFloat{0.75F, 0, 0, 1}));
    // The middle of the slope lies between the last pixel inside and the first outside: their sum is the full value.
    EXPECT_NEAR(static_cast<double>(blurred.at(0, 20).r) + static_cast<double>(blurred.at(-1, 20).r), 0.75, 1e-6);
    EXPECT_GT(blurred.at(0, 20).r, blurred.at(-1, 20).r);
}

TEST(ReferenceBlur, ReadsRedAlone)
{
    RefImage16 mask = dot16(0);
    mask.at(10, 10) = RefPixel16{0, 32767, 32767, 32767};
    for (const RefPixel16& pixel : gaussianBlur16(mask, 1.0).pixels) {
        EXPECT_EQ(pixel, RefPixel16{});
    }
}

TEST(ReferenceBlur, LeavesNothingOfNothing)
{
    const RefImage16 mask(RefBox{}, RefBox{0, 0, 4, 4}, 4, 4);
    EXPECT_TRUE(gaussianBlur16(mask, 3.0).box.empty());
    EXPECT_EQ(gaussianBlur16(mask, 3.0).canvas, (RefBox{0, 0, 4, 4}));
}

TEST(ReferenceBlur, GivesItsSumsBeforeRounding)
{
    const std::vector<double> sums = blurredRed16(dot16(32767), 1.0);
    ASSERT_EQ(sums.size(), 81U);
    EXPECT_NEAR(sums[40], 32767.0 / (2.0 * 3.14159265358979), 1e-3);
    EXPECT_NEAR(sums[41], sums[40] * std::exp(-0.5), 1e-9);
}

} // namespace
} // namespace reference
