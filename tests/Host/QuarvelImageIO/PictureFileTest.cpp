// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of the format by the suffix, and the 8-bit formats.
#include "Pictures.h"

#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QFileInfo>
#include <QImage>

namespace {

using PictureFile = FolderTest;
using U16 = std::uint16_t;

TEST_F(PictureFile, TheSuffixChoosesTheFormatInAnyCase)
{
    const IIO_Picture picture = randomPicture16(4, 4, IIO_channelsRgba(), 1);
    const QList<std::pair<QString, QByteArray>> starts = {{QStringLiteral("a.PNG"), "\x89PNG"},
                                                          {QStringLiteral("b.exr"), "\x76\x2f\x31\x01"},
                                                          {QStringLiteral("c.v2.jpg"), "\xff\xd8\xff"},
                                                          {QStringLiteral("d.Jpeg"), "\xff\xd8\xff"},
                                                          {QStringLiteral("e.bmp"), "BM"}};
    for (const auto& [name, start] : starts) {
        ASSERT_TRUE(IIO_write(path(name), picture).ok()) << name.toStdString();
        EXPECT_TRUE(bytes(name).startsWith(start)) << name.toStdString();
        EXPECT_TRUE(IIO_read(path(name)).ok()) << name.toStdString();
    }
}

TEST_F(PictureFile, AnUnknownSuffixListsTheKnownOnes)
{
    for (const char* name : {"p.tga", "png", "folder.png/p", "p."}) {
        const auto written = IIO_write(path(QString::fromLatin1(name)), randomPicture16(1, 1, IIO_channelsRgba(), 1));
        ASSERT_FALSE(written.ok()) << name;
        EXPECT_TRUE(written.error().text.contains(QString::fromLatin1(name)));
        EXPECT_TRUE(written.error().text.contains(QStringLiteral(".png, .exr")));
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(PictureFile, EveryListedFormatCanBeWrittenAndRead)
{
    for (const IIO_PictureFormat& format : IIO_pictureFormats()) {
        const QString file = path(QStringLiteral("p.") + format.suffix);
        ASSERT_TRUE(IIO_write(file, randomPicture16(3, 2, IIO_channelsRgba(), 1)).ok()) << file.toStdString();
        const auto back = IIO_read(file);
        ASSERT_TRUE(back.ok()) << file.toStdString();
        EXPECT_EQ(back->width(), 3);
        EXPECT_EQ(back->sampleType(), format.samples);
        EXPECT_EQ(back->channels().contains(QStringLiteral("A")), format.alpha);
    }
}

TEST_F(PictureFile, OnlyAFileThatWasWrittenToItsEndHasItsEnd)
{
    const QString file = path(QStringLiteral("p.PNG"));
    ASSERT_TRUE(IIO_write(file, randomPicture16(3, 2, IIO_channelsRgba(), 1)).ok());
    EXPECT_TRUE(IIO_hasEnd(file));
    ASSERT_TRUE(QFile::resize(file, QFileInfo(file).size() - 1));
    EXPECT_FALSE(IIO_hasEnd(file));
    EXPECT_TRUE(IIO_hasEnd(path(QStringLiteral("p.exr")))) << "its reader notices";
}

TEST_F(PictureFile, FloatsAreHeldByOpenExrAlone)
{
    EXPECT_TRUE(IIO_isFloatFile(QStringLiteral("out/n.####.EXR")));
    EXPECT_FALSE(IIO_isFloatFile(QStringLiteral("exr.png")));
    EXPECT_FALSE(IIO_isFloatFile(QStringLiteral("exr")));
}

TEST_F(PictureFile, EightBitsAreTheNearestAndColoursIgnoreCoverage)
{
    // 128 x 257 = 32896 is the middle of step 128; the step below ends at 32896 - 128.
    const auto picture =
        pictureOfSamples<U16>(2, 1, IIO_channelsRgba(), {0, 65535, 32767, 0, 32896 - 128, 32896 - 129, 257, 9});
    ASSERT_TRUE(IIO_write(path(QStringLiteral("p.bmp")), picture).ok());
    const QImage image(path(QStringLiteral("p.bmp")));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0, 255, 127));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(128, 127, 1));
}

TEST_F(PictureFile, GreyStaysGreyInEightBits)
{
    ASSERT_TRUE(IIO_write(path(QStringLiteral("p.bmp")), pictureOfSamples<U16>(1, 1, IIO_channelsGrey(), {514})).ok());
    EXPECT_EQ(QImage(path(QStringLiteral("p.bmp"))).pixelColor(0, 0), QColor(2, 2, 2));
}

TEST_F(PictureFile, AMissingFileIsNamed)
{
    for (const char* name : {"none.png", "none.exr", "none.jpg"}) {
        const auto picture = IIO_read(path(QString::fromLatin1(name)));
        ASSERT_FALSE(picture.ok());
        EXPECT_TRUE(picture.error().text.contains(QString::fromLatin1(name)));
    }
}

TEST_F(PictureFile, AFailedWriteInAnEightBitFormatLeavesTheOldFile)
{
    write(QStringLiteral("p.jpg"), "old");
    const QStringList layers{QStringLiteral("N.X")};
    EXPECT_FALSE(IIO_write(path(QStringLiteral("p.jpg")), randomPicture16(2, 2, layers, 1)).ok());
    EXPECT_EQ(bytes(QStringLiteral("p.jpg")), "old");
}

} // namespace
