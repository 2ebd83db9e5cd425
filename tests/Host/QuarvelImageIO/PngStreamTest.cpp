// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PNG files byte by byte, and pictures of many sizes: the smallest, wide ones, and ones of many bands.
#include "Inflate.h"
#include "OneInstructionSet.h"
#include "Pictures.h"

#include "QuarvelImageIO/IIO_PngFile.h"

#include <QImage>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <gmock/gmock.h>

namespace {

using PngStream = FolderTest;
using U16 = std::uint16_t;

constexpr IIO_Compression kCompressions[] = {IIO_Compression::NONE, IIO_Compression::FAST, IIO_Compression::SMALL};

struct Chunk
{
    QByteArray type;
    QByteArray data;
    bool isSound = false; ///< its checksum is correct
};

std::vector<Chunk> chunksOf(const QByteArray& png)
{
    std::vector<Chunk> chunks;
    for (qsizetype at = 8; at + 12 <= png.size();) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(png.constData() + at));
        const QByteArray checked = png.mid(at + 4, 4 + length);
        chunks.push_back(
            {checked.left(4), checked.mid(4), png.mid(at + 8 + length, 4) == bigEndian32(crc32Of(checked))});
        at += 12 + length;
    }
    return chunks;
}

QByteArrayList typesOf(const std::vector<Chunk>& chunks)
{
    QByteArrayList types;
    for (const Chunk& chunk : chunks)
        types << chunk.type;
    return types;
}

QByteArray dataOf(const std::vector<Chunk>& chunks, const QByteArray& type)
{
    QByteArray data;
    for (const Chunk& chunk : chunks)
        data += chunk.type == type ? chunk.data : QByteArray();
    return data;
}

// Slopes, flat parts and some noise, as in normal maps.
IIO_Picture slopes(int width, int height, const QStringList& channels)
{
    std::mt19937 random(5);
    const auto row = static_cast<int>(channels.size()) * width;
    return pictureOf<U16>({0, 0, width, height}, {0, 0, width, height}, channels, [=, at = 0]() mutable {
        const int x = at % row;
        const int y = at++ / row;
        return static_cast<U16>(x > 2 * y ? 32768U : static_cast<unsigned>(90 * x + 70 * y) + random() % 8U);
    });
}

TEST_F(PngStream, IsWhatItsFormatSays)
{
    IIO_Picture picture = pictureOfSamples<U16>(2, 1, IIO_channelsRgba(), {1, 2, 3, 4, 5, 6, 7, 65535});
    picture.metadata().set(QStringLiteral("Layout"), QStringLiteral("tangent"));
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {.compression = IIO_Compression::NONE}).ok());
    const QByteArray png = bytes(QStringLiteral("p.png"));
    EXPECT_EQ(png.left(8), QByteArray("\x89PNG\r\n\x1a\n"));
    const auto chunks = chunksOf(png);
    EXPECT_EQ(typesOf(chunks), (QByteArrayList{"IHDR", "pHYs", "tEXt", "IDAT", "IEND"}));
    for (const Chunk& chunk : chunks)
        EXPECT_TRUE(chunk.isSound) << chunk.type.toStdString();
    // 2 x 1 pixels of 16 bits, colours with coverage, deflate, filters, not interlaced; 96 dots per inch.
    EXPECT_EQ(chunks[0].data.toHex(), "00000002000000011006000000");
    EXPECT_EQ(chunks[1].data.toHex(), "00000ec400000ec401");
    EXPECT_EQ(chunks[2].data, QByteArray("Layout\0tangent", 14));
    // No filter, then the samples, high byte first.
    EXPECT_EQ(inflated(chunks[3].data, 17).toHex(), "00000100020003000400050006"
                                                    "0007ffff");
    EXPECT_TRUE(chunks[4].data.isEmpty());
}

TEST_F(PngStream, FiltersByTheLeftNeighbourOrTheOneAbove)
{
    // The first row differs least from its left neighbours; the second is equal to the row above.
    const auto picture = pictureOfSamples<U16>(3, 2, IIO_channelsGrey(), {256, 257, 258, 256, 257, 258});
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {}).ok());
    const QByteArray data = dataOf(chunksOf(bytes(QStringLiteral("p.png"))), "IDAT");
    EXPECT_EQ(inflated(data, 14).toHex(), "01010000010001"
                                          "02000000000000");
}

