// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which direction a pixel of the node's output stores, and which pixels store none.
#include "QuarvelNormalMap/NM_Direction.h"

#include "Pixmaps.h"

#include <rapidcheck/gtest.h>

#include <limits>

namespace {

constexpr std::int16_t kMiddle = 16384;
constexpr std::int16_t kFull = 32767;

template<typename Pixel>
void expectDirection(const Pixel& pixel, const Math::Vector3d& expected, double tolerance)
{
    const Math::Vector3d actual = NM_directionOf(pixel);
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

TEST(Direction, TheMiddleIsExactlyFlatInBothFormats)
{
    expectDirection(Pixel16{kMiddle, kMiddle, 1, kFull}, {0, 0, 1}, 0.0);
    expectDirection(PixelFloat{0.5F, 0.5F, 0.0F, 1.0F}, {0, 0, 1}, 0.0);
}

TEST(Direction, TheEndsOfTheRangeLieInThePlane)
{
    expectDirection(Pixel16{kFull, kMiddle, 1, kFull}, {1, 0, 0}, 1e-12);
    expectDirection(Pixel16{0, kMiddle, 1, kFull}, {-1, 0, 0}, 1e-12);
    expectDirection(Pixel16{kMiddle, 0, 1, kFull}, {0, -1, 0}, 1e-12);
    expectDirection(PixelFloat{0.5F, 1.0F, 0.0F, 1.0F}, {0, 1, 0}, 1e-12);
}

TEST(Direction, ZCompletesTheUnitVector)
{
    // x = 0.6 is stored as 1.6 x 0.5 x 32767 = 26213.6.
    expectDirection(Pixel16{26214, kMiddle, 1, kFull}, {0.6, 0, 0.8}, 4e-5);
    expectDirection(PixelFloat{0.8F, 0.5F, 0.0F, 1.0F}, {0.6, 0, 0.8}, 1e-6);
}

TEST(Direction, NegativeBlueTurnsAwayFromTheViewer)
{
    expectDirection(Pixel16{kMiddle, kMiddle, -1, kFull}, {0, 0, -1}, 0.0);
    expectDirection(PixelFloat{0.8F, 0.5F, -0.25F, 1.0F}, {0.6, 0, -0.8}, 1e-6);
    // Zero has no sign.
    expectDirection(PixelFloat{0.5F, 0.5F, -0.0F, 1.0F}, {0, 0, 1}, 0.0);
}

TEST(Direction, PixelsWithoutDirectionFaceTheViewer)
{
    for (const std::int16_t blue : {std::int16_t{0}, kFull, std::int16_t{-5}})
        for (const std::int16_t alpha : {std::int16_t{0}, std::int16_t{100}, kFull})
            expectDirection(Pixel16{0, 0, blue, alpha}, {0, 0, 1}, 0.0);
    expectDirection(PixelFloat{0.0F, 0.0F, 1.0F, 0.0F}, {0, 0, 1}, 0.0);
}

TEST(Direction, WhatIsTooLongForADirectionFacesTheViewer)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    expectDirection(Pixel16{kFull, kFull, 1, kFull}, {0, 0, 1}, 0.0);
    expectDirection(PixelFloat{2.0F, 0.5F, 0.0F, 1.0F}, {0, 0, 1}, 0.0);
    expectDirection(PixelFloat{kNan, 0.5F, 0.0F, 1.0F}, {0, 0, 1}, 0.0);
    expectDirection(PixelFloat{0.5F, kInfinity, 0.0F, 1.0F}, {0, 0, 1}, 0.0);
}

TEST(Direction, RoundingDoesNotMakeAGrazingDirectionInvalid)
{
    // (0.8, 0.6) rounded up by one code in both channels is slightly longer than 1.
    expectDirection(Pixel16{29491, 26215, 1, kFull}, {0.8, 0.6, 0}, 1e-4);
}

TEST(Direction, ADirectionWithoutCoverageIsKept)
{
    expectDirection(PixelFloat{0.8F, 0.5F, 0.0F, 0.0F}, {0.6, 0, 0.8}, 1e-6);
}

RC_GTEST_PROP(Direction, HasUnitLengthWhateverThePixel, (std::int16_t r, std::int16_t g, std::int16_t b))
{
    RC_ASSERT(std::abs(NM_directionOf(Pixel16{r, g, b, kFull}).length() - 1.0) < 1e-12);
}

RC_GTEST_PROP(Direction, HasUnitLengthWhateverTheFloats, (float r, float g, float b))
{
    RC_ASSERT(std::abs(NM_directionOf(PixelFloat{r, g, b, 1.0F}).length() - 1.0) < 1e-12);
}

} // namespace
