// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two bounds of the blur, against the direct sum: values within 1/16384 of full scale, differences of neighbours
// within 1/1000 of the steepest true one, for short and long blurs and for pictures with all kinds of detail.
#include "Host/BlurAlgo/DirectBlur.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <random>

using direct::Plane;
using Math::Box2di;

namespace {

constexpr double kValueBound = 1.0 / 16384;
constexpr double kSlopeBound = 1.0 / 1000;

void expectWithinBounds(const Plane& source, double sigmaX, double sigmaY)
{
    const direct::Errors errors =
        direct::errors(direct::blurredFast(source, sigmaX, sigmaY), direct::blurred(source, sigmaX, sigmaY));
    EXPECT_LE(errors.value, kValueBound) << "sigma " << sigmaX << ", " << sigmaY;
    EXPECT_LE(errors.slope, kSlopeBound) << "sigma " << sigmaX << ", " << sigmaY;
}

template<typename Value>
Plane painted(const Box2di& rect, const Value& value)
{
    Plane plane(rect);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            plane.at(x, y) = static_cast<float>(value(x, y));
    return plane;
}

/// Pictures small enough for the direct sum at every standard deviation.
class Accuracy : public testing::TestWithParam<double>
{
public:
    double sigma = GetParam();
};

/// Standard deviations on both sides of every change of method, and those in between.
INSTANTIATE_TEST_SUITE_P(Sigmas, Accuracy,
                         testing::Values(0.3, 0.5, 0.8, 1.0, 1.7, 2.5, 3.29, 3.3, 3.39, 3.4, 4.0, 4.59, 4.6, 5.0, 6.59,
                                         6.6, 7.0, 7.99, 8.0, 9.19, 9.2, 10.59, 10.6, 13.19, 13.2, 13.3, 15.99, 16.0,
                                         18.4, 21.2, 26.39, 26.4, 33.0, 52.8, 66.0, 105.6, 133.0, 200.0, 300.0));

} // namespace

TEST_P(Accuracy, HoldsForAnEdgeAcrossTheColumns)
{
    const auto edge = [](int x, int) { return x >= 300; };
    expectWithinBounds(painted(Box2di(-13, 4, 700, 5), edge), sigma, 0.0);
}

TEST_P(Accuracy, HoldsForAnEdgeAcrossTheRows)
{
    const auto edge = [](int, int y) { return y >= 290; };
    expectWithinBounds(painted(Box2di(7, -21, 9, 700), edge), 0.0, sigma);
}

TEST_P(Accuracy, HoldsForStripesOfAllWidths)
{
    // Bars that get narrower from left to right, down to single columns.
    const auto stripes = [](int x, int) { return std::sin(4000.0 / (x + 40)) > 0; };
    expectWithinBounds(painted(Box2di(0, 0, 500, 1), stripes), sigma, 0.0);
}

TEST_P(Accuracy, HoldsForADisc)
{
    const auto disc = [](int x, int y) { return std::hypot(x - 31, y + 3) < 25; };
    expectWithinBounds(painted(Box2di(-2, -34, 63, 30), disc), sigma, sigma);
}

TEST_P(Accuracy, HoldsForASinglePixelAnywhere)
{
    for (const int place : {0, 1, 2, 5, 11, 22, -1, -43}) {
        const Box2di pixel(place, -place, place + 1, 1 - place);
        expectWithinBounds(painted(pixel, [](int, int) { return 1; }), sigma, sigma);
    }
}

TEST_P(Accuracy, HoldsForAThinLine)
{
    const auto line = [](int x, int y) { return std::abs(2 * x + y - 40) < 3; };
    expectWithinBounds(painted(Box2di(0, 0, 50, 40), line), sigma, sigma);
}

TEST_P(Accuracy, HoldsForNoise)
{
    std::mt19937 random(7);
    const auto noise = [&](int, int) { return static_cast<double>(random() % 1024) / 1023; };
    expectWithinBounds(painted(Box2di(-30, -20, 17, 21), noise), sigma, sigma);
}

TEST_P(Accuracy, HoldsForDifferentDeviationsInXAndY)
{
    const auto cross = [](int x, int y) { return x == 20 || y == 9; };
    const Plane source = painted(Box2di(0, 0, 40, 30), cross);
    expectWithinBounds(source, sigma, sigma / 5);
    expectWithinBounds(source, sigma / 9, sigma);
}

