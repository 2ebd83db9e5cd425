// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flat drawings: the blur does not sum level areas sample by sample, which must not show. With a small standard
// deviation, it is compared bit by bit with the sums of all samples, in their order: the middle first, then the pairs
// around it from the nearest to the farthest, rows before columns.
#include "BlurAlgo/BA_GaussianBlur.h"
#include "Host/BlurAlgo/DirectBlur.h"
#include "OneInstructionSet.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

using direct::Plane;
using Math::Box2di;

namespace {

/// All small enough for the plain sum.
const std::vector<double> kSigmas{0.4, 1.3, 2.67, 3.2};

constexpr float kFull = 32767.0F;
/// Wider than a few of the blur's strips.
constexpr int kWide = 150;

/// The weights from the middle outwards: the Gaussian up to 4.5 standard deviations, divided by its sum, in multiples
/// of 2^-24; the middle takes the rounding errors.
std::vector<float> weightsOf(double sigma)
{
    if (sigma == 0.0)
        return {1.0F};
    constexpr double kStep = 1.0 / 16777216.0;
    const int reach = static_cast<int>(std::ceil(4.5 * sigma));
    const auto gaussian = [&](int d) { return std::exp(-0.5 * (d / sigma) * (d / sigma)); };
    double sum = 1.0;
    for (int d = 1; d <= reach; ++d)
        sum += 2.0 * gaussian(d);
    std::vector<float> weights{1.0F};
    double middle = 1.0;
    for (int d = 1; d <= reach; ++d) {
        const double weight = std::floor(gaussian(d) / sum / kStep + 0.5) * kStep;
        middle -= 2.0 * weight;
        if (weight > 0.0)
            weights.push_back(static_cast<float>(weight));
    }
    weights[0] = static_cast<float>(middle);
    return weights;
}

float valueAt(const Plane& plane, int x, int y)
{
    return plane.rect.contains(x, y) ? plane.at(x, y) : 0.0F;
}

/// The sum of the samples around the middle.
template<typename At>
float sumAround(const std::vector<float>& weights, const At& at)
{
    float sum = at(0) * weights[0];
    for (int d = 1; d < static_cast<int>(weights.size()); ++d)
        sum += (at(-d) + at(d)) * weights[static_cast<std::size_t>(d)];
    return sum;
}

Plane summed(const Plane& source, double sigmaX, double sigmaY, const Box2di& rect)
{
    const std::vector<float> wx = weightsOf(sigmaX);
    const std::vector<float> wy = weightsOf(sigmaY);
    Plane rows(Box2di(source.rect.x1, rect.y1, source.rect.x2, rect.y2));
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = source.rect.x1; x < source.rect.x2; ++x)
            rows.at(x, y) = sumAround(wy, [&](int d) { return valueAt(source, x, y + d); });
    Plane result(rect);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            result.at(x, y) = sumAround(wx, [&](int d) { return valueAt(rows, x + d, y); });
    return result;
}

