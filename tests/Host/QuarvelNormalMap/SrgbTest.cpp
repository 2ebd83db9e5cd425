// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The sRGB curve against its definition.
#include "QuarvelNormalMap/NM_Srgb.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Srgb, HasItsKnownPoints)
{
    EXPECT_EQ(NM_linearOfSrgb(0.0F), 0.0F);
    EXPECT_EQ(NM_linearOfSrgb(1.0F), 1.0F);
    // The middle of the encoded scale is 21.4 % of the light; the linear part ends at 0.04045 and has the slope 1 /
    // 12.92.
    EXPECT_NEAR(NM_linearOfSrgb(0.5F), 0.21404F, 1e-5F);
    EXPECT_NEAR(NM_linearOfSrgb(0.02F), 0.02F / 12.92F, 1e-8F);
    EXPECT_EQ(NM_linearOfSrgb(std::uint16_t{65535}), 1.0F);
    EXPECT_NEAR(NM_linearOfSrgb(std::uint16_t{32768}), 0.21405F, 2e-5F);
}

TEST(Srgb, TheEncoderInvertsTheCurve)
{
    const NM_SrgbEncoder& encode = NM_SrgbEncoder::instance();
    for (int code = 0; code <= 65535; ++code) {
        const auto sample = static_cast<std::uint16_t>(code);
        ASSERT_NEAR(encode(NM_linearOfSrgb(sample)), static_cast<float>(code) / 65535.0F, 2e-5F) << code;
    }
}

TEST(Srgb, ValuesBeyondTheRangeAreClamped)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    const NM_SrgbEncoder& encode = NM_SrgbEncoder::instance();
    EXPECT_EQ(encode(-1.0F), 0.0F);
    EXPECT_EQ(encode(5.0F), 1.0F);
    EXPECT_EQ(encode(kNan), 0.0F);
    EXPECT_EQ(NM_linearOfSrgb(-1.0F), 0.0F);
    EXPECT_EQ(NM_linearOfSrgb(2.0F), 1.0F);
    EXPECT_EQ(NM_linearOfSrgb(kNan), 0.0F);
}

} // namespace
