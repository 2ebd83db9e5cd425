// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What holds for every blur of a plane, however exact it is.
#include "BlurAlgo/BA_GaussianBlur.h"
#include "Host/BlurAlgo/DirectBlur.h"
#include "OneInstructionSet.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <cstring>
#include <limits>
#include <numeric>
#include <random>

using direct::Plane;
using Math::Box2di;

namespace {

const std::vector<double> kSigmas{0.4, 1.0, 2.9, 3.3, 5.5, 6.0, 9.0, 20.0, 47.0};

Plane noise(const Box2di& rect)
{
    std::mt19937 random(11);
    Plane plane(rect);
    for (float& value : plane.values)
        value = static_cast<float>(random() % 1000) / 999.0F;
    return plane;
}

Plane blurredTo(const Plane& source, double sigmaX, double sigmaY, const Box2di& rect)
{
    Plane result(rect);
    BA_GaussianBlur(sigmaX, sigmaY).run(direct::view(source), direct::view(result));
    return result;
}

/// True when both have the same bits in the same rectangle.
bool sameBits(const Plane& a, const Plane& b)
{
    return a.rect == b.rect && std::memcmp(a.values.data(), b.values.data(), a.values.size() * sizeof(float)) == 0;
}

Plane cropped(const Plane& plane, const Box2di& rect)
{
    Plane result(rect);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            result.at(x, y) = plane.at(x, y);
    return result;
}

} // namespace

TEST(GaussianBlur, LeavesAPictureAsItIsWithoutADeviation)
{
    const Plane source = noise(Box2di(-3, 5, 60, 22));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double sigma : {0.0, 0.04, -2.0, nan, infinite, -infinite})
        EXPECT_TRUE(sameBits(blurredTo(source, sigma, sigma, source.rect), source)) << sigma;
}

TEST(GaussianBlur, LeavesAnAxisAsItIsWithoutADeviationThere)
{
    const Plane source = noise(Box2di(0, 0, 40, 1));
    const Box2di rect(-30, -3, 70, 4);
    const Plane blurred = blurredTo(source, 6.0, 0.0, rect);
    const direct::Exact exact = direct::blurred(source, 6.0, 0.0);
    ASSERT_EQ(exact.rect, Box2di(-24, 0, 64, 1));
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x) {
            const double expected = exact.rect.contains(x, y) ? exact.at(x, y) : 0.0;
            ASSERT_NEAR(blurred.at(x, y), expected, y == 0 ? 1.0 / 16384.0 : 0.0) << x << ", " << y;
        }
    EXPECT_GT(blurred.at(-5, 0), 0.01F);
}