bool isSame(float a, float b)
{
    // The bits of a NaN differ between machines.
    return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

/// The first difference of two planes of one rectangle, or an empty text.
std::string difference(const Plane& a, const Plane& b)
{
    for (int y = a.rect.y1; y < a.rect.y2; ++y)
        for (int x = a.rect.x1; x < a.rect.x2; ++x)
            if (!isSame(a.at(x, y), b.at(x, y)))
                return std::to_string(x) + ", " + std::to_string(y) + ": " + std::to_string(a.at(x, y)) + " for " +
                       std::to_string(b.at(x, y));
    return {};
}

/// The first difference between the blur and the sums of all samples.
std::string errorOf(const Plane& source, double sigmaX, double sigmaY, const Box2di& rect)
{
    Plane result(rect);
    std::fill(result.values.begin(), result.values.end(), 5.0F);
    BA_GaussianBlur(sigmaX, sigmaY).run(direct::view(source), direct::view(result));
    return difference(result, summed(source, sigmaX, sigmaY, rect));
}

std::string errorOf(const Plane& source, double sigma)
{
    return errorOf(source, sigma, sigma, direct::grown(source.rect, sigma, sigma));
}

void paint(Plane& plane, const Box2di& box, float value)
{
    const Box2di part = plane.rect.getIntersection(box);
    for (int y = part.y1; y < part.y2; ++y)
        for (int x = part.x1; x < part.x2; ++x)
            plane.at(x, y) = value;
}

Plane flat(const Box2di& rect, float value)
{
    Plane plane(rect);
    paint(plane, rect, value);
    return plane;
}

/// Overlapping boxes and single pixels of a few values.
Plane drawing(const Box2di& rect, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    constexpr float kValues[] = {0.0F, kFull, -0.0F, 12345.0F, 0.1F, -7.3F};
    Plane plane = flat(rect, kValues[below(2)]);
    for (int i = 0; i < 7; ++i) {
        const int x = rect.x1 + below(rect.width());
        const int y = rect.y1 + below(rect.height());
        const bool isPixel = i > 4;
        const int width = isPixel ? 1 : 1 + below(rect.width());
        const int height = isPixel ? 1 : 1 + below(rect.height());
        paint(plane, Box2di(x, y, x + width, y + height), kValues[below(6)]);
    }
    return plane;
}

} // namespace

TEST(LevelAreas, AreBlurredLikeAllOthersInPicturesOfEveryWidth)
{
    for (int width = 1; width <= 200; ++width) {
        const int left = width % 9 - 4;
        const Plane source = drawing(Box2di(left, 3, left + width, 63), static_cast<unsigned>(width));
        for (const double sigma : kSigmas)
            ASSERT_EQ(errorOf(source, sigma), "") << width << " columns, sigma " << sigma;
    }
}

TEST(LevelAreas, MayEndAtAnyColumn)
{
    for (int x = 1; x < kWide; ++x) {
        Plane source = flat(Box2di(0, 0, kWide, 36), 0.0F);
        paint(source, Box2di(x, 0, kWide, 36), kFull);
        ASSERT_EQ(errorOf(source, 2.67), "") << x;
        paint(source, Box2di(0, 0, kWide, 9), 3.0F);
        ASSERT_EQ(errorOf(source, 1.3), "") << x;
    }
}

TEST(LevelAreas, MayEndAtAnyRow)
{
    for (int y = 1; y < 60; ++y) {
        Plane source = flat(Box2di(0, 0, kWide, 60), kFull);
        paint(source, Box2di(0, y, kWide, 60), 0.1F);
        ASSERT_EQ(errorOf(source, 2.67), "") << y;
    }
}

TEST(LevelAreas, MayBeBandsNarrowerThanTheFilter)
{
    for (int height = 1; height < 12; ++height) {
        Plane source = flat(Box2di(0, 0, kWide, 50), kFull);
        for (int y = 0; y < 50; y += 2 * height)
            paint(source, Box2di(0, y, kWide, y + height), 0.0F);
        ASSERT_EQ(errorOf(source, 2.67), "") << height;
    }
}

TEST(LevelAreas, MayHaveAHoleOfOnePixelAnywhere)
{
    for (int x = 0; x < kWide; ++x) {
        Plane source = flat(Box2di(0, 0, kWide, 45), kFull);
        source.at(x, x % 45) = 0.0F;
        ASSERT_EQ(errorOf(source, 2.67), "") << x;
    }
}

TEST(LevelAreas, MayBeOfNegativeZerosInfinitiesOrNoNumbers)
{
    const float infinite = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float value : {-0.0F, infinite, -infinite, nan, std::numeric_limits<float>::denorm_min()})
        for (const float around : {0.0F, -0.0F, kFull}) {
            Plane source = flat(Box2di(0, 0, 300, 100), around);
            paint(source, Box2di(70, 30, 200, 80), value);
            ASSERT_EQ(errorOf(source, 2.67), "") << value << " in " << around;
            Plane pixel = flat(Box2di(0, 0, 300, 100), around);
            pixel.at(77, 50) = value;
            ASSERT_EQ(errorOf(pixel, 2.67), "") << "a pixel of " << value << " in " << around;
        }
}

