// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PNG files: 16-bit samples are stored unchanged, floats are rounded, windows are respected, texts are read back.
#include "Limits.h"
#include "Pictures.h"

#include "QuarvelImageIO/IIO_PngFile.h"

#include <QImage>
#include <rapidcheck/gtest.h>

namespace {

using PngFile = FolderTest;
using U16 = std::uint16_t;

std::vector<U16> throughFile(const QString& path, const IIO_Picture& picture, IIO_Compression compression)
{
    const auto written = IIO_writePng(path, picture, {.compression = compression});
    EXPECT_TRUE(written.ok());
    const auto back = IIO_readPng(path);
    EXPECT_TRUE(back.ok());
    return back.ok() ? samplesOf<U16>(*back) : std::vector<U16>();
}

RC_GTEST_FIXTURE_PROP(PngFile, EverySampleComesBackExactly, ())
{
    const auto width = *rc::gen::inRange(1, 40);
    const auto height = *rc::gen::inRange(1, 20);
    const auto channels = *rc::gen::element(IIO_channelsRgba(), IIO_channelsRgb(), IIO_channelsGrey());
    const auto compression = *rc::gen::element(IIO_Compression::NONE, IIO_Compression::FAST, IIO_Compression::SMALL);
    const IIO_Picture picture = randomPicture16(width, height, channels, *rc::gen::arbitrary<unsigned>());
    RC_ASSERT(throughFile(path(QStringLiteral("p.png")), picture, compression) == samplesOf<U16>(picture));
    const auto back = IIO_readPng(path(QStringLiteral("p.png")));
    RC_ASSERT(back->channels() == channels);
    RC_ASSERT(back->width() == width && back->height() == height);
}

TEST_F(PngFile, ColoursUnderNoCoverageSurvive)
{
    const std::vector<U16> samples = {1, 2, 3, 0, 65535, 40000, 12345, 1};
    const auto picture = pictureOfSamples<U16>(2, 1, IIO_channelsRgba(), samples);
    EXPECT_EQ(throughFile(path(QStringLiteral("p.png")), picture, IIO_Compression::FAST), samples);
}

TEST_F(PngFile, HasSixteenBitsAChannelAndNoGamma)
{
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), randomPicture16(3, 3, IIO_channelsRgba(), 1), {}).ok());
    const QByteArray file = bytes(QStringLiteral("p.png"));
    EXPECT_EQ(file[24], 16); // bit depth
    EXPECT_EQ(file[25], 6);  // colour with alpha
    EXPECT_FALSE(file.contains("gAMA"));
    EXPECT_FALSE(file.contains("sRGB"));
    EXPECT_FALSE(file.contains("iCCP"));
}

TEST_F(PngFile, GreyWithCoverageBecomesFourChannels)
{
    const auto picture = pictureOfSamples<U16>(2, 1, IIO_channelsGreyAlpha(), {100, 200, 300, 400});
    EXPECT_EQ(throughFile(path(QStringLiteral("p.png")), picture, IIO_Compression::FAST),
              (std::vector<U16>{100, 100, 100, 200, 300, 300, 300, 400}));
}

TEST_F(PngFile, FloatsAreRoundedAndClamped)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    // 0.25 x 65535 = 16383.75; 0.5 x 65535 = 32767.5, which is rounded up.
    const auto picture = pictureOfSamples<float>(8, 1, IIO_channelsGrey(),
                                                 {0.0F, 1.0F, 0.25F, 0.5F, -0.5F, 2.0F, kNan, 1.0F / 65535.0F});
    EXPECT_EQ(throughFile(path(QStringLiteral("p.png")), picture, IIO_Compression::FAST),
              (std::vector<U16>{0, 65535, 16384, 32768, 0, 65535, 0, 1}));
}

