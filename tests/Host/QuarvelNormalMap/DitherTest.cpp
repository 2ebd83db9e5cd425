// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Float normals as 16-bit tangents: dithered on slopes, exact where they are flat, the same with every instruction set.
#include "QuarvelNormalMap/NM_Dither.h"

#include "OneInstructionSet.h"
#include "Pixmaps.h"

#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include <cmath>
#include <limits>
#include <random>
#include <set>

namespace {

using U16 = std::uint16_t;
using Samples = std::vector<U16>;

// The formula in single precision, operation by operation.
U16 plainComponent(float component, float threshold)
{
    const float clamped = std::min(std::max(component * 0.5F + 0.5F, 0.0F), 1.0F);
    return static_cast<U16>(clamped * 65535.0F + threshold);
}

Samples plainly(const PixelFloat& pixel, float threshold, float ySign)
{
    const U16 coverage =
        pixel.a > 0.0F ? static_cast<U16>(std::min(pixel.a, 1.0F) * 65535.0F + 0.5F) : static_cast<U16>(0);
    const float x = 2.0F * pixel.r - 1.0F;
    const float y = 2.0F * pixel.g - 1.0F;
    const float flat = x * x + y * y;
    const float upright = std::sqrt(std::max(0.0F, 1.0F - flat));
    const float z = pixel.b < 0.0F ? -upright : upright;
    const float length = std::sqrt(flat + z * z);
    constexpr float kFaces = 1.0F / 65536.0F;
    const bool isMarked = pixel.r == 0.0F && pixel.g == 0.0F;
    const bool isLevel = std::abs(x / length) < kFaces && std::abs(y / length) < kFaces && z / length > 0.0F;
    if (isMarked || !(flat <= 1.001F) || isLevel)
        return {32768, 32768, 65535, coverage};
    return {plainComponent(x / length, threshold), plainComponent(ySign * (y / length), threshold),
            plainComponent(z / length, threshold), coverage};
}

PixelFloat pixelOf(double x, double y)
{
    return {static_cast<float>(0.5 * x + 0.5), static_cast<float>(0.5 * y + 0.5), 0.5F, 1.0F};
}

// The samples of a picture filled with one normal.
Samples uniform(double x, double y, int side)
{
    const Math::Box2di rect(0, 0, side, side);
    const std::vector<PixelFloat> pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side),
                                         pixelOf(x, y));
    const TestPixmap<PixelFloat> pixmap(rect, pixels);
    return allSamples<U16>(*NM_toPicture(pixmap, rect, {.yAxis = NM_YAxis::DOWN}));
}

TEST(Dither, HasEachOf64ThresholdsOnceWithAMeanOfOneHalf)
{
    std::set<float> thresholds;
    float sum = 0.0F;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            thresholds.insert(NM_ditherAt(x, y));
            sum += NM_ditherAt(x, y);
        }
    EXPECT_EQ(thresholds.size(), 64U);
    EXPECT_EQ(sum, 32.0F);
    EXPECT_EQ(*thresholds.begin(), 1.0F / 128.0F);
    EXPECT_EQ(*thresholds.rbegin(), 127.0F / 128.0F);
}

TEST(Dither, GoesOnWhereTheTableEnds)
{
    for (int i = -20; i < 20; ++i) {
        EXPECT_EQ(NM_ditherAt(i, 3), NM_ditherAt(i + 8, 3));
        EXPECT_EQ(NM_ditherAt(3, i), NM_ditherAt(3, i + 8));
    }
    EXPECT_EQ(NM_ditherAt(0, 0), 0.5F / 64.0F);
    EXPECT_EQ(NM_ditherAt(1, 0), 32.5F / 64.0F);
    EXPECT_EQ(NM_ditherAt(0, 1), 48.5F / 64.0F);
}

