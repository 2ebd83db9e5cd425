// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grey masks of drawings that were painted in greys.
#include "QuarvelNormalMap/NM_MaskPicture.h"

#include "Pixmaps.h"

namespace {

using U16 = std::uint16_t;

// The left pixel is half covered with a grey of 0.8: 0.4 times coverage. The right one is uncovered.
const TestPixmap<PixelFloat>& greys()
{
    static const TestPixmap<PixelFloat> pixmap(
        {0, 0, 2, 1}, {PixelFloat{0.4F, 0.4F, 0.4F, 0.5F}, PixelFloat{0.0F, 0.0F, 0.0F, 0.0F}});
    return pixmap;
}

} // namespace

TEST(GreyMask, HoldsStraightGreys)
{
    const auto picture = NM_greyMaskPicture(greys(), {0, 0, 2, 1}, IIO_SampleType::UINT16, false, 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(allSamples<U16>(*picture), (std::vector<U16>{52428, 0}));
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("gloss"));
}

TEST(GreyMask, IsInvertedForRoughness)
{
    const auto picture = NM_greyMaskPicture(greys(), {0, 0, 2, 1}, IIO_SampleType::FLOAT, true, 0);
    ASSERT_TRUE(picture);
    const auto samples = allSamples<float>(*picture);
    EXPECT_NEAR(samples[0], 0.2F, 1e-6F);
    EXPECT_EQ(samples[1], 1.0F);
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("roughness"));
}

TEST(GreyMask, ContinuesBesideTheObject)
{
    const auto picture = NM_greyMaskPicture(greys(), {0, 0, 4, 1}, IIO_SampleType::UINT16, false, 1);
    ASSERT_TRUE(picture);
    EXPECT_EQ(allSamples<U16>(*picture), (std::vector<U16>{52428, 52428, 0, 0}));
}
