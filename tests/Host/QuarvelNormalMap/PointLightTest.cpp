// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lights near the picture: their law by hand, by a slow computation in double precision, and on the fast path.
#include "QuarvelNormalMap/NM_Lighting.h"

#include "Pixmaps.h"

#include <tbb/global_control.h>

#include <cmath>

namespace {

using U16 = std::uint16_t;

constexpr NM_LightColour kDark = {0.0F, 0.0F, 0.0F};

double encoded(double linear)
{
    const double amount = std::clamp(linear, 0.0, 1.0);
    return amount <= 0.0031308 ? 12.92 * amount : 1.055 * std::pow(amount, 1.0 / 2.4) - 0.055;
}

// White, facing the viewer everywhere.
NM_Surface whiteSurface(int width, int height)
{
    IIO_Picture drawing =
        std::move(IIO_Picture::create(IIO_SampleType::UINT16, {width, height}, IIO_channelsRgba()).value());
    for (int y = 0; y < height; ++y)
        std::ranges::fill(drawing.row<U16>(y), U16{65535});
    NM_Surface surface = std::move(NM_Surface::create({width, height}).value());
    EXPECT_TRUE(surface.setDrawing(drawing).ok());
    return surface;
}

// White with normals in all directions.
NM_Surface roughSurface(int width, int height)
{
    NM_Surface surface = whiteSurface(width, height);
    CEL_PixmapAreaRGBA16 normals({width, height}, {0, 0, width, height});
    fill(normals, {0, 0, width, height}, RandomPixel16(11));
    EXPECT_TRUE(surface.setNormals(normals, {0, 0, width, height}).ok());
    return surface;
}

NM_LightingSettings pointLight(const NM_LightPlace& place)
{
    NM_LightingSettings settings;
    settings.ambient = kDark;
    settings.lights = {NM_Light{.place = place}};
    return settings;
}

double sampleAt(const NM_Surface& surface, const NM_LightingSettings& settings, int x, int y)
{
    return samplesAt<U16>(*NM_litPicture(surface, settings), x, y)[0] / 65535.0;
}

// A picture of 3 x 3 pixels is 2 units wide, so its pixels' centres are 2/3 apart and the middle one is at the origin.
TEST(PointLight, BelowItAllOfItsLightFalls)
{
    const NM_Surface surface = whiteSurface(3, 3);
    EXPECT_NEAR(sampleAt(surface, pointLight({.x = 0.0, .y = 0.0, .height = 0.5, .reach = 0.1}), 1, 1), 1.0, 1e-4);
}

TEST(PointLight, AtItsReachHalfOfItIsLeftBesideTheCosine)
{
    const NM_Surface surface = whiteSurface(3, 3);
    // 2/3 from its foot and equally high: the cosine is the square root of one half, and the fall-off is one half.
    const auto settings = pointLight({.x = 0.0, .y = 0.0, .height = 2.0 / 3.0, .reach = 2.0 / 3.0});
    const double expected = encoded(0.5 * std::sqrt(0.5));
    EXPECT_NEAR(sampleAt(surface, settings, 2, 1), expected, 1e-4);
    EXPECT_NEAR(sampleAt(surface, settings, 1, 0), expected, 1e-4);
}

TEST(PointLight, AReachThatEqualsTheHeightIsTheInverseSquare)
{
    const NM_Surface surface = whiteSurface(3, 3);
    const double height = 0.4;
    const double away = 2.0 / 3.0;
    const double squareOfDistance = away * away + height * height;
    const double cosine = height / std::sqrt(squareOfDistance);
    const auto settings = pointLight({.x = 0.0, .y = 0.0, .height = height, .reach = height});
    EXPECT_NEAR(sampleAt(surface, settings, 0, 1), encoded(cosine * height * height / squareOfDistance), 1e-4);
}

TEST(PointLight, StandsUpAndRightOfTheCentre)
{
    const NM_Surface surface = whiteSurface(3, 3);
    const auto settings = pointLight({.x = 2.0 / 3.0, .y = 2.0 / 3.0, .height = 0.2, .reach = 0.5});
    const double at = sampleAt(surface, settings, 2, 0);
    EXPECT_NEAR(at, 1.0, 1e-4);
    for (const auto& [x, y] : {std::pair{0, 0}, {1, 1}, {2, 2}, {0, 2}})
        EXPECT_LT(sampleAt(surface, settings, x, y), at) << x << ", " << y;
}

// The unit is half the shorter side, so that the light has the same place in a wide picture as in a square one.
TEST(PointLight, ItsUnitIsHalfTheShorterSide)
{
    const auto settings = pointLight({.x = 2.0 / 3.0, .y = 0.0, .height = 0.3, .reach = 0.5});
    const double square = sampleAt(whiteSurface(3, 3), settings, 1, 1);
    EXPECT_EQ(sampleAt(whiteSurface(9, 3), settings, 4, 1), square);
    EXPECT_EQ(sampleAt(whiteSurface(3, 9), settings, 1, 4), square);
}

// The formula of NM_Lighting.h, in double precision and pixel by pixel.
double slowAmount(const NM_Surface& surface, const NM_LightingSettings& settings, int column, int y)
{
    const auto x = static_cast<std::size_t>(column);
    const NM_Surface::Row row = surface.row(y);
    const double unit = 2.0 / std::min(surface.width(), surface.height());
    const double across = (column + 0.5 - surface.width() / 2.0) * unit;
    const double up = (surface.height() / 2.0 - y - 0.5) * unit;
    const auto cosine = [&](double a, double b, double c) {
        const double length = std::sqrt(a * a + b * b + c * c);
        return (row.normalX[x] * a + row.normalY[x] * b + row.normalZ[x] * c) / length;
    };
    double diffuse = settings.ambient[0];
    double highlight = 0.0;
    for (const NM_Light& light : settings.lights) {
        const double dx = light.place->x - across;
        const double dy = light.place->y - up;
        const double dz = light.place->height;
        const double away = std::sqrt(dx * dx + dy * dy);
        const double fallOff = 1.0 / (1.0 + away * away / (light.place->reach * light.place->reach));
        const double facing = cosine(dx, dy, dz);
        if (facing <= 0.0)
            continue;
        const double length = std::sqrt(dx * dx + dy * dy + dz * dz);
        const double shine = std::max(0.0, cosine(dx / length, dy / length, dz / length + 1.0));
        diffuse += light.colour[0] * fallOff * facing;
        highlight += light.colour[0] * fallOff * settings.highlight * std::pow(shine, double{settings.sharpness});
    }
    return row.red[x] * diffuse + highlight;
}

NM_LightingSettings severalLights()
{
    NM_LightingSettings settings;
    settings.ambient = {0.1F, 0.1F, 0.1F};
    settings.lights = {
        NM_Light{.colour = {0.7F, 0.7F, 0.7F}, .place = NM_LightPlace{-0.4, 0.3, 0.2, 0.7}},
        NM_Light{.colour = {0.4F, 0.4F, 0.4F}, .place = NM_LightPlace{1.2, -0.9, 1.5, 3.0}},
    };
    settings.highlight = 0.4F;
    return settings;
}

TEST(PointLight, IsWhatTheFormulaSays)
{
    const NM_Surface surface = roughSurface(60, 41);
    const NM_LightingSettings settings = severalLights();
    const auto picture = NM_litPicture(surface, settings);
    ASSERT_TRUE(picture.ok());
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            ASSERT_NEAR(samplesAt<U16>(*picture, x, y)[0] / 65535.0, encoded(slowAmount(surface, settings, x, y)), 1e-4)
                << x << ", " << y;
}

TEST(PointLight, BytesForTheScreenAreWithinAStepOfThePicture)
{
    // Wider than the runs that the fast path works in.
    const NM_Surface surface = roughSurface(1100, 5);
    const NM_LightingSettings settings = severalLights();
    const auto picture = NM_litPicture(surface, settings);
    std::vector<std::uint8_t> bytes(1100 * 5 * 4);
    NM_light(surface, settings, NM_ScreenPixels::RGBA, bytes);
    const auto samples = allSamples<U16>(*picture);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        ASSERT_NEAR(bytes[i], samples[i] / 257.0, 1.0) << i;
}

TEST(PointLight, DoesNotDependOnThreads)
{
    const NM_Surface surface = roughSurface(90, 200);
    const NM_LightingSettings settings = severalLights();
    std::vector<std::vector<U16>> pictures;
    std::vector<std::vector<std::uint8_t>> screens;
    for (const std::size_t threads : {1U, 2U, 7U}) {
        const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
        pictures.push_back(allSamples<U16>(*NM_litPicture(surface, settings)));
        std::vector<std::uint8_t>& bytes = screens.emplace_back(90 * 200 * 4);
        NM_light(surface, settings, NM_ScreenPixels::PREMULTIPLIED_ARGB, bytes);
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_EQ(pictures[0], pictures[2]);
    EXPECT_EQ(screens[0], screens[1]);
    EXPECT_EQ(screens[0], screens[2]);
}

} // namespace