TEST_F(PngStream, TheLeftNeighbourMustLeaveATenthFewerBytesThatAreNotZero)
{
    constexpr int kWidth = 11;
    const std::vector<U16> rows{
        100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 109, // above this row is nothing: 9 bytes against 10
        0,   1,   2,   3,   4,   5,   6,   7,   8,   9,   9,   // as many bytes
        50,  51,  52,  53,  54,  55,  56,  57,  58,  58,  58}; // 8 bytes against 10
    const auto picture = pictureOfSamples<U16>(kWidth, 3, IIO_channelsGrey(), rows);
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {}).ok());
    constexpr qsizetype kRowBytes = 1 + 2 * kWidth;
    const QByteArray data =
        inflated(dataOf(chunksOf(bytes(QStringLiteral("p.png"))), "IDAT"), qsizetype{3} * kRowBytes);
    constexpr char kSub = 1;
    constexpr char kUp = 2;
    EXPECT_EQ(data.at(0), kUp);
    EXPECT_EQ(data.at(kRowBytes), kUp);
    EXPECT_EQ(data.at(2 * kRowBytes), kSub);
}

TEST_F(PngStream, InEightBitsTheSmallerDifferencesCount)
{
    // From the second pixel on, by the left neighbour and by the one above: 10 + 20 + 10 against 10 + 30 + 40, then
    // 6 + 20 + 29 against 1 + 1 + 20, and 0 + 0 + 32 against 19 + 1 + 2.
    std::vector<U16> samples{0, 10, 30, 40, 5, 11, 31, 60, 30, 30, 30, 62};
    for (U16& sample : samples)
        sample = static_cast<U16>(257 * sample);
    const auto picture = pictureOfSamples<U16>(4, 3, IIO_channelsGrey(), samples);
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {.pngBits = 8}).ok());
    const QByteArray data = dataOf(chunksOf(bytes(QStringLiteral("p.png"))), "IDAT");
    EXPECT_EQ(inflated(data, 15).toHex(), "01000a140a"
                                          "0205010114"
                                          "021913ff02");
}

QByteArray bigEndianBytes(std::span<const U16> samples)
{
    QByteArray bytes;
    for (const U16 sample : samples) {
        bytes.append(static_cast<char>(sample / 256));
        bytes.append(static_cast<char>(sample % 256));
    }
    return bytes;
}

QByteArray less(const QByteArray& row, const QByteArray& other)
{
    QByteArray differences;
    for (qsizetype i = 0; i < row.size(); ++i)
        differences.append(static_cast<char>(row.at(i) - other.at(i)));
    return differences;
}

// Without the first pixel, which has no left neighbour.
qsizetype comparedBytes(const QByteArray& differences, qsizetype bytesPerPixel)
{
    return differences.size() - bytesPerPixel - differences.mid(bytesPerPixel).count('\0');
}

QByteArray plainlyFiltered(const QByteArray& row, const QByteArray& above, qsizetype bytesPerPixel)
{
    const QByteArray byLeft = less(row, QByteArray(bytesPerPixel, '\0') + row.chopped(bytesPerPixel));
    const QByteArray byAbove = less(row, above);
    const qsizetype left = comparedBytes(byLeft, bytesPerPixel);
    return 10 * left < 9 * comparedBytes(byAbove, bytesPerPixel) ? '\1' + byLeft : '\2' + byAbove;
}

QByteArray plainlyFiltered(const IIO_Picture& picture)
{
    const qsizetype bytesPerPixel = 2 * qsizetype{picture.channelCount()};
    QByteArray above(bytesPerPixel * picture.width(), '\0');
    QByteArray filtered;
    for (int y = 0; y < picture.height(); ++y) {
        const QByteArray row = bigEndianBytes(picture.row<U16>(y));
        filtered += plainlyFiltered(row, above, bytesPerPixel);
        above = row;
    }
    return filtered;
}

TEST_F(PngStream, EveryInstructionSetFiltersByThePlainRule)
{
    for (const QStringList& channels : {IIO_channelsRgba(), IIO_channelsRgb(), IIO_channelsGrey()})
        for (const int width : {1, 2, 3, 8, 15, 16, 33, 67, 130}) {
            const IIO_Picture picture = slopes(width, 9, channels);
            const QByteArray expected = plainlyFiltered(picture);
            withEachInstructionSet([&] {
                const auto png = IIO_pngBytes(picture, {});
                ASSERT_TRUE(png);
                EXPECT_EQ(inflated(dataOf(chunksOf(*png), "IDAT"), expected.size()), expected) << width;
            });
        }
}