TEST_F(PngFile, HoldsTheDisplayWindow)
{
    // The data window reaches one pixel past the frame on the left and lacks its last column.
    std::vector<U16> values = {10, 11, 12, 20, 21, 22};
    auto next = values.begin();
    const auto picture =
        pictureOf<U16>({5, 5, 8, 7}, {4, 5, 7, 7}, IIO_channelsGrey(), std::function<U16()>([&] { return *next++; }));
    EXPECT_EQ(throughFile(path(QStringLiteral("p.png")), picture, IIO_Compression::FAST),
              (std::vector<U16>{11, 12, 0, 21, 22, 0}));
}

TEST_F(PngFile, KeepsAFrameWithoutAnyData)
{
    const auto picture =
        pictureOf<U16>({0, 0, 2, 1}, {9, 9, 10, 10}, IIO_channelsGrey(), std::function<U16()>([] { return U16{7}; }));
    EXPECT_EQ(throughFile(path(QStringLiteral("p.png")), picture, IIO_Compression::FAST), (std::vector<U16>{0, 0}));
}

TEST_F(PngFile, MetadataComesBack)
{
    IIO_Picture picture = randomPicture16(2, 2, IIO_channelsRgba(), 1);
    picture.metadata().set(QStringLiteral("Author"), QString::fromUtf8("žluťoučký 筆"));
    picture.metadata().set(QStringLiteral("Layout"), QStringLiteral("tangent"));
    picture.metadata().set(QStringLiteral("Long"),
                           QStringLiteral("two  spaces\nand a line, longer than forty letters"));
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {}).ok());
    const auto back = IIO_readPng(path(QStringLiteral("p.png")));
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(back->metadata(), picture.metadata());
}

TEST_F(PngFile, AnUnfitKeyIsRefusedAndNothingWritten)
{
    IIO_Picture picture = randomPicture16(2, 2, IIO_channelsRgba(), 1);
    picture.metadata().set(QString(80, QLatin1Char('k')), QStringLiteral("v"));
    EXPECT_FALSE(IIO_writePng(path(QStringLiteral("p.png")), picture, {}).ok());
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(PngFile, NamedLayersAreRefused)
{
    const QStringList channels{QStringLiteral("N.X"), QStringLiteral("N.Y")};
    const auto written = IIO_writePng(path(QStringLiteral("p.png")), randomPicture16(2, 2, channels, 1), {});
    ASSERT_FALSE(written.ok());
    EXPECT_TRUE(written.error().text.contains(QStringLiteral("N.X N.Y")));
}

TEST_F(PngFile, SmallerSettingsMakeSmallerFiles)
{
    const auto picture = pictureOf<U16>({0, 0, 200, 200}, {0, 0, 200, 200}, IIO_channelsRgba(),
                                        [n = 0]() mutable { return static_cast<U16>(++n / 40 * 37 % 5000); });
    std::vector<qsizetype> sizes;
    for (const auto compression : {IIO_Compression::NONE, IIO_Compression::FAST, IIO_Compression::SMALL}) {
        ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {.compression = compression}).ok());
        sizes.push_back(bytes(QStringLiteral("p.png")).size());
    }
    EXPECT_GT(sizes[0], sizes[1]);
    EXPECT_GT(sizes[1], sizes[2]);
}

TEST_F(PngFile, AFullDiskLeavesTheOldPicture)
{
    write(QStringLiteral("p.png"), "old");
    {
        const FileSizeLimit limit(20000);
        const auto written =
            IIO_writePng(path(QStringLiteral("p.png")), randomPicture16(100, 100, IIO_channelsRgba(), 1), {});
        ASSERT_FALSE(written.ok());
        EXPECT_TRUE(written.error().text.contains(QStringLiteral("File too large")))
            << written.error().text.toStdString();
    }
    EXPECT_EQ(bytes(QStringLiteral("p.png")), "old");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(PngFile, AFileThatIsNoPngIsNamed)
{
    write(QStringLiteral("p.png"), "not a picture");
    const auto picture = IIO_readPng(path(QStringLiteral("p.png")));
    ASSERT_FALSE(picture.ok());
    EXPECT_TRUE(picture.error().text.contains(path(QStringLiteral("p.png"))));
}

} // namespace
