// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals as pictures: both layouts, both sample types, both orientations, windows and metadata.
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include "Pixmaps.h"

#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

using U16 = std::uint16_t;
using Samples = std::vector<U16>;
constexpr std::int16_t kMiddle = 16384;

IIO_Picture picture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame, const NM_PictureSettings& settings)
{
    auto result = NM_toPicture(pixmap, frame, settings);
    EXPECT_TRUE(result.ok());
    return std::move(result.value());
}

// The samples of one pixel, for tests of single values.
template<typename Sample, typename Pixel>
std::vector<Sample> encoded(const Pixel& pixel, NM_PictureSettings settings)
{
    settings.samples = std::is_same_v<Sample, float> ? IIO_SampleType::FLOAT : IIO_SampleType::UINT16;
    const TestPixmap<Pixel> pixmap({3, 4, 4, 5}, {pixel});
    return samplesAt<Sample>(picture(pixmap, {3, 4, 4, 5}, settings), 3, 4);
}

constexpr NM_PictureSettings kUp{.layout = NM_Layout::TANGENT, .yAxis = NM_YAxis::UP};
constexpr NM_PictureSettings kDown{.layout = NM_Layout::TANGENT, .yAxis = NM_YAxis::DOWN};
constexpr NM_PictureSettings kNode{.layout = NM_Layout::NODE};

TEST(TangentPicture, AFlatPixelIsTheUsualBlue)
{
    EXPECT_EQ(encoded<U16>(Pixel16{kMiddle, kMiddle, 1, 32767}, kUp), (Samples{32768, 32768, 65535, 65535}));
    EXPECT_EQ(encoded<U16>(PixelFloat{0.5F, 0.5F, 0.0F, 1.0F}, kDown), (Samples{32768, 32768, 65535, 65535}));
    EXPECT_EQ(encoded<float>(Pixel16{kMiddle, kMiddle, 1, 32767}, kUp), (std::vector<float>{0.5F, 0.5F, 1.0F, 1.0F}));
}

TEST(TangentPicture, GreenIsBrightWhereTheSurfaceFacesTheUpperEdgeWhenYIsUp)
{
    // The node's y points down, so 0 is the direction to the upper edge.
    EXPECT_EQ(encoded<U16>(Pixel16{kMiddle, 0, 1, 32767}, kUp), (Samples{32768, 65535, 32768, 65535}));
    EXPECT_EQ(encoded<U16>(Pixel16{kMiddle, 0, 1, 32767}, kDown), (Samples{32768, 0, 32768, 65535}));
}

TEST(TangentPicture, RedIsBrightWhereTheSurfaceFacesRight)
{
    EXPECT_EQ(encoded<U16>(Pixel16{32767, kMiddle, 1, 32767}, kUp), (Samples{65535, 32768, 32768, 65535}));
    EXPECT_EQ(encoded<U16>(Pixel16{0, kMiddle, 1, 32767}, kUp), (Samples{0, 32768, 32768, 65535}));
}

TEST(TangentPicture, APixelThatLooksAwayHasLittleBlue)
{
    EXPECT_EQ(encoded<U16>(Pixel16{kMiddle, kMiddle, -1, 32767}, kUp), (Samples{32768, 32768, 0, 65535}));
}

TEST(TangentPicture, ASixEightTenTriangleComesOutRight)
{
    // x = 0.6, y = 0 and z = 0.8 in float: 0.8 and 0.9 of full scale.
    const auto samples = encoded<float>(PixelFloat{0.8F, 0.5F, 0.0F, 1.0F}, kUp);
    EXPECT_NEAR(samples[0], 0.8F, 1e-6F);
    EXPECT_NEAR(samples[1], 0.5F, 1e-6F);
    EXPECT_NEAR(samples[2], 0.9F, 1e-6F);
}

TEST(TangentPicture, EmptyAndMissingPixelsFaceTheViewerWithoutCoverage)
{
    const TestPixmap<Pixel16> pixmap({1, 1, 2, 2}, {Pixel16{0, 0, 32767, 0}});
    const IIO_Picture result = picture(pixmap, {0, 0, 3, 3}, kUp);
    const Samples facing{32768, 32768, 65535, 0};
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(samplesAt<U16>(result, x, y), facing) << x << ' ' << y;
}

