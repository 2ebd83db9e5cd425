// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings as pictures: colours are divided by their coverage.
#include "QuarvelNormalMap/NM_DrawingPicture.h"

#include "Pixmaps.h"

namespace {

using Samples = std::vector<std::uint16_t>;

TEST(DrawingPicture, ColoursAreDividedByCoverage)
{
    const TestPixmap<Pixel16> drawing({0, 0, 2, 1}, {Pixel16{100, 50, 0, 200}, Pixel16{32767, 0, 32767, 32767}});
    const auto picture = NM_drawingPicture(drawing, {0, 0, 3, 1}, IIO_SampleType::UINT16);
    ASSERT_TRUE(picture.ok());
    // 0.5 x 65535 = 32767.5 is rounded up, 0.25 x 65535 = 16383.75.
    EXPECT_EQ(samplesAt<std::uint16_t>(*picture, 0, 0), (Samples{32768, 16384, 0, 400}));
    EXPECT_EQ(samplesAt<std::uint16_t>(*picture, 1, 0), (Samples{65535, 0, 65535, 65535}));
    EXPECT_EQ(samplesAt<std::uint16_t>(*picture, 2, 0), (Samples{0, 0, 0, 0}));
}

TEST(DrawingPicture, ColoursBeyondTheirCoverageAreFull)
{
    const TestPixmap<PixelFloat> drawing({0, 0, 2, 1},
                                         {PixelFloat{0.5F, 0.25F, -1.0F, 0.25F}, {0.5F, 0.5F, 0.5F, 0.0F}});
    const auto picture = NM_drawingPicture(drawing, {0, 0, 2, 1}, IIO_SampleType::FLOAT);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(samplesAt<float>(*picture, 0, 0), (std::vector<float>{1.0F, 1.0F, 0.0F, 0.25F}));
    EXPECT_EQ(samplesAt<float>(*picture, 1, 0), (std::vector<float>{0.0F, 0.0F, 0.0F, 0.0F}));
}

} // namespace
