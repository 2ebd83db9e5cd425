// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Light on surfaces: directions, the laws of the model, and the same bytes for any number of threads.
#include "QuarvelNormalMap/NM_Lighting.h"

#include "Pixmaps.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include <tbb/global_control.h>

#include <cmath>
#include <cstring>

namespace {

using U16 = std::uint16_t;
constexpr std::int16_t kMiddle = 16384;

// Directions of 45 degrees: 0.7071 is stored as 1.7071 x 0.5 x 32767 = 27968, and -0.7071 as 4799.
constexpr Pixel16 kFlat{kMiddle, kMiddle, 1, 32767};
constexpr Pixel16 kLeft{4799, kMiddle, 1, 32767};
constexpr Pixel16 kRight{27968, kMiddle, 1, 32767};
constexpr Pixel16 kUp{kMiddle, 4799, 1, 32767};
constexpr Pixel16 kDown{kMiddle, 27968, 1, 32767};

IIO_Picture uniformDrawing(int width, int height, const std::vector<U16>& colour)
{
    IIO_Picture drawing =
        std::move(IIO_Picture::create(IIO_SampleType::UINT16, {width, height}, IIO_channelsRgba()).value());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            std::ranges::copy(colour, drawing.row<U16>(y).begin() + 4 * x);
    return drawing;
}

// A row with the given normals and one colour.
NM_Surface surfaceOf(const std::vector<Pixel16>& normals, const std::vector<U16>& colour)
{
    const int width = static_cast<int>(normals.size());
    NM_Surface surface = std::move(NM_Surface::create({width, 1}).value());
    EXPECT_TRUE(surface.setDrawing(uniformDrawing(width, 1, colour)).ok());
    EXPECT_TRUE(surface.setNormals(TestPixmap<Pixel16>({0, 0, width, 1}, normals), {0, 0, width, 1}).ok());
    return surface;
}

std::vector<int> brightness(const NM_Surface& surface, const NM_LightingSettings& settings)
{
    const auto picture = NM_litPicture(surface, settings);
    std::vector<int> result;
    for (int x = 0; x < surface.width(); ++x)
        result.push_back(samplesAt<U16>(*picture, x, 0)[0]);
    return result;
}

const std::vector<U16> kGrey = {30000, 30000, 30000, 65535};

TEST(Lighting, AFlatSurfaceKeepsItsColourByDefault)
{
    const NM_Surface surface = surfaceOf({kFlat}, {60000, 30000, 1000, 12345});
    const auto lit = NM_litPicture(surface, {});
    ASSERT_TRUE(lit.ok());
    const auto samples = samplesAt<U16>(*lit, 0, 0);
    EXPECT_NEAR(samples[0], 60000, 2);
    EXPECT_NEAR(samples[1], 30000, 2);
    EXPECT_NEAR(samples[2], 1000, 2);
    EXPECT_EQ(samples[3], 12345);
}

TEST(Lighting, TheDefaultLightComesFromTheUpperLeft)
{
    const auto b = brightness(surfaceOf({kFlat, kLeft, kRight, kUp, kDown}, kGrey), {});
    EXPECT_GT(b[1], b[0]);
    EXPECT_LT(b[2], b[0]);
    EXPECT_NEAR(b[1], b[3], 3);
    EXPECT_NEAR(b[2], b[4], 3);
}

TEST(Lighting, TheAzimuthTurnsCounterclockwiseFromTheRight)
{
    const NM_Surface surface = surfaceOf({kRight, kUp, kLeft, kDown}, kGrey);
    for (int quarter = 0; quarter < 4; ++quarter) {
        NM_LightingSettings settings;
        settings.lights = {NM_Light{.azimuth = 90.0 * quarter}};
        const auto b = brightness(surface, settings);
        EXPECT_EQ(std::max_element(b.begin(), b.end()) - b.begin(), quarter);
    }
}

TEST(Lighting, ALambertSurfaceFollowsTheCosineInLinearLight)
{
    // A light at 30 degrees on a white flat surface: half of the light, which sRGB encodes as 0.7354.
    NM_LightingSettings settings;
    settings.ambient = {0.0F, 0.0F, 0.0F};
    settings.lights = {NM_Light{.azimuth = 10.0, .height = 30.0}};
    EXPECT_NEAR(brightness(surfaceOf({kFlat}, {65535, 65535, 65535, 65535}), settings)[0], 0.735357 * 65535, 3);
}

TEST(Lighting, LightsAddUpAndHaveColours)
{
    NM_LightingSettings settings;
    settings.ambient = {0.0F, 0.0F, 0.0F};
    settings.lights = {NM_Light{.height = 90.0, .colour = {0.25F, 0.0F, 1.0F}},
                       NM_Light{.height = 90.0, .colour = {0.25F, 0.0F, 0.0F}}};
    const auto lit = NM_litPicture(surfaceOf({kFlat}, {65535, 65535, 65535, 65535}), settings);
    EXPECT_NEAR(samplesAt<U16>(*lit, 0, 0)[0], 0.735357 * 65535, 3);
    EXPECT_EQ(samplesAt<U16>(*lit, 0, 0)[1], 0);
    EXPECT_EQ(samplesAt<U16>(*lit, 0, 0)[2], 65535);
}

TEST(Lighting, WhatLooksAwayHasAmbientLightOnly)
{
    NM_LightingSettings settings;
    settings.lights = {NM_Light{.azimuth = 0.0, .height = 10.0}};
    NM_LightingSettings dark = settings;
    dark.lights.clear();
    const NM_Surface surface = surfaceOf({kLeft}, kGrey);
    EXPECT_EQ(brightness(surface, settings), brightness(surface, dark));
}

TEST(Lighting, TheHighlightLiesHalfwayBetweenLightAndViewer)
{
    // The light stands at 0 degrees to the right, so a surface that leans right by 45 degrees reflects it to the
    // viewer.
    NM_LightingSettings settings;
    settings.ambient = {0.0F, 0.0F, 0.0F};
    settings.lights = {NM_Light{.azimuth = 0.0, .height = 0.1}};
    settings.highlight = 0.5F;
    settings.sharpness = 50.0F;
    const auto b = brightness(surfaceOf({kRight, kFlat, kLeft}, {0, 0, 0, 65535}), settings);
    // Half of the light, as above.
    EXPECT_NEAR(b[0], 0.735357 * 65535, 30);
    EXPECT_LT(b[1], 100);
    EXPECT_EQ(b[2], 0);
}

TEST(Lighting, WhatLooksAwayFromTheLightHasNoHighlight)
{
    // The light stands behind the picture, while the direction halfway to the viewer still lies in front of it.
    NM_LightingSettings settings;
    settings.ambient = {0.0F, 0.0F, 0.0F};
    settings.lights = {NM_Light{.azimuth = 0.0, .height = -30.0}};
    settings.highlight = 1.0F;
    settings.sharpness = 1.0F;
    EXPECT_EQ(brightness(surfaceOf({kFlat}, {0, 0, 0, 65535}), settings)[0], 0);
    settings.lights[0].height = 30.0;
    EXPECT_GT(brightness(surfaceOf({kFlat}, {0, 0, 0, 65535}), settings)[0], 40000);
}

TEST(Lighting, BytesAreWithinAStepOfThePicturesSamples)
{
    NM_Surface surface = std::move(NM_Surface::create({40, 30}).value());
    CEL_PixmapAreaRGBA16 normals({40, 30}, {0, 0, 40, 30});
    fill(normals, {0, 0, 40, 30}, RandomPixel16(5));
    ASSERT_TRUE(surface.setDrawing(uniformDrawing(40, 30, {50000, 30000, 10000, 40000})).ok());
    ASSERT_TRUE(surface.setNormals(normals, {0, 0, 40, 30}).ok());
    const auto picture = NM_litPicture(surface, {});
    std::vector<std::uint8_t> bytes(40 * 30 * 4);
    NM_light(surface, {}, NM_ScreenPixels::RGBA, bytes);
    const auto samples = allSamples<U16>(*picture);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        ASSERT_NEAR(bytes[i], samples[i] / 257.0, 1.0) << i;
}

// Coverage from none to full, with a gap that is longer than the runs that are skipped as a whole.
TEST(Lighting, PremultipliedBytesAreTheStraightOnesTimesTheCoverage)
{
    constexpr int kWidth = 500;
    const auto coverageAt = [](int x) { return x < 256 ? x * 257 : 0; };
    IIO_Picture drawing = uniformDrawing(kWidth, 1, {60000, 30000, 500, 0});
    for (int x = 0; x < kWidth; ++x)
        drawing.row<U16>(0)[static_cast<std::size_t>(x) * 4 + 3] = static_cast<U16>(coverageAt(x));
    NM_Surface surface = std::move(NM_Surface::create({kWidth, 1}).value());
    ASSERT_TRUE(surface.setDrawing(drawing).ok());
    std::vector<std::uint8_t> straight(std::size_t{4} * kWidth);
    std::vector<std::uint8_t> screen(straight.size());
    NM_light(surface, {}, NM_ScreenPixels::RGBA, straight);
    NM_light(surface, {}, NM_ScreenPixels::PREMULTIPLIED_ARGB, screen);
    for (int x = 0; x < kWidth; ++x) {
        const auto at = static_cast<std::size_t>(x) * 4;
        const int alpha = coverageAt(x) / 257;
        const auto times = [&](std::size_t channel) {
            return static_cast<std::uint32_t>(std::lround(straight[at + channel] * alpha / 255.0));
        };
        std::uint32_t word = 0;
        std::memcpy(&word, &screen[at], sizeof(word));
        ASSERT_EQ(word, static_cast<std::uint32_t>(alpha) << 24 | times(0) << 16 | times(1) << 8 | times(2)) << x;
    }
}

TEST(Lighting, DoesNotDependOnThreads)
{
    NM_Surface surface = std::move(NM_Surface::create({50, 200}).value());
    CEL_PixmapAreaRGBA16 normals({50, 200}, {0, 0, 50, 200});
    fill(normals, {3, 5, 45, 190}, RandomPixel16(9));
    ASSERT_TRUE(surface.setDrawing(uniformDrawing(50, 200, {50000, 30000, 10000, 65535})).ok());
    ASSERT_TRUE(surface.setNormals(normals, {0, 0, 50, 200}).ok());
    NM_LightingSettings settings;
    settings.highlight = 0.3F;
    std::vector<std::vector<U16>> results;
    for (const std::size_t threads : {1U, 2U, 7U}) {
        const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
        results.push_back(allSamples<U16>(*NM_litPicture(surface, settings)));
    }
    EXPECT_EQ(results[0], results[1]);
    EXPECT_EQ(results[0], results[2]);
}

TEST(Surface, ANormalMapReadFromAFileGivesTheSameLight)
{
    CEL_PixmapAreaRGBA16 normals({16, 16}, {0, 0, 16, 16});
    fill(normals, {0, 0, 16, 16}, RandomPixel16(4));
    NM_Surface direct = std::move(NM_Surface::create({16, 16}).value());
    ASSERT_TRUE(direct.setNormals(normals, {0, 0, 16, 16}).ok());
    for (const NM_YAxis yAxis : {NM_YAxis::UP, NM_YAxis::DOWN})
        for (const IIO_SampleType samples : {IIO_SampleType::UINT16, IIO_SampleType::FLOAT}) {
            const auto map = NM_toPicture(normals, {0, 0, 16, 16}, {.yAxis = yAxis, .samples = samples});
            NM_Surface read = std::move(NM_Surface::create({16, 16}).value());
            ASSERT_TRUE(read.setNormals(*map, yAxis).ok());
            for (int y = 0; y < 16; ++y)
                for (std::size_t x = 0; x < 16; ++x) {
                    ASSERT_NEAR(read.row(y).normalX[x], direct.row(y).normalX[x], 3e-5F);
                    ASSERT_NEAR(read.row(y).normalY[x], direct.row(y).normalY[x], 3e-5F);
                    ASSERT_NEAR(read.row(y).normalZ[x], direct.row(y).normalZ[x], 3e-5F);
                }
        }
}

TEST(Surface, PicturesOfAnotherSizeOrKindAreRefused)
{
    NM_Surface surface = std::move(NM_Surface::create({4, 4}).value());
    EXPECT_FALSE(surface.setDrawing(uniformDrawing(4, 5, kGrey)).ok());
    EXPECT_FALSE(surface.setNormals(uniformDrawing(3, 4, kGrey), NM_YAxis::UP).ok());
    EXPECT_FALSE(surface.setNormals(TestPixmap<Pixel16>({0, 0, 1, 1}, {kFlat}), {0, 0, 4, 5}).ok());
    EXPECT_FALSE(surface.setNormals(CEL_PixmapAreaZ({4, 4}, {0, 0, 4, 4}), {0, 0, 4, 4}).ok());
    const auto grey = IIO_Picture::create(IIO_SampleType::UINT16, {4, 4}, IIO_channelsGrey());
    EXPECT_FALSE(surface.setDrawing(*grey).ok());
    EXPECT_FALSE(NM_Surface::create({0, 4}).ok());
    EXPECT_FALSE(NM_Surface::create({2000000000, 2000000000}).ok());
}

TEST(Surface, AFreshOneFacesTheViewer)
{
    const NM_Surface surface = std::move(NM_Surface::create({2, 2}).value());
    EXPECT_EQ(surface.row(1).normalZ[1], 1.0F);
    EXPECT_EQ(surface.row(1).normalX[1], 0.0F);
    EXPECT_EQ(surface.row(1).coverage[1], 0.0F);
}

} // namespace
