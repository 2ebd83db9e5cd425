// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The filter's size, weights and normalisation.
#include "BlurAlgo/FilterImage.h"
#include "BlurAlgo/BlurAlgo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

using testing::ElementsAre;

namespace {

double sum(const std::vector<double>& weights)
{
    return std::accumulate(weights.begin(), weights.end(), 0.0);
}

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
    EXPECT_THAT(filter.weightsX(), ElementsAre(1.0));
    EXPECT_THAT(filter.weightsY(), ElementsAre(1.0));
    EXPECT_EQ(filter.gain(), 1.0);
}

TEST(FilterImage, HasAnOddSize)
{
    const FilterImage filter(4, -7);
    EXPECT_EQ(filter.width(), 5);
    EXPECT_EQ(filter.height(), 1);
    EXPECT_THAT(filter.weightsX(), ElementsAre(0.0, 0.0, 1.0, 0.0, 0.0));
}

TEST(FilterImage, ReachesFourDeviations)
{
    const FilterImage filter = gaussian(1.1, 0.25, true);
    EXPECT_EQ(filter.width(), 11) << "4.4 rounds up to 5 on each side";
    EXPECT_EQ(filter.height(), 3);
}

TEST(FilterImage, HasTheRatiosOfAGaussian)
{
    const FilterImage filter = gaussian(2.0, 3.0, true);
    const std::vector<double> x = filter.weightsX();
    const std::vector<double> y = filter.weightsY();
    // exp(-1/8), exp(-16/8); exp(-9/18).
    EXPECT_NEAR(x[9] / x[8], std::exp(-0.125), 1e-12);
    EXPECT_NEAR(x[4] / x[8], std::exp(-2.0), 1e-12);
    EXPECT_NEAR(y[15] / y[12], std::exp(-0.5), 1e-12);
}

TEST(FilterImage, SumsToOneWhenNormalised)
{
    for (const double sigma : {0.2, 0.5, 1.0, 1.99, 2.0, 5.0, 40.0}) {
        // What lies beyond four deviations on both sides is 6.3e-5 of the whole; at short ones hardly anything.
        const double total = sum(gaussian(sigma, sigma, true).weightsX());
        EXPECT_LE(total, 1.0 + 1e-12) << sigma;
        EXPECT_GE(total, 1.0 - 6.4e-5) << sigma;
    }
    EXPECT_NEAR(sum(gaussian(0.5, 0.5, true).weightsX()), 1.0, 1e-7);
    EXPECT_EQ(gaussian(3.0, 3.0, true).gain(), 1.0);
}

TEST(FilterImage, HasALargestWeightOfOneWhenNotNormalised)
{
    const FilterImage filter = gaussian(2.0, 0.5, false);
    EXPECT_EQ(filter.weightsX()[8], 1.0);
    EXPECT_EQ(filter.weightsY()[2], 1.0);
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
        EXPECT_THAT(filter.weightsX(), ElementsAre(1.0));
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
    EXPECT_TRUE(filter.isNormalised());
}