TEST(DitheredTangents, AreTheValueOnAverage)
{
    for (const double x : {-0.83, -0.2, 0.0001, 0.3, 0.71}) {
        const Samples samples = uniform(x, 0.1, 16);
        const double value = (0.5 * x + 0.5) * 65535.0;
        double sum = 0.0;
        for (std::size_t i = 0; i < samples.size(); i += 4) {
            ASSERT_LT(std::abs(samples[i] - value), 1.01);
            sum += samples[i];
        }
        EXPECT_NEAR(sum / 256.0, value, 1.0 / 64.0) << x;
    }
}

TEST(DitheredTangents, AreExactWhereTheyFaceTheViewer)
{
    // Rounding may leave a small remainder.
    for (const double x : {0.0, 1e-6, -1e-6}) {
        const Samples samples = uniform(x, -x, 16);
        for (std::size_t i = 0; i < samples.size(); i += 4)
            ASSERT_EQ(Samples(samples.begin() + static_cast<std::ptrdiff_t>(i),
                              samples.begin() + static_cast<std::ptrdiff_t>(i) + 4),
                      (Samples{32768, 32768, 65535, 65535}));
    }
}

TEST(DitheredTangents, AreThoseOfThePlainFormulaWithEveryInstructionSet)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    withEachInstructionSet([] {
        std::minstd_rand random(5);
        std::uniform_real_distribution<float> any(-0.2F, 1.2F);
        for (int width = 1; width <= 70; ++width) {
            std::vector<PixelFloat> pixels;
            for (int i = 0; i < width; ++i)
                switch (random() % 6) {
                case 0:
                    pixels.push_back({0.0F, 0.0F, any(random), any(random)});
                    break;
                case 1:
                    pixels.push_back({0.5F, 0.5F, any(random), 1.0F});
                    break;
                case 2:
                    pixels.push_back({kNan, any(random), kNan, kNan});
                    break;
                default:
                    pixels.push_back({any(random), any(random), any(random) - 0.3F, any(random)});
                }
            const Math::Box2di rect(-3, 5, width - 3, 6);
            const TestPixmap<PixelFloat> pixmap(rect, pixels);
            for (const NM_YAxis yAxis : {NM_YAxis::UP, NM_YAxis::DOWN}) {
                const auto picture = NM_toPicture(pixmap, rect, {.yAxis = yAxis});
                const auto row = picture->row<U16>(5);
                for (std::size_t i = 0; i < pixels.size(); ++i) {
                    const auto samples = row.subspan(4 * i, 4);
                    ASSERT_EQ(Samples(samples.begin(), samples.end()),
                              plainly(pixels[i], NM_ditherAt(static_cast<int>(i) - 3, 5),
                                      yAxis == NM_YAxis::UP ? -1.0F : 1.0F))
                        << i << " of " << width;
                }
            }
        }
    });
}

TEST(DitheredElevation, IsExactWhereTheSurfaceFacesTheViewerAndWholeValuesStay)
{
    const Math::Box2di rect(0, 0, 8, 8);
    const auto heights = [&](const PixelFloat& pixel) {
        const TestPixmap<PixelFloat> pixmap(rect, std::vector<PixelFloat>(64, pixel));
        const auto picture = NM_elevationOf(pixmap, NM_ElevationChannel::BLUE, rect, rect, IIO_SampleType::UINT16);
        std::set<U16> found;
        for (const Samples all = allSamples<U16>(*picture); const std::size_t i : {0U, 2U, 20U, 50U, 126U})
            found.insert(all[i]);
        return found;
    };
    EXPECT_EQ(heights({0.5F, 0.5F, 0.4000001F, 1.0F}), (std::set<U16>{26214}));
    EXPECT_EQ(heights({0.6F, 0.5F, 1.0F, 1.0F}), (std::set<U16>{65535}));
    EXPECT_EQ(heights({0.6F, 0.5F, 0.0F, 1.0F}), (std::set<U16>{0}));
    EXPECT_EQ(heights({0.6F, 0.5F, 0.400005F, 1.0F}), (std::set<U16>{26214, 26215}));
    EXPECT_EQ(heights({0.6F, 0.5F, 0.4F, 0.0F}), (std::set<U16>{0})) << "nothing is covered";
}

} // namespace
