// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grey masks of drawings that were painted in values.
#include "QuarvelNormalMap/NM_MaskPicture.h"

#include "Pixmaps.h"

namespace {

using U16 = std::uint16_t;

// The left pixel is half covered with a value of 0.8: 0.4 times coverage. The right one is uncovered.
const TestPixmap<PixelFloat>& values()
{
    static const TestPixmap<PixelFloat> pixmap(
        {0, 0, 2, 1}, {PixelFloat{0.4F, 0.0F, 0.0F, 0.5F}, PixelFloat{0.0F, 0.0F, 0.0F, 0.0F}});
    return pixmap;
}

} // namespace

TEST(PaintedMask, HoldsStraightValues)
{
    const auto picture = NM_paintedMaskPicture(values(), {0, 0, 2, 1}, IIO_SampleType::UINT16, false, 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(allSamples<U16>(*picture), (std::vector<U16>{52428, 0}));
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("gloss"));
}

TEST(PaintedMask, HoldsWhatEightBitsLack)
{
    // 76 steps and 127.5 parts of one: 0.3, of which half is covered.
    const TestPixmap<PixelFloat> pixmap({0, 0, 1, 1}, {PixelFloat{38.0F / 255.0F, 63.75F / 255.0F, 0.0F, 0.5F}});
    const auto picture = NM_paintedMaskPicture(pixmap, {0, 0, 1, 1}, IIO_SampleType::FLOAT, false, 0);
    ASSERT_TRUE(picture);
    EXPECT_NEAR(allSamples<float>(*picture)[0], 0.3F, 1e-6F);
}

TEST(PaintedMask, IsInvertedForRoughness)
{
    const auto picture = NM_paintedMaskPicture(values(), {0, 0, 2, 1}, IIO_SampleType::FLOAT, true, 0);
    ASSERT_TRUE(picture);
    const auto samples = allSamples<float>(*picture);
    EXPECT_NEAR(samples[0], 0.2F, 1e-6F);
    EXPECT_EQ(samples[1], 1.0F);
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("roughness"));
}

TEST(PaintedMask, ContinuesBesideTheObject)
{
    const auto picture = NM_paintedMaskPicture(values(), {0, 0, 4, 1}, IIO_SampleType::UINT16, false, 1);
    ASSERT_TRUE(picture);
    EXPECT_EQ(allSamples<U16>(*picture), (std::vector<U16>{52428, 52428, 0, 0}));
}
