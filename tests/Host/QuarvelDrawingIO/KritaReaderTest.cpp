// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files of Krita: what Krita itself wrote, and what nobody should write.
#include "Drawings.h"
#include "LayeredFiles.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include <QTemporaryDir>

#include <random>

using testing::HasSubstr;

namespace {

DIO_Drawing drawingOf(const char* name)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(QStringLiteral(TEST_FILES "/") + QString::fromLatin1(name));
    EXPECT_TRUE(drawing) << drawing.error().text.toStdString();
    return drawing ? std::move(*drawing) : DIO_Drawing();
}

// The layer shows the pixels of files/agpsd.cjs at a place, and nothing elsewhere.
void expectRamp(const DIO_Layer& layer, const QRect& place)
{
    const DIO_Shape& shape = layer.shapes.front();
    const QPoint corner = shape.path.boundingRect().topLeft().toPoint();
    for (int y = 0; y < shape.picture.height(); ++y)
        for (int x = 0; x < shape.picture.width(); ++x) {
            const QPoint at = corner + QPoint(x, y) - place.topLeft();
            const bool isInside = QRect(QPoint(), place.size()).contains(at);
            const QRgb expected =
                isInside ? qRgba(10 * at.x(), 20 * at.y(), 7 * at.x() + 3 * at.y(), 255 - 9 * at.x()) : 0;
            const QRgb shown = shape.picture.pixel(x, y);
            ASSERT_EQ(qAlpha(shown) == 0 ? 0 : shown, expected) << at.x() << ", " << at.y();
        }
    EXPECT_TRUE(shape.path.boundingRect().contains(QRectF(place)));
}

// A file of one layer of 8 bits.
void writeKrita(const QString& path, const QByteArray& tiles, const QByteArray& usual = QByteArray(4, '\0'),
                const QByteArray& x = "0")
{
    QByteArray text = R"(<DOC><IMAGE name="a" width="70" height="9"><layers><layer name="one" filename="layer1"
        nodetype="paintlayer" colorspacename="RGBA" visible="1" opacity="255" compositeop="normal" x="X" y="0"/>
        </layers></IMAGE></DOC>)";
    text.replace("\"X\"", '"' + x + '"');
    writeArchive(path, {{"maindoc.xml", text}, {"a/layers/layer1", tiles}, {"a/layers/layer1.defaultpixel", usual}});
}

QByteArray head(int tiles)
{
    return "VERSION 2\nTILEWIDTH 64\nTILEHEIGHT 64\nPIXELSIZE 4\nDATA " + QByteArray::number(tiles) + '\n';
}

std::string refusalOf(const QString& path)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
    return drawing ? std::string("it was read") : drawing.error().text.toStdString();
}

} // namespace

TEST(KritaReader, LayersHaveEveryPixelInItsPlace)
{
    const DIO_Drawing drawing = drawingOf("krita.kra");
    EXPECT_EQ(drawing.size, QSizeF(16, 12));
    ASSERT_EQ(drawing.layers.size(), 4u);
    EXPECT_EQ(drawing.layers[0].name, "ground");
    EXPECT_EQ(drawing.layers[1].name, QString::fromUtf8("head/Auge/é"));
    EXPECT_EQ(drawing.layers[2].name, "head/masked");
    EXPECT_EQ(drawing.layers[3].name, "shade");
    expectRamp(drawing.layers[0], {0, 0, 16, 12});
    expectRamp(drawing.layers[1], {3, -2, 5, 4});
    expectRamp(drawing.layers[3], {8, 3, 4, 4});
    EXPECT_DOUBLE_EQ(drawing.layers[1].shapes.front().opacity, 0.8);
    EXPECT_EQ(drawing.warnings, (QStringList{"blend modes are shown as normal: multiply (shade)",
                                             "layers are shown without their masks and filters: head/masked"}));
}

TEST(KritaReader, SixteenBitsAreKept)
{
    const DIO_Drawing drawing = drawingOf("krita16.kra");
    ASSERT_EQ(drawing.layers.size(), 1u);
    const DIO_Shape& shape = drawing.layers[0].shapes.front();
    const QPoint corner = shape.path.boundingRect().topLeft().toPoint();
    const QRgba64 pixel = shape.picture.pixelColor(QPoint(5, 5) - corner).rgba64();
    EXPECT_EQ(pixel.red(), 0x1234);
    EXPECT_EQ(pixel.green(), 0x5678);
    EXPECT_EQ(pixel.blue(), 0x9abc);
    EXPECT_EQ(pixel.alpha(), 65535);
    EXPECT_EQ(shape.picture.pixelColor(QPoint(10, 5) - corner).alpha(), 0);
}