TEST(TangentPicture, ACoveredPixelWithoutDirectionFacesTheViewerAndKeepsItsCoverage)
{
    EXPECT_EQ(encoded<U16>(Pixel16{0, 0, 5, 16384}, kUp), (Samples{32768, 32768, 65535, 32769}));
}

TEST(TangentPicture, CoverageStaysWithinItsRange)
{
    EXPECT_EQ(encoded<float>(PixelFloat{0.5F, 0.5F, 0.0F, -0.25F}, kUp)[3], 0.0F);
    EXPECT_EQ(encoded<float>(PixelFloat{0.5F, 0.5F, 0.0F, 1.25F}, kUp)[3], 1.0F);
    EXPECT_EQ(encoded<U16>(PixelFloat{0.5F, 0.5F, 0.0F, 1.25F}, kUp)[3], 65535);
    EXPECT_EQ(encoded<U16>(Pixel16{0, 0, 0, -1}, kUp)[3], 0);
}

RC_GTEST_PROP(TangentPicture, EveryVectorReadBackHasUnitLength, (std::int16_t r, std::int16_t g, std::int16_t b))
{
    const auto samples = encoded<U16>(Pixel16{r, g, b, 32767}, kUp);
    double squared = 0.0;
    for (std::size_t c = 0; c < 3; ++c)
        squared += std::pow(samples[c] / 32767.5 - 1.0, 2);
    // Half a step of rounding in each of three components.
    RC_ASSERT(std::abs(std::sqrt(squared) - 1.0) < 3e-5);
}

RC_GTEST_PROP(TangentPicture, TheOrientationsMirrorGreenAndNothingElse,
              (std::int16_t r, std::int16_t g, std::int16_t b))
{
    const auto up = encoded<float>(Pixel16{r, g, b, 32767}, kUp);
    const auto down = encoded<float>(Pixel16{r, g, b, 32767}, kDown);
    RC_ASSERT(std::abs(up[1] + down[1] - 1.0F) < 1e-6F);
    RC_ASSERT(up[0] == down[0]);
    RC_ASSERT(up[2] == down[2]);
    RC_ASSERT(up[3] == down[3]);
}

TEST(NodePicture, EveryChannelValueIsTheNearestAndComesBackByAShift)
{
    for (int value = 0; value <= 32767; ++value) {
        const auto channel = static_cast<std::int16_t>(value);
        const int sample = encoded<U16>(Pixel16{channel, 0, 0, 0}, kNode)[0];
        ASSERT_EQ(sample, std::lround(value * 65535.0 / 32767.0)) << value;
        ASSERT_EQ(sample >> 1, value);
    }
}

TEST(NodePicture, ChannelsStayInTheirOrder)
{
    EXPECT_EQ(encoded<U16>(Pixel16{1, 2, 3, 32767}, kNode), (Samples{2, 4, 6, 65535}));
    EXPECT_EQ(encoded<float>(PixelFloat{-0.5F, 2.0F, 0.25F, 1.0F}, kNode),
              (std::vector<float>{-0.5F, 2.0F, 0.25F, 1.0F}));
}

TEST(NodePicture, NegativeChannelsAreKeptInFloatsOnly)
{
    EXPECT_EQ(encoded<U16>(Pixel16{-1, -32767, 0, 1}, kNode), (Samples{0, 0, 0, 2}));
    EXPECT_EQ(encoded<float>(Pixel16{-32767, -1, 0, 1}, kNode),
              (std::vector<float>{-1.0F, -1.0F / 32767.0F, 0.0F, 1.0F / 32767.0F}));
}

TEST(NodePicture, FloatsAreRoundedAndClampedTo16Bits)
{
    EXPECT_EQ(encoded<U16>(PixelFloat{-0.5F, 2.0F, 0.25F, 1.0F}, kNode), (Samples{0, 65535, 16384, 65535}));
}