TEST(GaussianBlur, AsksForFourDeviationsToEachSide)
{
    EXPECT_EQ(BA_GaussianBlur::reach(0.0), 0);
    EXPECT_EQ(BA_GaussianBlur::reach(-1.0), 0);
    EXPECT_EQ(BA_GaussianBlur::reach(0.25), 1);
    EXPECT_EQ(BA_GaussianBlur::reach(0.3), 2);
    EXPECT_EQ(BA_GaussianBlur::reach(10.0), 40);
    EXPECT_EQ(BA_GaussianBlur::reach(10.01), 41);
    EXPECT_EQ(BA_GaussianBlur::reach(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(BA_GaussianBlur::reach(1e300), 4000000);
}

TEST(GaussianBlur, KeepsTheSum)
{
    const Plane source = noise(Box2di(-8, -9, 30, 23));
    const double before = std::accumulate(source.values.begin(), source.values.end(), 0.0);
    for (const double sigma : kSigmas) {
        const Plane blurred = blurredTo(source, sigma, sigma, source.rect.getEnlarged(static_cast<int>(9 * sigma) + 9));
        const double after = std::accumulate(blurred.values.begin(), blurred.values.end(), 0.0);
        EXPECT_NEAR(after / before, 1.0, 2e-6) << sigma;
    }
}

TEST(GaussianBlur, KeepsFullScaleExactlyWhereItSeesNothingElse)
{
    Plane source(Box2di(-3, 2, 700, 650));
    for (const float full : {1.0F, 32767.0F}) {
        std::fill(source.values.begin(), source.values.end(), full);
        for (const double sigma : kSigmas) {
            const int margin = static_cast<int>(6 * sigma) + 20;
            const Plane blurred = blurredTo(source, sigma, sigma, source.rect.getEnlarged(-margin));
            for (const float value : blurred.values)
                ASSERT_NEAR(value, full, full == 1.0F ? 0.0F : 0.02F) << sigma;
        }
    }
}

TEST(GaussianBlur, GivesNothingOfNothing)
{
    const Plane zeros(Box2di(0, 0, 50, 40));
    const Plane empty(Box2di(7, 7, 7, 7));
    for (const double sigma : kSigmas)
        for (const Plane* source : {&zeros, &empty}) {
            Plane result(Box2di(-20, -20, 90, 80));
            std::fill(result.values.begin(), result.values.end(), 5.0F);
            BA_GaussianBlur(sigma, sigma).run(direct::view(*source), direct::view(result));
            EXPECT_TRUE(std::all_of(result.values.begin(), result.values.end(), [](float v) { return v == 0.0F; }));
        }
}

TEST(GaussianBlur, WritesNothingWhenNothingIsAskedFor)
{
    const Plane source = noise(Box2di(0, 0, 9, 9));
    Plane result(Box2di(2, 2, 3, 3));
    result.values[0] = 5.0F;
    BA_GaussianBlur(6.0, 6.0).run(direct::view(source), {result.values.data(), 1, Box2di(2, 2, 2, 9)});
    EXPECT_EQ(result.values[0], 5.0F);
}

TEST(GaussianBlur, GivesNothingNegativeOfWhatIsNot)
{
    Plane source(Box2di(0, 0, 70, 60));
    for (std::size_t i = 0; i < source.values.size(); i += 17)
        source.values[i] = 1.0F;
    for (const double sigma : kSigmas) {
        const Plane blurred = direct::blurredFast(source, sigma, sigma);
        EXPECT_GE(*std::min_element(blurred.values.begin(), blurred.values.end()), 0.0F) << sigma;
    }
}

TEST(GaussianBlur, MirrorsWithThePicture)
{
    const Plane source = noise(Box2di(-13, 4, 50, 41));
    Plane mirrored(Box2di(-49, -40, 14, -3));
    for (int y = mirrored.rect.y1; y < mirrored.rect.y2; ++y)
        for (int x = mirrored.rect.x1; x < mirrored.rect.x2; ++x)
            mirrored.at(x, y) = source.at(-x, -y);
    for (const double sigma : kSigmas) {
        const Plane a = direct::blurredFast(source, sigma, sigma);
        Plane b = direct::blurredFast(mirrored, sigma, sigma);
        std::reverse(b.values.begin(), b.values.end());
        EXPECT_EQ(std::memcmp(a.values.data(), b.values.data(), a.values.size() * sizeof(float)), 0) << sigma;
    }
}

TEST(GaussianBlur, DoesNotDependOnTheEmptinessAroundThePicture)
{
    const Plane source = noise(Box2di(3, 8, 57, 31));
    Plane wide(Box2di(-20, -9, 101, 64));
    for (int y = 8; y < 31; ++y)
        for (int x = 3; x < 57; ++x)
            wide.at(x, y) = source.at(x, y);
    for (const double sigma : kSigmas) {
        const Box2di rect(-30, -20, 90, 70);
        EXPECT_TRUE(sameBits(blurredTo(source, sigma, sigma, rect), blurredTo(wide, sigma, sigma, rect))) << sigma;
    }
}

TEST(GaussianBlur, GivesTheSamePixelsInWhicheverRectangle)
{
    const Plane source = noise(Box2di(-5, -6, 66, 45));
    for (const double sigma : kSigmas) {
        const Plane whole = direct::blurredFast(source, sigma, sigma);
        for (const Box2di part : {Box2di(3, 1, 4, 2), Box2di(-6, -7, 20, 31), Box2di(11, -1, 66, 0), source.rect})
            EXPECT_TRUE(sameBits(blurredTo(source, sigma, sigma, part), cropped(whole, part))) << sigma;
    }
}

TEST(GaussianBlur, GivesTheSamePixelsInALargePlaneHoweverItLiesInMemory)
{
    // Results of this size are written past the caches where the rows have the same alignment.
    const Plane source = noise(Box2di(0, 0, 1050, 1010));
    const Box2di rect(-6, -5, 1055, 1021);
    for (const double sigma : {4.0, 9.0})
        for (const int stride : {1072, 1075}) {
            std::vector<float> memory(1075 * 1030, 5.0F);
            const BA_Plane result{memory.data() + stride % 16, stride, rect};
            BA_GaussianBlur(sigma, sigma).run(direct::view(source), result);
            for (const Box2di part :
                 {Box2di(-6, -5, 40, 30), Box2di(501, 490, 560, 533), Box2di(1000, 999, 1055, 1021)}) {
                const Plane expected = blurredTo(source, sigma, sigma, part);
                for (int y = part.y1; y < part.y2; ++y)
                    for (int x = part.x1; x < part.x2; ++x)
                        ASSERT_EQ(result.data[(y - rect.y1) * stride + (x - rect.x1)], expected.at(x, y))
                            << x << ", " << y << ", stride " << stride;
            }
        }
}

TEST(GaussianBlur, GivesTheSameBitsWhetherOrNotTheyAreReadSoon)
{
    class Rows final : public BA_RowSource, public BA_RowSink
    {
    public:
        Rows(Plane& plane, bool isReadSoon) : _plane(plane), _isReadSoon(isReadSoon) {}
        const float* row(int y, float*) const override { return &_plane.at(_plane.rect.x1, y); }
        float* begin(int y, float*) override { return &_plane.at(_plane.rect.x1, y); }
        void end(int, const float*) override {}
        bool isReadSoon() const override { return _isReadSoon; }

    private:
        Plane& _plane;
        bool _isReadSoon;
    };
    // Large enough to be written past the cache.
    Plane source = noise(Box2di(0, 0, 1104, 1000));
    Plane soon(source.rect);
    Plane later(source.rect);
    Rows rows(source, false);
    Rows intoCache(soon, true);
    Rows pastCache(later, false);
    BA_GaussianBlur blur(9.0, 9.0);
    blur.run(rows, source.rect, intoCache, soon.rect);
    blur.run(rows, source.rect, pastCache, later.rect);
    EXPECT_TRUE(sameBits(soon, later));
}

TEST(GaussianBlur, WritesOnlyItsRectangleOfAWiderMemory)
{
    const Plane source = noise(Box2di(0, 0, 30, 30));
    for (int width = 1; width <= 40; ++width) {
        std::vector<float> memory(50 * 12, 9.0F);
        const Box2di rect(2, 3, 2 + width, 13);
        BA_GaussianBlur(6.0, 2.0).run(direct::view(source), {memory.data() + 50, 50, rect});
        for (std::size_t i = 0; i < memory.size(); ++i) {
            const bool inside = i >= 50 && i < 50 * 11 && static_cast<int>(i % 50) < width;
            ASSERT_EQ(memory[i] == 9.0F, !inside) << i;
        }
    }
}

TEST(GaussianBlur, CanBeUsedAgainWithOtherDeviationsAndPictures)
{
    BA_GaussianBlur blur;
    const Plane large = noise(Box2di(0, 0, 300, 200));
    const Plane small = noise(Box2di(-4, -4, 9, 12));
    for (const double sigma : {30.0, 0.0, 3.5, 8.0, 1.0}) {
        blur.setSigmas(sigma, sigma / 2);
        for (const Plane* source : {&large, &small}) {
            Plane result(direct::grown(source->rect, sigma, sigma / 2));
            blur.run(direct::view(*source), direct::view(result));
            EXPECT_TRUE(sameBits(result, direct::blurredFast(*source, sigma, sigma / 2))) << sigma;
        }
    }
}

TEST(GaussianBlur, BlursWithHugeDeviations)
{
    const Plane source = noise(Box2di(0, 0, 64, 64));
    for (const double sigma : {3000.0, 1e6, 1e9}) {
        const Plane blurred = blurredTo(source, sigma, sigma, Box2di(-50, -50, 50, 50));
        // Flat at the sum divided by 2 pi sigma squared.
        const double sum = std::accumulate(source.values.begin(), source.values.end(), 0.0);
        const double used = std::min(sigma, BA_GaussianBlur::kLargestSigma);
        const double expected = sum / (2 * 3.14159265358979 * used * used);
        EXPECT_NEAR(blurred.at(0, 0) / expected, 1.0, 2e-3) << sigma;
        EXPECT_NEAR(blurred.at(-50, 49) / expected, 1.0, 2e-3) << sigma;
    }
}

TEST(GaussianBlur, GivesTheSameBitsForAnyNumberOfThreads)
{
    // Allows more threads than a small machine would use.
    const tbb::global_control allowed(tbb::global_control::max_allowed_parallelism, 7);
    const Plane source = noise(Box2di(-7, 5, 600, 400));
    for (const double sigma : {2.0, 3.3, 17.0}) {
        Plane alone(source.rect);
        tbb::task_arena(1).execute([&] { alone = direct::blurredFast(source, sigma, sigma); });
        for (const int threads : {2, 3, 7})
            tbb::task_arena(threads).execute(
                [&] { EXPECT_TRUE(sameBits(direct::blurredFast(source, sigma, sigma), alone)) << threads; });
    }
}

namespace {

Plane blurredWith(std::int64_t target, const Plane& source, double sigma)
{
    const OneInstructionSet only(target);
    return direct::blurredFast(source, sigma, sigma / 2);
}

} // namespace

TEST(GaussianBlur, GivesTheSameBitsWithEveryInstructionSet)
{
    const std::int64_t supported = VL_supportedTargets();
    for (int width = 1; width <= 70; ++width) {
        const Plane source = noise(Box2di(width % 7, 0, width % 7 + width, 9));
        for (const double sigma : {0.8, 2.9, 3.3, 6.0, 15.0}) {
            // One sample at a time, without vectors.
            const Plane plain = blurredWith(HWY_SCALAR, source, sigma);
            for (std::int64_t rest = supported; rest != 0; rest &= rest - 1) {
                const std::int64_t target = rest & -rest;
                ASSERT_TRUE(sameBits(blurredWith(target, source, sigma), plain))
                    << hwy::TargetName(target) << ", width " << width << ", sigma " << sigma;
            }
        }
    }
}
