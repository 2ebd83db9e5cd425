// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals as named layers, and the elevation.
#include "QuarvelNormalMap/NM_Layers.h"

#include "Pixmaps.h"

#include <cmath>

namespace {

using U16 = std::uint16_t;

// x = 2 * 0.8 - 1 = 0.6, y = 2 * 0.5 - 1 = 0, z = 0.8; elevation 0.25; half covered.
constexpr PixelFloat kLeansRight{0.8F, 0.5F, 0.25F, 0.5F};
// y = 2 * 0.9 - 1 = 0.8 downwards, z = 0.6.
constexpr PixelFloat kLeansDown{0.5F, 0.9F, 0.75F, 1.0F};

void expectNear(const std::vector<float>& samples, const std::vector<float>& expected)
{
    ASSERT_EQ(samples.size(), expected.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        EXPECT_NEAR(samples[i], expected[i], 1e-6F) << i;
}

TEST(LayersPicture, HoldsSignedVectorsElevationAndCoverage)
{
    const TestPixmap<PixelFloat> node({0, 0, 2, 1}, {kLeansRight, kLeansDown});
    const auto picture = NM_layersPicture(node, {0, 0, 2, 1}, {0, 0, 2, 1}, NM_YAxis::DOWN, true);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->channels(), (QStringList{QStringLiteral("N.X"), QStringLiteral("N.Y"), QStringLiteral("N.Z"),
                                                QStringLiteral("elevation.Y"), QStringLiteral("coverage.A")}));
    expectNear(samplesAt<float>(*picture, 0, 0), {0.6F, 0.0F, 0.8F, 0.25F, 0.5F});
    expectNear(samplesAt<float>(*picture, 1, 0), {0.0F, 0.8F, 0.6F, 0.75F, 1.0F});
}

TEST(LayersPicture, TurnsYUpwards)
{
    const TestPixmap<PixelFloat> node({0, 0, 1, 1}, {kLeansDown});
    const auto picture = NM_layersPicture(node, {0, 0, 1, 1}, {0, 0, 1, 1}, NM_YAxis::UP, false);
    ASSERT_TRUE(picture.ok());
    expectNear(samplesAt<float>(*picture, 0, 0), {0.0F, -0.8F, 0.6F, 1.0F});
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Y")), QStringLiteral("up"));
}

TEST(LayersPicture, FacesTheViewerWhereNothingIs)
{
    const TestPixmap<Pixel16> node({0, 0, 1, 1}, {Pixel16{0, 0, 32767, 0}});
    const auto picture = NM_layersPicture(node, {0, 0, 1, 1}, {0, 0, 2, 1}, NM_YAxis::UP, true);
    ASSERT_TRUE(picture.ok());
    // The blue channel of an uncovered pixel is not an elevation.
    expectNear(samplesAt<float>(*picture, 0, 0), {0.0F, 0.0F, 1.0F, 0.0F, 0.0F});
    expectNear(samplesAt<float>(*picture, 1, 0), {0.0F, 0.0F, 1.0F, 0.0F, 0.0F});
}

TEST(LayersPicture, HasBothWindows)
{
    const TestPixmap<PixelFloat> node({-2, 0, 0, 1}, {kLeansRight, kLeansDown});
    const auto picture = NM_layersPicture(node, {0, 0, 4, 4}, {-2, 0, 4, 4}, NM_YAxis::DOWN, false);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->displayWindow(), Math::Box2di(0, 0, 4, 4));
    EXPECT_EQ(picture->dataWindow(), Math::Box2di(-2, 0, 4, 4));
    expectNear(samplesAt<float>(*picture, -2, 0), {0.6F, 0.0F, 0.8F, 0.5F});
}

TEST(LayersPicture, HasUnitVectorsOnly)
{
    CEL_PixmapAreaRGBA16 node({64, 64}, {0, 0, 64, 64});
    fill(node, {0, 0, 64, 64}, RandomPixel16(7));
    const auto picture = NM_layersPicture(node, {0, 0, 64, 64}, {0, 0, 64, 64}, NM_YAxis::UP, true);
    ASSERT_TRUE(picture.ok());
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const auto samples = samplesAt<float>(*picture, x, y);
            ASSERT_NEAR(std::hypot(samples[0], samples[1], samples[2]), 1.0F, 1e-6F);
        }
}

TEST(LayersPicture, RefusesDepth)
{
    const CEL_PixmapAreaZ depth({4, 4}, {0, 0, 4, 4});
    EXPECT_FALSE(NM_layersPicture(depth, {0, 0, 1, 1}, {0, 0, 1, 1}, NM_YAxis::UP, true).ok());
    EXPECT_FALSE(
        NM_elevationOf(depth, NM_ElevationChannel::RED, {0, 0, 1, 1}, {0, 0, 1, 1}, IIO_SampleType::FLOAT).ok());
}

TEST(ElevationOf, ReadsBlueWithItsCoverage)
{
    const TestPixmap<PixelFloat> node({0, 0, 2, 1}, {kLeansRight, PixelFloat{0.0F, 0.0F, 1.0F, 0.0F}});
    const auto picture =
        NM_elevationOf(node, NM_ElevationChannel::BLUE, {0, 0, 2, 1}, {0, 0, 2, 1}, IIO_SampleType::FLOAT);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->channels(), (QStringList{"Y", "coverage.A"}));
    EXPECT_EQ(allSamples<float>(*picture), (std::vector<float>{0.25F, 0.5F, 0.0F, 0.0F}));
    const auto whole =
        NM_elevationOf(node, NM_ElevationChannel::BLUE, {0, 0, 2, 1}, {0, 0, 2, 1}, IIO_SampleType::UINT16);
    EXPECT_EQ(whole->channels(), IIO_channelsGreyAlpha());
}

TEST(ElevationOf, ReadsRedAlone)
{
    const TestPixmap<Pixel16> node({0, 0, 1, 1}, {Pixel16{16384, 1, 2, 3}});
    const auto picture =
        NM_elevationOf(node, NM_ElevationChannel::RED, {0, 0, 1, 1}, {0, 0, 1, 1}, IIO_SampleType::UINT16);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->channels(), IIO_channelsGrey());
    EXPECT_EQ(allSamples<U16>(*picture), std::vector<U16>{32769});
}

} // namespace
