// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pictures in memory: windows, rows, copies, and impossible sizes.
#include "Pictures.h"

TEST(Picture, RowsAreAddressedByTheDataWindowsCoordinates)
{
    auto picture = IIO_Picture::create(IIO_SampleType::UINT16, {0, 0, 4, 4}, {-1, -2, 2, 3}, IIO_channelsRgba());
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->width(), 3);
    EXPECT_EQ(picture->height(), 5);
    EXPECT_EQ(picture->row<std::uint16_t>(-2).size(), 12U);
    // Rows follow each other without gaps.
    EXPECT_EQ(picture->row<std::uint16_t>(2).data(), picture->row<std::uint16_t>(-2).data() + 4 * 12);
}

TEST(Picture, ACloneHasItsOwnSamplesAndTheSameTexts)
{
    IIO_Picture picture = randomPicture16(5, 3, IIO_channelsRgb(), 1);
    picture.metadata().set(QStringLiteral("k"), QStringLiteral("v"));
    auto copy = picture.clone();
    ASSERT_TRUE(copy.ok());
    EXPECT_EQ(samplesOf<std::uint16_t>(*copy), samplesOf<std::uint16_t>(picture));
    EXPECT_EQ(copy->metadata(), picture.metadata());
    EXPECT_EQ(copy->channels(), picture.channels());
    const std::uint16_t before = picture.row<std::uint16_t>(0)[0];
    copy->row<std::uint16_t>(0)[0] = static_cast<std::uint16_t>(before + 1);
    EXPECT_EQ(picture.row<std::uint16_t>(0)[0], before);
}

TEST(Picture, ASizeWithoutPixelsIsRefused)
{
    EXPECT_FALSE(IIO_Picture::create(IIO_SampleType::FLOAT, {0, 3}, IIO_channelsGrey()).ok());
    EXPECT_FALSE(IIO_Picture::create(IIO_SampleType::FLOAT, {3, -1}, IIO_channelsGrey()).ok());
    EXPECT_FALSE(IIO_Picture::create(IIO_SampleType::FLOAT, {0, 0, 3, 3}, {5, 5, 5, 9}, IIO_channelsGrey()).ok());
}

TEST(Picture, ASizeBeyondMemoryIsRefusedWithItsNumbers)
{
    const auto picture = IIO_Picture::create(IIO_SampleType::FLOAT, {2000000000, 2000000000}, IIO_channelsRgba());
    ASSERT_FALSE(picture.ok());
    EXPECT_TRUE(picture.error().text.contains(QStringLiteral("2000000000 x 2000000000")));
}