TEST_F(PngStream, TextsThatAreNotLatinAreWrittenAsUtf8)
{
    IIO_Picture picture = pictureOfSamples<U16>(1, 1, IIO_channelsGrey(), {1});
    picture.metadata().set(QStringLiteral("Author"), QString::fromUtf8("筆"));
    picture.metadata().set(QStringLiteral("Source"), QString::fromUtf8("é"));
    ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {}).ok());
    const auto chunks = chunksOf(bytes(QStringLiteral("p.png")));
    EXPECT_EQ(dataOf(chunks, "iTXt"), QByteArray("Author\0\0\0\0\0\xe7\xad\x86", 14));
    EXPECT_EQ(dataOf(chunks, "tEXt"), QByteArray("Source\0\xe9", 8));
}

// Some of the bands of rows are compressed but once.
TEST_F(PngStream, RowsThatRepeatComeBackBetweenOthers)
{
    constexpr int kWidth = 700;
    constexpr int kHeight = 900;
    IIO_Picture picture = slopes(kWidth, kHeight, IIO_channelsRgba());
    for (int y = 101; y < 800; ++y)
        std::ranges::copy(picture.row<U16>(100), picture.row<U16>(y).begin());
    for (const IIO_Compression compression : kCompressions) {
        ASSERT_TRUE(IIO_writePng(path(QStringLiteral("p.png")), picture, {.compression = compression}).ok());
        const auto back = IIO_readPng(path(QStringLiteral("p.png")));
        ASSERT_TRUE(back.ok()) << back.error().text.toStdString();
        EXPECT_TRUE(samplesOf<U16>(*back) == samplesOf<U16>(picture));
        constexpr qsizetype kLength = qsizetype{kHeight} * (1 + 8 * kWidth);
        const QByteArray data = dataOf(chunksOf(bytes(QStringLiteral("p.png"))), "IDAT");
        EXPECT_EQ(inflated(data, kLength).size(), kLength) << "with the right checksum";
    }
}

struct Shape
{
    const char* name;
    int width;
    int height;
};

class PngShape : public FolderTest, public testing::WithParamInterface<Shape>
{
protected:
    QString file() const { return path(QStringLiteral("p.png")); }
    IIO_Picture picture(const QStringList& channels) const
    {
        return slopes(GetParam().width, GetParam().height, channels);
    }
};

TEST_P(PngShape, ComesBackInEveryForm)
{
    for (const QStringList& channels : {IIO_channelsRgba(), IIO_channelsRgb(), IIO_channelsGrey()})
        for (const IIO_Compression compression : kCompressions) {
            const IIO_Picture written = picture(channels);
            ASSERT_TRUE(IIO_writePng(file(), written, {.compression = compression}).ok());
            const auto back = IIO_readPng(file());
            ASSERT_TRUE(back.ok()) << back.error().text.toStdString();
            EXPECT_EQ(back->channels(), channels);
            EXPECT_EQ(back->width(), written.width());
            EXPECT_EQ(back->height(), written.height());
            EXPECT_TRUE(samplesOf<U16>(*back) == samplesOf<U16>(written));
        }
}

// The reader of pictures ignores the bytes after the last row, so this test checks them.
TEST_P(PngShape, HasSoundChunksAndEndsWithTheRightChecksum)
{
    for (const IIO_Compression compression : kCompressions) {
        ASSERT_TRUE(IIO_writePng(file(), picture(IIO_channelsRgb()), {.compression = compression}).ok());
        const auto chunks = chunksOf(bytes(QStringLiteral("p.png")));
        for (const Chunk& chunk : chunks)
            EXPECT_TRUE(chunk.isSound);
        const qsizetype length = qsizetype{GetParam().height} * (1 + qsizetype{6} * GetParam().width);
        EXPECT_EQ(inflated(dataOf(chunks, "IDAT"), length).size(), length);
    }
}

TEST_P(PngShape, IsTheSameOnAnyNumberOfThreads)
{
    const tbb::global_control allowed(tbb::global_control::max_allowed_parallelism, 7);
    for (const IIO_Compression compression : kCompressions) {
        QByteArrayList files;
        for (const int threads : {1, 2, 7})
            tbb::task_arena(threads).execute([&] {
                ASSERT_TRUE(IIO_writePng(file(), picture(IIO_channelsRgba()), {.compression = compression}).ok());
                files << bytes(QStringLiteral("p.png"));
            });
        EXPECT_TRUE(files[0] == files[1]);
        EXPECT_TRUE(files[0] == files[2]);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, PngShape,
                         testing::Values(Shape{"OnePixel", 1, 1}, Shape{"OneColumn", 1, 999}, Shape{"OneRow", 999, 1},
                                         Shape{"TwoColumnsOfManyBands", 2, 70000},
                                         Shape{"RowsWiderThanABand", 100000, 3}, Shape{"ManyBands", 700, 500},
                                         Shape{"Square", 64, 64}),
                         [](const auto& shape) { return std::string(shape.param.name); });

} // namespace
