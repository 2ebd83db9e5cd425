// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The filter's size and normalisation.
#include "BlurAlgo/FilterImage.h"
#include "BlurAlgo/BlurAlgo.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

FilterImage gaussian(double sx, double sy, bool normalise)
{
    FilterImage filter(0, 0);
    BlurAlgo::getGaussianFilter(filter, sx, sy, normalise);
    return filter;
}

} // namespace

TEST(FilterImage, IsASingleOneWhenFresh)
{
    const FilterImage filter(0, 0);
    EXPECT_EQ(filter.width(), 1);
    EXPECT_EQ(filter.height(), 1);
    EXPECT_EQ(filter.gain(), 1.0);
}

TEST(FilterImage, HasAnOddSize)
{
    const FilterImage filter(4, -7);
    EXPECT_EQ(filter.width(), 5);
    EXPECT_EQ(filter.height(), 1);
}

TEST(FilterImage, ReachesFourDeviations)
{
    const FilterImage filter = gaussian(1.1, 0.25, true);
    EXPECT_EQ(filter.width(), 11) << "4.4 rounds up to 5 on each side";
    EXPECT_EQ(filter.height(), 3);
}

TEST(FilterImage, GainsNothingWhenNormalised)
{
    EXPECT_EQ(gaussian(3.0, 0.4, true).gain(), 1.0);
}

TEST(FilterImage, GainsTheSumOfItsWeightsWhenTheLargestIsOne)
{
    const FilterImage filter = gaussian(2.0, 0.5, false);
    // 2 sqrt(2 pi) = 5.0132565 in x; in y 1 + 2 (e^-2 + e^-8 + e^-18) = 1.2713415.
    EXPECT_NEAR(filter.gain(), 5.0132565 * 1.2713415, 1e-5);
}

TEST(FilterImage, TakesWhatIsNoDeviationForNone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double sigma : {0.0, -3.0, nan, infinite}) {
        const FilterImage filter = gaussian(sigma, 1.0, true);
        EXPECT_EQ(filter.sigmaX(), 0.0);
        EXPECT_EQ(filter.sigmaY(), 1.0);
    }
    EXPECT_EQ(gaussian(1e9, 0.0, true).sigmaX(), 1e6);
}

TEST(FilterImage, ForgetsWhatItWas)
{
    FilterImage filter = gaussian(9.0, 9.0, false);
    BlurAlgo::getGaussianFilter(filter, 1.0, 0.0, true);
    EXPECT_EQ(filter.width(), 9);
    EXPECT_EQ(filter.height(), 1);
    EXPECT_EQ(filter.gain(), 1.0);
}