TEST(NodePicture, MissingPixelsAreZero)
{
    const TestPixmap<Pixel16> pixmap({1, 1, 2, 2}, {Pixel16{1, 1, 1, 1}});
    const IIO_Picture result = picture(pixmap, {0, 0, 3, 3}, kNode);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(samplesAt<U16>(result, x, y)[0], x == 1 && y == 1 ? 2 : 0) << x << ' ' << y;
}

TEST(NormalPicture, TheFrameCutsThePixmap)
{
    CEL_PixmapAreaRGBA16 pixmap({8, 8}, {0, 0, 8, 8});
    fill(pixmap, {-2, -3, 6, 5}, [n = 0]() mutable { return Pixel16{static_cast<std::int16_t>(n++), 0, 0, 0}; });
    const IIO_Picture result = picture(pixmap, {-1, -1, 3, 9}, kNode);
    EXPECT_EQ(result.displayWindow(), Math::Box2di(-1, -1, 3, 9));
    for (int y = -1; y < 9; ++y)
        for (int x = -1; x < 3; ++x)
            ASSERT_EQ(samplesAt<U16>(result, x, y)[0], y < 5 ? 2 * ((y + 3) * 8 + (x + 2)) : 0) << x << ' ' << y;
}

TEST(NormalPicture, ADataWindowKeepsWhatLiesBeyondTheFrame)
{
    const TestPixmap<Pixel16> pixmap({-1, 0, 0, 1}, {Pixel16{7, 0, 0, 0}});
    NM_PictureSettings settings = kNode;
    settings.dataWindow = Math::Box2di(-1, 0, 2, 1);
    const IIO_Picture result = picture(pixmap, {0, 0, 2, 1}, settings);
    EXPECT_EQ(result.displayWindow(), Math::Box2di(0, 0, 2, 1));
    EXPECT_EQ(result.dataWindow(), Math::Box2di(-1, 0, 2, 1));
    EXPECT_EQ(samplesAt<U16>(result, -1, 0)[0], 14);
}

TEST(NormalPicture, APixmapWithoutPixelsGivesAFrameThatFacesTheViewer)
{
    const CEL_PixmapAreaRGBA16 pixmap({4, 4}, {0, 0, 4, 4});
    const IIO_Picture result = picture(pixmap, {0, 0, 2, 2}, kUp);
    EXPECT_EQ(samplesAt<U16>(result, 1, 1), (Samples{32768, 32768, 65535, 0}));
}

TEST(NormalPicture, RecordsLayoutOrientationAndProgram)
{
    const CEL_PixmapAreaRGBA16 pixmap({4, 4}, {0, 0, 4, 4});
    const auto texts = [&](const NM_PictureSettings& settings) {
        const IIO_Metadata metadata = picture(pixmap, {0, 0, 2, 2}, settings).metadata();
        return QStringList{metadata.value(QStringLiteral("Layout")), metadata.value(QStringLiteral("Y"))};
    };
    EXPECT_EQ(texts(kUp), (QStringList{QStringLiteral("tangent"), QStringLiteral("up")}));
    EXPECT_EQ(texts(kDown), (QStringList{QStringLiteral("tangent"), QStringLiteral("down")}));
    EXPECT_EQ(texts(kNode), (QStringList{QStringLiteral("node"), QStringLiteral("down")}));
    const IIO_Metadata metadata = picture(pixmap, {0, 0, 2, 2}, kUp).metadata();
    EXPECT_TRUE(metadata.value(QStringLiteral("Software")).startsWith(QStringLiteral("Vallorin 0.")));
}

TEST(NormalPicture, DepthPixmapsAreRefused)
{
    const CEL_PixmapAreaZ depth({4, 4}, {0, 0, 4, 4});
    EXPECT_FALSE(NM_toPicture(depth, {0, 0, 2, 2}, kUp).ok());
}

TEST(NormalPicture, AnEmptyFrameIsRefused)
{
    const CEL_PixmapAreaRGBA16 pixmap({4, 4}, {0, 0, 4, 4});
    EXPECT_FALSE(NM_toPicture(pixmap, {2, 2, 2, 5}, kUp).ok());
}

} // namespace
