// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The sRGB curve at places that were worked out by hand.
#include "QuarvelGraphicCore/CM_Srgb.h"

#include <gtest/gtest.h>

namespace {

TEST(SrgbCurve, IsStraightNearBlackAndAPowerAbove)
{
    EXPECT_EQ(CM_linearOfSrgb(0.0), 0.0);
    EXPECT_EQ(CM_linearOfSrgb(1.0), 1.0);
    EXPECT_NEAR(CM_linearOfSrgb(0.02), 0.001547988, 1e-9);
    EXPECT_NEAR(CM_linearOfSrgb(0.04045), 0.003130805, 1e-9);
    EXPECT_NEAR(CM_linearOfSrgb(0.5), 0.214041140, 1e-9);
}

TEST(SrgbCurve, EncodesWhatItDecodes)
{
    for (int code = 0; code <= 255; ++code)
        EXPECT_NEAR(CM_srgbOfLinear(CM_linearOfSrgb(code / 255.0)), code / 255.0, 1e-6) << code;
}

} // namespace
