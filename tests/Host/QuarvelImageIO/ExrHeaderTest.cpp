// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Small OpenEXR files that promise large pictures are refused by their headers, before memory is allocated for them.
#include "Pictures.h"

#include "QuarvelImageIO/IIO_ExrFile.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

QByteArray u32(quint32 value)
{
    QByteArray bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

QByteArray zeroEnded(const char* text)
{
    return QByteArray(text) + '\0';
}

QByteArray attribute(const char* name, const char* type, const QByteArray& value)
{
    return zeroEnded(name) + zeroEnded(type) + u32(static_cast<quint32>(value.size())) + value;
}

QByteArray box(quint32 x2, quint32 y2)
{
    return u32(0) + u32(0) + u32(x2) + u32(y2);
}

// A header with one float channel.
QByteArray header(quint32 width, quint32 height, char compression, quint32 flags = 0, const QByteArray& more = {})
{
    const QByteArray channels = zeroEnded("Y") + u32(2) + u32(0) + u32(1) + u32(1) + '\0';
    return u32(20000630) + u32(2 | flags) + attribute("channels", "chlist", channels) +
           attribute("compression", "compression", QByteArray(1, compression)) +
           attribute("dataWindow", "box2i", box(width - 1, height - 1)) +
           attribute("displayWindow", "box2i", box(width - 1, height - 1)) +
           attribute("lineOrder", "lineOrder", QByteArray(1, '\0')) +
           attribute("pixelAspectRatio", "float", u32(0x3f800000)) +
           attribute("screenWindowCenter", "v2f", u32(0) + u32(0)) +
           attribute("screenWindowWidth", "float", u32(0x3f800000)) + more + '\0';
}

struct ExrHeader : FolderTest
{
    std::string errorOf(const QByteArray& bytes)
    {
        const auto read = IIO_readExr(write("h.exr", bytes));
        EXPECT_FALSE(read.ok());
        return read.ok() ? std::string() : read.error().text.toStdString();
    }
};

constexpr quint32 kMany = 1U << 30;

} // namespace

TEST_F(ExrHeader, MoreLinesThanTheFileCanHoldAreRefused)
{
    for (char compression = 0; compression < 10; ++compression)
        EXPECT_THAT(errorOf(header(1, kMany, compression) + QByteArray(1000, '\0')), HasSubstr("more lines than"));
}

TEST_F(ExrHeader, MorePixelsThanTheFileCanHoldAreRefused)
{
    for (char compression = 0; compression < 10; ++compression)
        EXPECT_THAT(errorOf(header(kMany, 10, compression) + QByteArray(1000, '\0')), HasSubstr("more pixels than"));
}

TEST_F(ExrHeader, MoreTilesThanTheFileCanHoldAreRefused)
{
    constexpr quint32 kTiled = 0x200;
    const auto tiles = [](quint32 side) { return attribute("tiles", "tiledesc", u32(side) + u32(side) + '\0'); };
    EXPECT_THAT(errorOf(header(4096, 4096, 3, kTiled, tiles(1)) + QByteArray(100000, '\0')),
                HasSubstr("more lines than"));
    EXPECT_THAT(errorOf(header(64, 64, 3, kTiled, tiles(0)) + QByteArray(1000, '\0')), HasSubstr("is empty"));
    EXPECT_THAT(errorOf(header(64, 64, 3, kTiled) + QByteArray(1000, '\0')), HasSubstr("damaged"));
}

TEST_F(ExrHeader, AnAttributeBeyondTheFilesEndIsRefused)
{
    const QByteArray text = zeroEnded("comments") + zeroEnded("string");
    EXPECT_THAT(errorOf(header(4, 4, 0, 0, text + u32(0x7fffffff))), HasSubstr("promises more than the file holds"));
    EXPECT_THAT(errorOf(header(4, 4, 0, 0, text + u32(0xffffffff))), HasSubstr("promises more than the file holds"));
}

TEST_F(ExrHeader, AThumbnailLargerThanItsAttributeIsRefused)
{
    const auto preview = [](quint32 side) { return attribute("preview", "preview", u32(side) + u32(side) + u32(0)); };
    EXPECT_THAT(errorOf(header(4, 4, 0, 0, preview(20000))), HasSubstr("thumbnail is damaged"));
    EXPECT_THAT(errorOf(header(4, 4, 0, 0, preview(0x80000000))), HasSubstr("thumbnail is damaged"));
}

TEST_F(ExrHeader, SeveralPartsAreRefused)
{
    EXPECT_THAT(errorOf(header(4, 4, 0, 0x1000)), HasSubstr("several parts"));
}

TEST_F(ExrHeader, AnEvenPictureIsNotTakenForTooLarge)
{
    // One value everywhere gives the highest compression.
    const Math::Box2di window(0, 0, 2000, 2000);
    const IIO_Picture picture = pictureOf<float>(window, window, IIO_channelsRgba(), [] { return 0.0F; });
    for (const auto compression : {IIO_Compression::NONE, IIO_Compression::FAST, IIO_Compression::SMALL}) {
        const QString file = path(QStringLiteral("even.exr"));
        ASSERT_TRUE(IIO_writeExr(file, picture, {.compression = compression, .exrDepth = IIO_ExrDepth::FLOAT}).ok());
        EXPECT_TRUE(IIO_readExr(file).ok());
    }
}
