// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PSD files that other programs wrote: every pixel of every layer.
#include "Drawings.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "TestFolder.h"

#include <QFile>
#include <QtEndian>

#include <random>

using testing::HasSubstr;

namespace {

QString fileOf(const char* name)
{
    return QStringLiteral(TEST_FILES "/") + QString::fromLatin1(name);
}

DIO_Drawing drawingOf(const QString& path, DIO_Grouping grouping = DIO_Grouping::AUTO)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path, grouping);
    EXPECT_TRUE(drawing) << drawing.error().text.toStdString();
    return drawing ? std::move(*drawing) : DIO_Drawing();
}

const DIO_Shape& shapeOf(const DIO_Drawing& drawing, std::size_t layer)
{
    return drawing.layers.at(layer).shapes.front();
}

// The pixels of files/agpsd.cjs.
void expectRamp(const QImage& image, const QSize& size, bool isOpaque = false)
{
    ASSERT_EQ(image.size(), size);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            ASSERT_EQ(image.pixel(x, y), qRgba(10 * x, 20 * y, 7 * x + 3 * y, isOpaque ? 255 : 255 - 9 * x))
                << x << ", " << y;
}

// A square of one colour of 16 bits, from 2, 2 to 9, 9.
void expectDeepSquare(const DIO_Shape& shape)
{
    const QPoint place = shape.path.boundingRect().topLeft().toPoint();
    ASSERT_EQ(shape.picture.format(), QImage::Format_RGBA64);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 16; ++x) {
            const QPoint at = QPoint(x, y) - place;
            const QRgba64 pixel =
                shape.picture.valid(at) ? shape.picture.pixelColor(at).rgba64() : QRgba64::fromRgba64(0);
            const bool isInside = x >= 2 && x <= 9 && y >= 2 && y <= 9;
            ASSERT_EQ(pixel.alpha(), isInside ? 65535 : 0) << x << ", " << y;
            if (isInside) {
                ASSERT_EQ(pixel.red(), 0x1234);
                ASSERT_EQ(pixel.green(), 0x5678);
                ASSERT_EQ(pixel.blue(), 0x9abc);
            }
        }
}

} // namespace

TEST(PsdReader, LayersOfAgPsdHaveEveryPixelInItsPlace)
{
    for (const char* name : {"agpsd.psd", "agpsd.psb"}) {
        SCOPED_TRACE(name);
        const DIO_Drawing drawing = drawingOf(fileOf(name));
        EXPECT_EQ(drawing.size, QSizeF(16, 12));
        ASSERT_EQ(drawing.layers.size(), 4u);
        EXPECT_EQ(drawing.layers[0].name, "ground");
        EXPECT_EQ(drawing.layers[1].name, QString::fromUtf8("head/Auge/é"));
        EXPECT_EQ(drawing.layers[2].name, "head/masked");
        EXPECT_EQ(drawing.layers[3].name, "shade");
        EXPECT_EQ(shapeOf(drawing, 0).path.boundingRect(), QRectF(0, 0, 16, 12));
        EXPECT_EQ(shapeOf(drawing, 1).path.boundingRect(), QRectF(3, -2, 5, 4));
        EXPECT_EQ(shapeOf(drawing, 3).path.boundingRect(), QRectF(8, 3, 4, 4));
        expectRamp(shapeOf(drawing, 0).picture, {16, 12});
        expectRamp(shapeOf(drawing, 1).picture, {5, 4});
        expectRamp(shapeOf(drawing, 3).picture, {4, 4});
        EXPECT_NEAR(shapeOf(drawing, 1).opacity, 0.6 * 0.8, 1e-9);
        EXPECT_EQ(drawing.warnings, QStringList{"blend modes are shown as normal: multiply (shade)"});
    }
}

TEST(PsdReader, AMaskTakesAwayFromItsLayer)
{
    const DIO_Drawing drawing = drawingOf(fileOf("agpsd.psd"));
    const QImage& masked = shapeOf(drawing, 2).picture;
    ASSERT_EQ(masked.size(), QSize(6, 6));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x) {
            const bool isInside = x >= 1 && x <= 3 && y >= 1 && y <= 3;
            ASSERT_EQ(qAlpha(masked.pixel(x, y)), isInside ? 40 * (x - 1) + 20 * (y - 1) : 0) << x << ", " << y;
        }
}

TEST(PsdReader, GroupsBecomeLayersWhereTheyAreWanted)
{
    const DIO_Drawing drawing = drawingOf(fileOf("agpsd.psd"), DIO_Grouping::GROUPS);
    ASSERT_EQ(drawing.layers.size(), 3u);
    EXPECT_EQ(drawing.layers[1].name, "head");
    EXPECT_EQ(drawing.layers[1].shapes.size(), 2u);
}