TEST(KritaReader, WhereThereAreNoTilesTheUsualPixelIsShown)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.kra"));
    // Blue, green, red, alpha; and a tile that is stored plain.
    QByteArray tile(1, '\0');
    for (int i = 0; i < 64 * 64; ++i)
        tile += QByteArray::fromHex("102030ff");
    writeKrita(path, head(1) + "0,0,LZF," + QByteArray::number(tile.size()) + '\n' + tile,
               QByteArray::fromHex("405060ff"));
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
    ASSERT_TRUE(drawing) << drawing.error().text.toStdString();
    const QImage& picture = drawing->layers.at(0).shapes.front().picture;
    EXPECT_EQ(picture.pixel(63, 8), qRgb(0x30, 0x20, 0x10));
    EXPECT_EQ(picture.pixel(64, 8), qRgb(0x60, 0x50, 0x40));
}

TEST(KritaReader, ALayerThatLiesFartherAwayThanAnyPictureIsRefused)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.kra"));
    const QByteArray tile = QByteArray(1, '\0') + QByteArray(64 * 64 * 4, '\xff');
    const QByteArray tiles = head(1) + "0,0,LZF," + QByteArray::number(tile.size()) + '\n' + tile;
    for (const char* const x : {"0", "-1000000", "1000000"}) {
        writeKrita(path, tiles, QByteArray(4, '\0'), x);
        EXPECT_EQ(refusalOf(path), "it was read") << x;
    }
    // No int holds the place of the last one's second pixel.
    for (const char* const x : {"-1000001", "1000001", "-2147483648", "2147483647"}) {
        writeKrita(path, tiles, QByteArray(4, '\0'), x);
        EXPECT_THAT(refusalOf(path), HasSubstr("damaged or cut off")) << x;
    }
}

// In a file of a few kilobytes, thousands of them would be decoded, each as large as the picture.
TEST(KritaReader, LayersThatShareAFileAreRefused)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.kra"));
    const QByteArray layer = R"(<layer name="one" filename="layer1" nodetype="paintlayer" colorspacename="RGBA"
        visible="1" opacity="255" compositeop="normal" x="0" y="0"/>)";
    const auto write = [&](const QByteArray& layers) {
        writeArchive(path, {{"maindoc.xml", R"(<DOC><IMAGE name="a" width="70" height="9"><layers>)" + layers +
                                                "</layers></IMAGE></DOC>"},
                            {"a/layers/layer1", head(0)},
                            {"a/layers/layer1.defaultpixel", QByteArray(4, '\xff')}});
    };
    write(layer);
    EXPECT_EQ(refusalOf(path), "it was read");
    write(layer + layer);
    EXPECT_THAT(refusalOf(path), HasSubstr("damaged or cut off"));
}

TEST(KritaReader, DamagedTilesAreAnErrorAndNoHarm)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.kra"));
    // A byte, then 511 times up to 264 copies of it.
    const QByteArray packed = QByteArray::fromHex("01"
                                                  "00ff") +
                              QByteArray::fromHex("e0ff00").repeated(62) + QByteArray::fromHex("e00e00");
    const QByteArray whole = head(1) + "0,0,LZF," + QByteArray::number(packed.size()) + '\n' + packed;
    for (qsizetype size = 0; size < whole.size(); size += 5) {
        writeKrita(path, whole.first(size));
        EXPECT_THAT(refusalOf(path), HasSubstr("damaged or cut off")) << size;
    }
    std::mt19937 random(20261122);
    for (int i = 0; i < 200; ++i) {
        QByteArray bytes = whole;
        const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
        bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1U << random() % 8));
        writeKrita(path, bytes);
        (void)refusalOf(path);
    }
    writeKrita(path, head(1) + "900000000,0,LZF,1\n1");
    EXPECT_THAT(refusalOf(path), HasSubstr("damaged or cut off"));
    writeKrita(path, head(1) + "-2147483648,0,LZF,1\n1");
    EXPECT_THAT(refusalOf(path), HasSubstr("damaged or cut off"));
    writeKrita(path, head(2) + "-900000,0,LZF,1\n1900000,0,LZF,1\n1");
    EXPECT_THAT(refusalOf(path), HasSubstr("more than the 33 million"));
}
