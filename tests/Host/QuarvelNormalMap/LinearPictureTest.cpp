// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Colours for OpenEXR files, with values of the sRGB curve: 128/255 is 0.2158605 of full light.
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_LinearPicture.h"

#include "Pixmaps.h"

namespace {

constexpr float kGrey = 128.0F / 255.0F;
constexpr float kLight = 0.2158605F;

} // namespace

TEST(LinearPicture, IsLightTimesCoverage)
{
    IIO_Picture picture = std::move(IIO_Picture::create(IIO_SampleType::UINT16, {2, 1}, IIO_channelsRgba()).value());
    const std::vector<std::uint16_t> samples{128 * 257, 65535, 0, 32768, 65535, 65535, 65535, 0};
    std::ranges::copy(samples, picture.row<std::uint16_t>(0).begin());
    const auto linear = NM_linearPicture(picture);
    ASSERT_TRUE(linear);
    const std::vector<float> found = allSamples<float>(*linear);
    const float half = 32768.0F / 65535.0F;
    const std::vector<float> expected{kLight * half, half, 0.0F, half, 0.0F, 0.0F, 0.0F, 0.0F};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], 1e-6F) << i;
}

TEST(LayersPicture, HasTheDrawingAsItsDefaultLayer)
{
    const TestPixmap<PixelFloat> node({0, 0, 1, 1}, {PixelFloat{0.8F, 0.5F, 0.25F, 0.5F}});
    // Associated: grey of 128/255, half covered.
    const TestPixmap<PixelFloat> drawing({0, 0, 1, 1}, {PixelFloat{kGrey / 2, 0.5F, 0.0F, 0.5F}});
    const auto picture = NM_layersPicture(node, {0, 0, 1, 1}, {0, 0, 2, 1}, NM_YAxis::UP, true, drawing.get());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->channels(), NM_layerNames(true, true));
    EXPECT_EQ(picture->channels().first(4), IIO_channelsRgba());
    const std::vector<float> found = allSamples<float>(*picture);
    const std::vector<float> expected{kLight / 2, 0.5F, 0.0F, 0.5F, 0.6F, 0.0F, 0.8F, 0.25F, 0.5F,
                                      0.0F,       0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F,  0.0F};
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], 1e-6F) << i;
}