TEST(PsdReader, AFileWithoutLayersIsItsPicture)
{
    const DIO_Drawing drawing = drawingOf(fileOf("agflat.psd"));
    ASSERT_EQ(drawing.layers.size(), 1u);
    expectRamp(shapeOf(drawing, 0).picture, {16, 12}, true);
}

TEST(PsdReader, LayersOfSixteenBitsKeepThem)
{
    const DIO_Drawing ofImageMagick = drawingOf(fileOf("imagemagick16.psd"));
    ASSERT_EQ(ofImageMagick.layers.size(), 2u);
    expectDeepSquare(shapeOf(ofImageMagick, 0));
    const DIO_Drawing ofKrita = drawingOf(fileOf("krita16.psd"));
    ASSERT_EQ(ofKrita.layers.size(), 1u);
    expectDeepSquare(shapeOf(ofKrita, 0));
}

// A large document's layers may stand after blocks of other kinds, whose lengths have eight bytes too.
TEST(PsdReader, LayersOfALargeDocumentMayStandBehindOtherBlocks)
{
    QFile original(fileOf("agpsd.psb"));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray bytes = original.readAll();
    const auto number = [](quint64 value) {
        QByteArray text(8, '\0');
        qToBigEndian(value, text.data());
        return text;
    };
    qsizetype section = 26;
    for (int skipped = 0; skipped < 2; ++skipped)
        section += 4 + static_cast<qsizetype>(qFromBigEndian<quint32>(bytes.constData() + section));
    const auto size = static_cast<qsizetype>(qFromBigEndian<quint64>(bytes.constData() + section));
    const auto layersSize = static_cast<qsizetype>(qFromBigEndian<quint64>(bytes.constData() + section + 8));
    const QByteArray layers = bytes.mid(section + 16, layersSize);
    QByteArray blocks = number(0) + QByteArray(4, '\0');
    for (const char* const kind : {"Mt16", "FMsk", "lnk2", "PxSD"})
        blocks += QByteArray("8BIM") + kind + number(4) + "abcd";
    blocks += "8BIMLayr" + number(static_cast<quint64>(layersSize)) + layers;
    const TestFolder folder;
    const DIO_Drawing drawing =
        drawingOf(folder.write("a.psb", bytes.first(section) + number(static_cast<quint64>(blocks.size())) + blocks +
                                            bytes.mid(section + 8 + size)));
    ASSERT_EQ(drawing.layers.size(), 4u);
    expectRamp(shapeOf(drawing, 0).picture, {16, 12});
    EXPECT_EQ(drawing.layers[3].name, "shade");
}

TEST(PsdReader, TheUsualModeMayBeWrittenBackwards)
{
    QFile original(fileOf("imagemagick16.psd"));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    QByteArray bytes = original.readAll();
    ASSERT_TRUE(bytes.contains("8BIMnorm"));
    const TestFolder folder;
    EXPECT_TRUE(drawingOf(folder.write("a.psd", bytes.replace("8BIMnorm", "8BIMmron"))).warnings.isEmpty());
}

TEST(PsdReader, DamagedFilesDoNoHarm)
{
    const TestFolder folder;
    const auto refusalOf = [&](const QByteArray& bytes) {
        const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(folder.write("a.psd", bytes));
        return drawing ? std::string("it was read") : drawing.error().text.toStdString();
    };
    std::mt19937 random(20261122);
    for (const char* name : {"agpsd.psd", "agflat.psd", "krita16.psd"}) {
        QFile file(fileOf(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray whole = file.readAll();
        for (qsizetype size = 0; size < whole.size(); size += 29)
            (void)refusalOf(whole.first(size));
        for (int i = 0; i < 150; ++i) {
            QByteArray bytes = whole;
            for (int turned = 0; turned < 1 + i % 4; ++turned) {
                const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
                bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1U << random() % 8));
            }
            (void)refusalOf(bytes);
        }
        EXPECT_THAT(refusalOf(whole.first(60)), HasSubstr("damaged or cut off"));
    }
    EXPECT_THAT(refusalOf(QByteArray(100, 'x')), HasSubstr("this is not a PSD file"));
    QFile cmyk(fileOf("agflat.psd"));
    ASSERT_TRUE(cmyk.open(QIODevice::ReadOnly));
    QByteArray bytes = cmyk.readAll();
    bytes[25] = 4;
    EXPECT_THAT(refusalOf(bytes), HasSubstr("RGB or grey of 8 or 16 bits"));
}