TEST(AccuracyOfEveryPicture, FollowsFromTheErrorsOfAllWeights)
{
    // A picture of 0 and 1 that has 1 just where the weights are too large makes the largest possible error along an
    // axis: half of the sum of all errors, since the other weights are too small by the same amount. Two axes make
    // twice that.
    for (double sigma = 0.3; sigma < 32.0; sigma *= 1.011) {
        const int places = sigma < 3.0 ? 1 : 1 << std::ilogb(sigma);
        const int reach = static_cast<int>(8 * sigma) + 2 * places;
        const std::vector<double> exact = direct::weights(sigma);
        const int exactReach = static_cast<int>(exact.size() / 2);
        std::vector<double> sums(static_cast<std::size_t>(places));
        BA_GaussianBlur blur(sigma, 0.0);
        for (int from = -reach; from < reach + places; ++from) {
            const Plane pixel = painted(Box2di(from, 0, from + 1, 1), [](int, int) { return 1; });
            const Plane result(Box2di(0, 0, places, 1));
            blur.run(direct::view(pixel), direct::view(result));
            for (int x = 0; x < places; ++x) {
                const int distance = std::abs(x - from);
                const double wanted =
                    distance <= exactReach ? exact[static_cast<std::size_t>(exactReach + distance)] : 0.0;
                sums[static_cast<std::size_t>(x)] += std::abs(static_cast<double>(result.at(x, 0)) - wanted);
            }
        }
        EXPECT_LE(*std::max_element(sums.begin(), sums.end()), kValueBound) << "sigma " << sigma;
    }
}

TEST_P(Accuracy, HoldsForHatchingThatFoldsOver)
{
    // Spacings near those that halving can mistake for wide ones.
    for (const double spacing : {2.0, 2.1, 2.2, 2.4, 2.7, 3.3, 4.0, 4.3, 4.6, 8.2}) {
        const auto hatching = [&](int x, int) { return std::fmod(x, spacing) < spacing / 2; };
        expectWithinBounds(painted(Box2di(0, 0, 300, 1), hatching), sigma, 0.0);
    }
}

TEST(AccuracyOfSmallPictures, HoldsForEveryWidthFrom1To64)
{
    for (int width = 1; width <= 64; ++width)
        for (const double sigma : {0.7, 3.3, 6.0, 15.0}) {
            const auto full = [](int x, int y) { return 1.0 - 0.1 * ((x + y) & 3); };
            expectWithinBounds(painted(Box2di(-width / 2, 3, width - width / 2, 5), full), sigma, sigma);
        }
}

TEST(AccuracyOfSmallPictures, HoldsForSingleColumns)
{
    for (int height = 1; height <= 33; ++height)
        for (const double sigma : {0.7, 3.3, 6.0, 15.0})
            expectWithinBounds(painted(Box2di(5, -height, 6, 0), [](int, int) { return 1; }), sigma, sigma);
}

TEST(AccuracyOfSparsePictures, HoldsForPixelsFarFromEachOther)
{
    // The gaps are wide and high enough to be skipped.
    const auto pixels = [](int x, int y) { return x % 397 == 5 && y % 61 == 3; };
    for (const double sigma : {1.0, 3.3, 5.0, 6.6, 15.0}) {
        expectWithinBounds(painted(Box2di(-3, -70, 1300, 130), pixels), sigma, sigma);
        expectWithinBounds(painted(Box2di(-3, -70, 1300, 130), pixels), 0.0, sigma);
        expectWithinBounds(painted(Box2di(-3, -70, 1300, 130), pixels), sigma, 0.0);
    }
}

RC_GTEST_PROP(AccuracyOfAnything, HoldsForAnyPictureAndDeviation, ())
{
    // Ranges are complete from the first picture on (generators grow with the number of the picture).
    const auto within = [](int low, int high) {
        return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high));
    };
    const int width = within(1, 50);
    const int height = within(1, 50);
    const int x = within(-200, 200);
    const int y = within(-200, 200);
    // From 0.3 to 60, evenly on a logarithmic scale.
    const auto deviation = [&] { return 0.3 * std::exp2(within(0, 765) / 100.0); };
    const double sigmaX = deviation();
    const double sigmaY = deviation();
    // Mostly empty, mostly full or in between, with every value that a picture may have.
    const int density = within(1, 100);
    std::mt19937 random(*rc::gen::arbitrary<unsigned>());
    Plane source(Box2di(x, y, x + width, y + height));
    for (float& value : source.values)
        value = static_cast<int>(random() % 100) < density ? static_cast<float>(random() % 256) / 255.0F : 0.0F;

    const direct::Errors errors =
        direct::errors(direct::blurredFast(source, sigmaX, sigmaY), direct::blurred(source, sigmaX, sigmaY));
    RC_ASSERT(errors.value <= kValueBound);
    RC_ASSERT(errors.slope <= kSlopeBound);
}
