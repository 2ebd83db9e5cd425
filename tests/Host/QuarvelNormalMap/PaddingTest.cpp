// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares padding with its definition, pixel by pixel, on random pictures.
#include "QuarvelNormalMap/NM_Padding.h"

#include "Pixmaps.h"

#include <rapidcheck/gtest.h>
#include <tbb/global_control.h>

#include <optional>

namespace {

using U16 = std::uint16_t;
using Samples = std::vector<U16>;

// A picture in which a covered pixel's colour encodes its own place, so that a copy tells where it came from.
IIO_Picture placesPicture(int width, int height, double density, unsigned seed)
{
    std::mt19937 random(seed);
    std::bernoulli_distribution covered(density);
    const Math::Box2di window(-3, -2, width - 3, height - 2);
    IIO_Picture picture =
        std::move(IIO_Picture::create(IIO_SampleType::UINT16, window, window, IIO_channelsRgba()).value());
    for (int y = window.y1; y < window.y2; ++y) {
        U16* sample = picture.row<U16>(y).data();
        for (int x = 0; x < width; ++x, sample += 4) {
            const bool isCovered = covered(random);
            sample[0] = isCovered ? static_cast<U16>(x) : U16{40000};
            sample[1] = isCovered ? static_cast<U16>(y - window.y1) : U16{40000};
            sample[2] = isCovered ? U16{1} : U16{40000};
            sample[3] = isCovered ? U16{1} : U16{0};
        }
    }
    return picture;
}

// The squared distance from a pixel to the nearest covered one; std::nullopt if no pixel is covered.
std::optional<int> nearestSquared(const IIO_Picture& picture, int toX, int toY)
{
    std::optional<int> nearest;
    for (int y = 0; y < picture.height(); ++y) {
        const auto row = picture.row<U16>(picture.dataWindow().y1 + y);
        for (int x = 0; x < picture.width(); ++x) {
            const int squared = (x - toX) * (x - toX) + (y - toY) * (y - toY);
            if (row[static_cast<std::size_t>(4 * x + 3)] > 0 && squared < nearest.value_or(squared + 1))
                nearest = squared;
        }
    }
    return nearest;
}

RC_GTEST_PROP(Padding, TakesANearestCoveredPixelWithinTheDistanceAndLeavesTheRest, ())
{
    // Tall pictures are padded in several bands; narrow ones keep the comparison short.
    const bool isTall = *rc::gen::arbitrary<bool>();
    const auto width = *rc::gen::inRange(1, isTall ? 5 : 25);
    const auto height = isTall ? *rc::gen::inRange(120, 200) : *rc::gen::inRange(1, 25);
    const auto distance = *rc::gen::inRange(1, 30);
    const auto density = *rc::gen::element(0.0, 0.01, 0.05, 0.3, 0.9, 1.0);
    const IIO_Picture before = placesPicture(width, height, density, *rc::gen::arbitrary<unsigned>());
    IIO_Picture after = std::move(before.clone().value());
    NM_padColours(after, distance);

    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Samples old = samplesAt<U16>(before, x - 3, y - 2);
            const Samples now = samplesAt<U16>(after, x - 3, y - 2);
            const auto nearest = nearestSquared(before, x, y);
            if (old[3] > 0 || !nearest || *nearest > distance * distance) {
                RC_ASSERT(now == old);
                continue;
            }
            const int dx = now[0] - x;
            const int dy = now[1] - y;
            RC_ASSERT(now[2] == 1);
            RC_ASSERT(dx * dx + dy * dy == *nearest);
            RC_ASSERT(now[3] == 0);
        }
}

TEST(Padding, OfZeroChangesNothing)
{
    const IIO_Picture before = placesPicture(9, 9, 0.3, 1);
    for (const int distance : {0, -5}) {
        IIO_Picture after = std::move(before.clone().value());
        NM_padColours(after, distance);
        EXPECT_EQ(allSamples<U16>(after), allSamples<U16>(before));
    }
}

TEST(Padding, GrowsADiscAroundASinglePixel)
{
    IIO_Picture picture = std::move(IIO_Picture::create(IIO_SampleType::FLOAT, {5, 5}, IIO_channelsRgba()).value());
    for (int y = 0; y < 5; ++y)
        std::ranges::fill(picture.row<float>(y), 0.0F);
    std::ranges::copy(std::vector<float>{0.25F, 0.5F, 0.75F, 0.125F}, picture.row<float>(2).begin() + 8);
    NM_padColours(picture, 2);
    const std::vector<std::string> expected = {"..#..", ".###.", "#####", ".###.", "..#.."};
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) {
            const bool reached = expected[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#';
            const float coverage = x == 2 && y == 2 ? 0.125F : 0.0F;
            const std::vector<float> pixel =
                reached ? std::vector<float>{0.25F, 0.5F, 0.75F, coverage} : std::vector<float>{0.0F, 0.0F, 0.0F, 0.0F};
            EXPECT_EQ(samplesAt<float>(picture, x, y), pixel) << x << ' ' << y;
        }
}

TEST(Padding, OfTwoEquallyNearRowsTakesTheUpperOne)
{
    IIO_Picture picture = std::move(IIO_Picture::create(IIO_SampleType::FLOAT, {1, 3}, IIO_channelsRgba()).value());
    const std::vector<float> upper{0.25F, 0.5F, 0.75F, 1.0F};
    const std::vector<float> lower{0.5F, 0.25F, 0.0F, 1.0F};
    std::ranges::copy(upper, picture.row<float>(0).begin());
    std::ranges::fill(picture.row<float>(1), 0.0F);
    std::ranges::copy(lower, picture.row<float>(2).begin());
    NM_padColours(picture, 1);
    EXPECT_EQ(samplesAt<float>(picture, 0, 1), (std::vector<float>{0.25F, 0.5F, 0.75F, 0.0F}));
}

TEST(Padding, ADistanceBeyondThePictureReachesAllOfIt)
{
    IIO_Picture picture = placesPicture(40, 3, 0.02, 7);
    NM_padColours(picture, 2000000000);
    for (int x = -3; x < 37; ++x)
        EXPECT_EQ(samplesAt<U16>(picture, x, -2)[2], 1);
}

TEST(Padding, DoesNotDependOnThreads)
{
    const IIO_Picture before = placesPicture(200, 300, 0.01, 3);
    std::vector<Samples> results;
    for (const std::size_t threads : {1U, 2U, 7U}) {
        const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
        IIO_Picture after = std::move(before.clone().value());
        NM_padColours(after, 40);
        results.push_back(allSamples<U16>(after));
    }
    EXPECT_EQ(results[0], results[1]);
    EXPECT_EQ(results[0], results[2]);
}

} // namespace
