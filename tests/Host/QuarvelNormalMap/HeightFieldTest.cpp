// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Heights: the elevation times what an object rises, and the codes of pictures of integers.
#include "QuarvelNormalMap/NM_HeightField.h"

#include "Pixmaps.h"

namespace {

using U16 = std::uint16_t;

IIO_Picture heights(const std::vector<float>& values)
{
    IIO_Picture picture = std::move(
        IIO_Picture::create(IIO_SampleType::FLOAT, {static_cast<int>(values.size()), 1}, IIO_channelsGrey()).value());
    std::ranges::copy(values, picture.row<float>(0).begin());
    return picture;
}

} // namespace

TEST(HeightField, IsTheElevationTimesTheRise)
{
    // The second pixel is uncovered, the fourth lies outside the pixmap.
    const TestPixmap<PixelFloat> node(
        {0, 0, 3, 1},
        {PixelFloat{0.5F, 0.5F, 0.25F, 1.0F}, PixelFloat{0.5F, 0.5F, 0.75F, 0.0F}, PixelFloat{0.5F, 0.5F, 1.0F, 0.5F}});
    const auto rises = [](int, std::span<float> row) {
        std::ranges::copy(std::vector{40.0F, 40.0F, -8.0F, 40.0F}, row.begin());
    };
    const auto field = NM_HeightField::create(node, NM_ElevationChannel::BLUE, {0, 0, 4, 1}, rises);
    ASSERT_TRUE(field);
    const auto row = field->row(0);
    EXPECT_EQ(std::vector<float>(row.begin(), row.end()), (std::vector{10.0F, 0.0F, -8.0F, 0.0F}));
}

TEST(HeightField, ReadsElevationsWithoutNormalsFromRed)
{
    const TestPixmap<Pixel16> node({0, 0, 1, 1}, {Pixel16{32767, 0, 0, 0}});
    const auto rises = [](int y, std::span<float> row) { std::ranges::fill(row, y == 0 ? 12.0F : 0.0F); };
    const auto field = NM_HeightField::create(node, NM_ElevationChannel::RED, {0, 0, 1, 1}, rises);
    ASSERT_TRUE(field);
    EXPECT_EQ(field->row(0)[0], 12.0F);
}

TEST(HeightRange, HoldsAllHeightsAndThePlane)
{
    EXPECT_EQ(NM_rangeOf(heights({2.0F, 5.0F})), (NM_HeightRange{0.0, 5.0}));
    EXPECT_EQ(NM_rangeOf(heights({-2.0F, -1.0F})), (NM_HeightRange{-2.0, 0.0}));
    EXPECT_EQ(NM_rangeOf(heights({0.0F})), (NM_HeightRange{0.0, 0.0}));
}

TEST(CodedHeights, GoFromBlackToWhiteAndSaySo)
{
    // 5 of 20 pixels is a quarter: 16383.75, rounded to 16384. What is higher than white is clamped.
    const auto coded = NM_codedHeights(heights({-1.0F, 0.0F, 5.0F, 20.0F, 30.0F}), {0.0, 20.0});
    ASSERT_TRUE(coded);
    EXPECT_EQ(allSamples<U16>(*coded), (std::vector<U16>{0, 0, 16384, 65535, 65535}));
    EXPECT_EQ(coded->metadata().value(QStringLiteral("Heights")),
              QStringLiteral("black = 0 pixels, white = 20 pixels"));
}

TEST(CodedHeights, OfAFlatPictureAreBlack)
{
    const auto coded = NM_codedHeights(heights({0.0F, 0.0F}), {0.0, 0.0});
    ASSERT_TRUE(coded);
    EXPECT_EQ(allSamples<U16>(*coded), (std::vector<U16>{0, 0}));
}