TEST(LevelAreas, MayTakeManyValues)
{
    // More values than any cache of sums holds.
    Plane source(Box2di(0, 0, 2000, 40));
    for (int area = 0; area < 20; ++area)
        paint(source, Box2di(100 * area, 0, 100 * area + 100, 40), 0.37F * static_cast<float>(area));
    for (const double sigma : kSigmas)
        ASSERT_EQ(errorOf(source, sigma), "") << sigma;
}

TEST(LevelAreas, AreBlurredLikeAllOthersAlongOneAxis)
{
    const Plane source = drawing(Box2di(0, 0, kWide, 70), 5);
    ASSERT_EQ(errorOf(source, 2.67, 0.0, Box2di(-12, -3, 160, 75)), "");
    ASSERT_EQ(errorOf(source, 0.0, 2.67, Box2di(-5, -14, 160, 82)), "");
    ASSERT_EQ(errorOf(source, 0.7, 2.67, Box2di(-5, -14, 160, 82)), "");
}

TEST(LevelAreas, AreBlurredLikeAllOthersInWhicheverRectangle)
{
    const Plane source = drawing(Box2di(0, 0, 400, 80), 8);
    for (int x = 0; x < 70; ++x)
        for (const Box2di part : {Box2di(x, x, x + 1, x + 9), Box2di(x - 90, 20, x + 200, 31), Box2di(x, 5, 500, 7),
                                  Box2di(x - 200, 5, x - 100, 9), Box2di(x + 410, 70, x + 420, 99)})
            ASSERT_EQ(errorOf(source, 2.67, 2.67, part), "") << x;
}

TEST(LevelAreas, AreBlurredLikeAllOthersOnAnyNumberOfThreads)
{
    const tbb::global_control allowed(tbb::global_control::max_allowed_parallelism, 7);
    const Plane source = drawing(Box2di(-7, 5, 600, 400), 3);
    const Box2di rect = direct::grown(source.rect, 2.67, 2.67);
    const Plane expected = summed(source, 2.67, 2.67, rect);
    for (const int threads : {1, 2, 3, 7})
        tbb::task_arena(threads).execute(
            [&] { EXPECT_EQ(difference(direct::blurredFast(source, 2.67, 2.67), expected), "") << threads; });
}

TEST(LevelAreas, AreBlurredLikeAllOthersInALargePlaneHoweverItLiesInMemory)
{
    const Plane source = drawing(Box2di(0, 0, 1050, 1010), 4);
    const Box2di rect(-6, -5, 1055, 1021);
    const Plane expected = summed(source, 1.3, 1.3, rect);
    for (const int stride : {1072, 1075}) {
        std::vector<float> memory(1075 * 1030, 5.0F);
        BA_GaussianBlur(1.3, 1.3).run(direct::view(source), {memory.data() + stride % 16, stride, rect});
        Plane result(rect);
        for (int y = rect.y1; y < rect.y2; ++y)
            std::copy_n(memory.data() + stride % 16 + (y - rect.y1) * stride, rect.width(), &result.at(rect.x1, y));
        EXPECT_EQ(difference(result, expected), "") << stride;
    }
}

TEST(LevelAreas, AreBlurredLikeAllOthersWithEveryInstructionSet)
{
    const std::int64_t supported = VL_supportedTargets() | HWY_SCALAR;
    for (int width = 1; width <= 200; width += 3) {
        const Plane source = drawing(Box2di(0, 0, width, 50), static_cast<unsigned>(1000 + width));
        const Box2di rect = direct::grown(source.rect, 2.67, 2.67);
        const Plane expected = summed(source, 2.67, 2.67, rect);
        for (std::int64_t rest = supported; rest != 0; rest &= rest - 1) {
            const std::int64_t target = rest & -rest;
            const OneInstructionSet only(target);
            ASSERT_EQ(difference(direct::blurredFast(source, 2.67, 2.67), expected), "")
                << hwy::TargetName(target) << ", width " << width;
        }
    }
}
