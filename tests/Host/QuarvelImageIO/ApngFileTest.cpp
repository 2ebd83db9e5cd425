// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animated PNG files, checked chunk by chunk.
#include "Inflate.h"

#include "QuarvelImageIO/IIO_ApngFile.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtEndian>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::HasSubstr;

namespace {

struct Chunk
{
    QByteArray type;
    QByteArray data;
};

std::uint32_t number(const QByteArray& bytes, qsizetype at)
{
    return qFromBigEndian<std::uint32_t>(bytes.constData() + at);
}

class Apng : public testing::Test
{
protected:
    QString path() const { return QDir(_folder.path()).filePath(QStringLiteral("film.png")); }

    // A frame of 3 x 2 pixels of one colour.
    static std::vector<std::uint8_t> frame(std::uint8_t red, std::uint8_t alpha = 255)
    {
        std::vector<std::uint8_t> bytes;
        for (int i = 0; i < 6; ++i)
            bytes.insert(bytes.end(), {red, 10, 20, alpha});
        return bytes;
    }

    void make(double framesPerSecond = 25.0)
    {
        IIO_ApngWriter writer(path(), QSize(3, 2), framesPerSecond);
        ASSERT_TRUE(writer.open());
        ASSERT_TRUE(writer.add(frame(100)));
        ASSERT_TRUE(writer.add(frame(150, 128)));
        ASSERT_TRUE(writer.add(frame(200, 0)));
        ASSERT_TRUE(writer.finish());
    }

    std::vector<Chunk> chunks() const
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        EXPECT_EQ(bytes.left(8), QByteArray("\x89PNG\r\n\x1a\n", 8));
        std::vector<Chunk> found;
        for (qsizetype at = 8; at + 12 <= bytes.size();) {
            const auto length = static_cast<qsizetype>(number(bytes, at));
            EXPECT_EQ(number(bytes, at + 8 + length), crc32Of(bytes.mid(at + 4, length + 4)));
            found.push_back({bytes.mid(at + 4, 4), bytes.mid(at + 8, length)});
            at += length + 12;
        }
        return found;
    }

    // The n-th frame as an image: its header, its data, and an end chunk make a PNG.
    QImage image(int index) const
    {
        QByteArray png("\x89PNG\r\n\x1a\n", 8);
        const auto add = [&](const QByteArray& type, const QByteArray& data) {
            QByteArray ends(4, '\0');
            qToBigEndian(static_cast<std::uint32_t>(data.size()), ends.data());
            png += ends + type + data;
            qToBigEndian(crc32Of(type + data), ends.data());
            png += ends;
        };
        int current = -1;
        for (const Chunk& chunk : chunks()) {
            current += chunk.type == "fcTL" ? 1 : 0;
            if (chunk.type == "IHDR")
                add(chunk.type, chunk.data);
            else if (current == index && chunk.type == "IDAT")
                add(chunk.type, chunk.data);
            else if (current == index && chunk.type == "fdAT")
                add("IDAT", chunk.data.mid(4));
        }
        add("IEND", {});
        return QImage::fromData(png, "PNG");
    }

private:
    QTemporaryDir _folder;
};

TEST_F(Apng, StandsInTheOrderThatReadersExpect)
{
    make();
    QByteArrayList types;
    for (const Chunk& chunk : chunks())
        types << chunk.type;
    EXPECT_EQ(types, (QByteArrayList{"IHDR", "acTL", "fcTL", "IDAT", "fcTL", "fdAT", "fcTL", "fdAT", "IEND"}));
}

TEST_F(Apng, CountsItsFramesAndRunsForEver)
{
    make();
    const Chunk control = chunks()[1];
    EXPECT_EQ(number(control.data, 0), 3U);
    EXPECT_EQ(number(control.data, 4), 0U);
}

TEST_F(Apng, NumbersControlAndDataInOneRow)
{
    make();
    std::vector<std::uint32_t> numbers;
    for (const Chunk& chunk : chunks())
        if (chunk.type == "fcTL" || chunk.type == "fdAT")
            numbers.push_back(number(chunk.data, 0));
    EXPECT_THAT(numbers, testing::ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(Apng, ShowsEachFrameForItsTimeInItsWholeSize)
{
    make(25.0);
    for (const Chunk& chunk : chunks()) {
        if (chunk.type != "fcTL")
            continue;
        ASSERT_EQ(chunk.data.size(), 26);
        EXPECT_EQ(number(chunk.data, 4), 3U);
        EXPECT_EQ(number(chunk.data, 8), 2U);
        // 1 / 25 s
        EXPECT_EQ(qFromBigEndian<std::uint16_t>(chunk.data.constData() + 20), 400);
        EXPECT_EQ(qFromBigEndian<std::uint16_t>(chunk.data.constData() + 22), 10000);
    }
}

TEST_F(Apng, KeepsTimeWithSoundThatRunsBesideIt)
{
    using Fraction = std::pair<int, int>;
    const std::pair<double, Fraction> expected[] = {{24.0, {1, 24}},      {30.0, {1, 30}},
                                                    {12.0, {1, 12}},      {24000.0 / 1001.0, {1001, 24000}},
                                                    {12.5, {800, 10000}}, {0.1, {1000, 100}}};
    for (const auto& [rate, delay] : expected) {
        make(rate);
        for (const Chunk& chunk : chunks())
            if (chunk.type == "fcTL") {
                EXPECT_EQ(qFromBigEndian<std::uint16_t>(chunk.data.constData() + 20), delay.first) << rate;
                EXPECT_EQ(qFromBigEndian<std::uint16_t>(chunk.data.constData() + 22), delay.second) << rate;
            }
    }
    // A rate that no such fraction is: an hour is less than half a second off.
    make(23.7654321);
    const Chunk control = chunks()[2];
    const double seconds = static_cast<double>(qFromBigEndian<std::uint16_t>(control.data.constData() + 20)) /
                           qFromBigEndian<std::uint16_t>(control.data.constData() + 22);
    EXPECT_NEAR(3600.0 * 23.7654321 * seconds, 3600.0, 0.5);
}

TEST_F(Apng, KeepsTheFramesPixels)
{
    make();
    EXPECT_EQ(image(0).pixelColor(2, 1), QColor(100, 10, 20));
    EXPECT_EQ(image(1).pixelColor(2, 1), QColor(150, 10, 20, 128));
    EXPECT_EQ(image(2).pixelColor(0, 0).alpha(), 0);
}

TEST_F(Apng, IsAnOrdinaryPngForOtherReaders)
{
    make();
    EXPECT_EQ(QImage(path()).pixelColor(0, 0), QColor(100, 10, 20));
}

TEST_F(Apng, IsNotThereBeforeItIsWhole)
{
    {
        IIO_ApngWriter writer(path(), QSize(3, 2), 24.0);
        ASSERT_TRUE(writer.open());
        ASSERT_TRUE(writer.add(frame(1)));
        EXPECT_FALSE(QFile::exists(path()));
    }
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(Apng, NeedsAFrameAndAPixel)
{
    IIO_ApngWriter writer(path(), QSize(3, 2), 24.0);
    ASSERT_TRUE(writer.open());
    const auto finished = writer.finish();
    ASSERT_FALSE(finished);
    EXPECT_THAT(finished.error().text.toStdString(), HasSubstr("at least one frame"));
    EXPECT_FALSE(IIO_ApngWriter(path(), QSize(0, 2), 24.0).open());
}

} // namespace
