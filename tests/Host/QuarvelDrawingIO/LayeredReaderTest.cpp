// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files with layers of pixels: which layers they become, with which pixels at which place, and when they are shown.
#include "Drawings.h"
#include "LayeredFiles.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "TestFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const QByteArray kRed = QByteArray::fromHex("ff0000ff");
const QByteArray kBlue = QByteArray::fromHex("0000ff80");

class LayeredReader : public testing::Test, protected TestFolder
{
protected:
    static DIO_Drawing drawingOf(const QString& path, DIO_Grouping grouping = DIO_Grouping::AUTO)
    {
        UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path, grouping);
        EXPECT_TRUE(drawing) << drawing.error().text.toStdString();
        return drawing ? std::move(*drawing) : DIO_Drawing();
    }

    static DIO_Animation framesOf(const QString& path)
    {
        UT_Result<std::optional<DIO_Animation>> frames = DIO_readFrames(path);
        EXPECT_TRUE(frames) << frames.error().text.toStdString();
        EXPECT_TRUE(frames && *frames);
        return frames && *frames ? std::move(**frames) : DIO_Animation();
    }

    static std::string refusalOf(const QString& path)
    {
        const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
        return drawing ? std::string("it was read") : drawing.error().text.toStdString();
    }

    static QStringList namesOf(const DIO_Drawing& drawing)
    {
        QStringList names;
        for (const DIO_Layer& layer : drawing.layers)
            names << layer.name;
        return names;
    }
};

QImage filled(int width, int height, const QColor& colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QRectF placeOf(const DIO_Layer& layer)
{
    return layer.shapes.front().path.boundingRect();
}

// A picture of 16 x 12 pixels: a red block that moves three pixels to the right each time, above a blue bar.
void expectBlocks(const QImage& picture, const QPoint& place, int time)
{
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 16; ++x) {
            const bool block = x >= 2 + 3 * time && x <= 7 + 3 * time && y >= 2 && y <= 7;
            const bool bar = x >= 1 && x <= 14 && y >= 9 && y <= 10;
            const QRgb expected = block ? qRgb(0xe0, 0x40, 0x20) : bar ? qRgb(0x20, 0x60, 0xc0) : 0;
            const QPoint at = QPoint(x, y) - place;
            const QRgb shown = picture.valid(at) ? picture.pixel(at) : 0;
            // Colours of pixels that show nothing do not count.
            ASSERT_EQ(qAlpha(shown) == 0 ? 0 : shown, expected) << x << ", " << y << " of " << time;
        }
}

} // namespace

TEST_F(LayeredReader, LayersOfAsepriteLieFromTheBottomUpWithTheirPixelsInPlace)
{
    AsepriteFile file(8, 6);
    file.frame(100);
    file.layer("body");
    file.layer("eye");
    file.packedCel(0, 1, 2, 2, 1, kRed + kBlue);
    file.rawCel(1, -1, 3, 1, 2, kBlue + kRed, 128);
    const DIO_Drawing drawing = drawingOf(write("hero.aseprite", file.bytes()));
    EXPECT_EQ(drawing.name, "hero");
    EXPECT_EQ(drawing.size, QSizeF(8, 6));
    ASSERT_EQ(namesOf(drawing), (QStringList{"body", "eye"}));
    EXPECT_EQ(placeOf(drawing.layers[0]), QRectF(1, 2, 2, 1));
    EXPECT_EQ(placeOf(drawing.layers[1]), QRectF(-1, 3, 1, 2));
    const QImage& body = drawing.layers[0].shapes.front().picture;
    EXPECT_EQ(body.pixel(0, 0), qRgba(255, 0, 0, 255));
    EXPECT_EQ(body.pixel(1, 0), qRgba(0, 0, 255, 128));
    EXPECT_EQ(drawing.layers[1].shapes.front().picture.pixel(0, 1), qRgba(255, 0, 0, 255));
    EXPECT_DOUBLE_EQ(drawing.layers[1].shapes.front().opacity, 128 / 255.0);
}

TEST_F(LayeredReader, GroupsAreKeptInNamesAndHideWhatIsInThem)
{
    AsepriteFile file(4, 4);
    file.frame(100);
    file.layer("head", AsepriteFile::kVisible, 1, 0, 0, 51);
    file.layer("eyes", AsepriteFile::kVisible, 1, 1);
    file.layer("left", AsepriteFile::kVisible, 0, 2);
    file.layer("old", 0, 1, 0);
    file.layer("sketch", AsepriteFile::kVisible, 0, 1);
    file.layer("hand", AsepriteFile::kVisible, 0, 0);
    for (const int layer : {2, 4, 5})
        file.packedCel(layer, 0, 0, 1, 1, kRed);
    const QString path = write("groups.ase", file.bytes());
    const DIO_Drawing drawing = drawingOf(path);
    EXPECT_EQ(namesOf(drawing), (QStringList{"head/eyes/left", "hand"}));
    EXPECT_DOUBLE_EQ(drawing.layers[0].shapes.front().opacity, 0.2);
    EXPECT_EQ(namesOf(drawingOf(path, DIO_Grouping::GROUPS)), (QStringList{"head", "hand"}));
    const DIO_Drawing one = drawingOf(path, DIO_Grouping::ONE);
    ASSERT_EQ(namesOf(one), QStringList{"groups"});
    EXPECT_EQ(one.layers[0].shapes.size(), 2u);
}

TEST_F(LayeredReader, GroupsOfOneNameAreDifferentObjectsAndALayerOfThatNameIsInNone)
{
    AsepriteFile file(4, 4);
    file.frame(100);
    file.layer("arm", AsepriteFile::kVisible);
    for (int group = 0; group < 2; ++group) {
        file.layer("arm", AsepriteFile::kVisible, 1);
        file.layer("upper", AsepriteFile::kVisible, 0, 1);
        file.layer("lower", AsepriteFile::kVisible, 0, 1);
    }
    for (const int layer : {0, 2, 3, 5, 6})
        file.packedCel(layer, 0, 0, 1, 1, kRed);
    const DIO_Drawing aseprite = drawingOf(write("arms.ase", file.bytes()), DIO_Grouping::GROUPS);
    const QByteArray group =
        R"(<stack name="arm"><layer name="lower" src="a.png"/><layer name="upper" src="a.png"/></stack>)";
    QImage dot(1, 1, QImage::Format_ARGB32);
    dot.fill(Qt::red);
    writeArchive(path("arms.ora"), {{"stack.xml", R"(<image w="4" h="4"><stack>)" + group + group +
                                                      R"(<layer name="arm" src="a.png"/></stack></image>)"},
                                    {"a.png", pngOf(dot)}});
    for (const DIO_Drawing& drawing : {aseprite, drawingOf(path("arms.ora"), DIO_Grouping::GROUPS)}) {
        ASSERT_EQ(namesOf(drawing), (QStringList{"arm", "arm", "arm"}));
        EXPECT_EQ(drawing.layers[0].shapes.size(), 1u);
        EXPECT_EQ(drawing.layers[1].shapes.size(), 2u);
        EXPECT_EQ(drawing.layers[2].shapes.size(), 2u);
    }
}

TEST_F(LayeredReader, PalettesAndGreysOfAsepriteBecomeColours)
{
    AsepriteFile indexed(2, 2, 8);
    indexed.frame(100);
    indexed.chunk(0x2019, LittleEndian()
                              .u32(3)
                              .u32(0)
                              .u32(2)
                              .zeros(8)
                              .u16(0)
                              .bytes(QByteArray::fromHex("102030ff"))
                              .u16(1)
                              .bytes(QByteArray::fromHex("405060ff"))
                              .text("sky")
                              .u16(0)
                              .bytes(QByteArray::fromHex("708090a0"))
                              .get());
    indexed.layer("ground", AsepriteFile::kVisible | AsepriteFile::kBackground);
    indexed.layer("above");
    // Index 0 is transparent, but for the background; 9 is none of the palette.
    indexed.packedCel(0, 0, 0, 4, 1, QByteArray::fromHex("00010209"));
    indexed.packedCel(1, 0, 0, 4, 1, QByteArray::fromHex("00010209"));
    const DIO_Drawing drawing = drawingOf(write("indexed.ase", indexed.bytes()));
    ASSERT_EQ(drawing.layers.size(), 2u);
    const QImage& ground = drawing.layers[0].shapes.front().picture;
    const QImage& above = drawing.layers[1].shapes.front().picture;
    EXPECT_EQ(ground.pixel(0, 0), qRgb(0x10, 0x20, 0x30));
    EXPECT_EQ(above.pixel(0, 0), 0u);
    EXPECT_EQ(above.pixel(1, 0), qRgb(0x40, 0x50, 0x60));
    EXPECT_EQ(above.pixel(2, 0), qRgba(0x70, 0x80, 0x90, 0xa0));
    EXPECT_EQ(above.pixel(3, 0), 0u);

    AsepriteFile grey(2, 2, 16);
    grey.frame(100);
    grey.layer("grey");
    grey.packedCel(0, 0, 0, 1, 1, QByteArray::fromHex("7f40"));
    EXPECT_EQ(drawingOf(write("grey.ase", grey.bytes())).layers[0].shapes.front().picture.pixel(0, 0),
              qRgba(0x7f, 0x7f, 0x7f, 0x40));
}

TEST_F(LayeredReader, TilesAreLaidAsTheirMapSays)
{
    AsepriteFile file(8, 4);
    file.frame(100);
    // Two tiles of 2 x 2: none, and one with red in its upper left corner and blue right of it.
    const QByteArray clear(4, '\0');
    const QByteArray pixels = clear + clear + clear + clear + kRed + kBlue + clear + clear;
    const QByteArray packed = AsepriteFile::packed(pixels);
    file.chunk(0x2023, LittleEndian()
                           .u32(5)
                           .u32(2)
                           .u32(2)
                           .u16(2)
                           .u16(2)
                           .u16(1)
                           .zeros(14)
                           .text("set")
                           .u32(packed.size())
                           .bytes(packed)
                           .get());
    file.layer("wall", AsepriteFile::kVisible, 2, 0, 0, 255, 5);
    const QByteArray map = LittleEndian().u32(1).u32(0x20000001).u32(0).u32(0x80000001).get();
    file.chunk(0x2005, AsepriteFile::celHead(0, 0, 0, 255, 3)
                           .u16(4)
                           .u16(1)
                           .u16(32)
                           .u32(0x1fffffff)
                           .u32(0x20000000)
                           .u32(0x40000000)
                           .u32(0x80000000)
                           .zeros(10)
                           .bytes(AsepriteFile::packed(map))
                           .get());
    const QImage wall = drawingOf(write("tiles.ase", file.bytes())).layers.at(0).shapes.front().picture;
    ASSERT_EQ(wall.size(), QSize(8, 2));
    EXPECT_EQ(wall.pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(wall.pixel(1, 0), qRgba(0, 0, 255, 128));
    // Mirrored left to right.
    EXPECT_EQ(wall.pixel(3, 0), qRgb(255, 0, 0));
    EXPECT_EQ(wall.pixel(2, 0), qRgba(0, 0, 255, 128));
    EXPECT_EQ(wall.pixel(4, 0), 0u);
    // Rows and columns exchanged.
    EXPECT_EQ(wall.pixel(6, 0), qRgb(255, 0, 0));
    EXPECT_EQ(wall.pixel(6, 1), qRgba(0, 0, 255, 128));
}

TEST_F(LayeredReader, FramesOfAsepriteStayAsLongAsTheFileSays)
{
    AsepriteFile file(4, 4);
    file.frame(50);
    file.layer("body");
    file.layer("hat");
    file.packedCel(0, 0, 0, 1, 1, kRed);
    file.frame(100);
    file.linkedCel(0, 0);
    file.packedCel(1, 0, 0, 1, 1, kBlue);
    file.chunk(0x2018, LittleEndian().u16(1).zeros(8).u16(1).u16(2).u8(0).u16(0).zeros(6).zeros(4).text("run").get());
    file.frame(50);
    file.packedCel(0, 1, 0, 1, 1, kRed);
    const DIO_Animation film = framesOf(write("film.aseprite", file.bytes()));
    EXPECT_DOUBLE_EQ(film.frameRate, 20.0);
    EXPECT_EQ(film.frames, 4);
    ASSERT_EQ(film.layers.size(), 2u);
    EXPECT_THAT(film.layers[0].shown, ElementsAre(0, 0, 0, 1));
    EXPECT_THAT(film.layers[1].shown, ElementsAre(-1, 0, 0, -1));
    EXPECT_THAT(film.warnings.join(u'\n').toStdString(), HasSubstr("run is 2-4"));
}

TEST_F(LayeredReader, BlendModesThatAreNotKeptAreSaidOnce)
{
    AsepriteFile file(4, 4);
    file.frame(100);
    file.layer("flat");
    file.layer("shade", AsepriteFile::kVisible, 0, 0, 1);
    file.layer("glow", AsepriteFile::kVisible, 0, 0, 16);
    file.layer("hidden", 0, 0, 0, 2);
    file.packedCel(0, 0, 0, 1, 1, kRed);
    const DIO_Drawing drawing = drawingOf(write("modes.ase", file.bytes()));
    EXPECT_EQ(drawing.warnings, QStringList{"blend modes are shown as normal: multiply (shade), addition (glow)"});
}

TEST_F(LayeredReader, LayersOfOpenRasterLieFromTheBottomUp)
{
    const char* const stack = R"(<?xml version='1.0' encoding='UTF-8'?>
        <image w="20" h="10" version="0.0.3"><stack>
          <layer name="hat" src="data/hat.png" x="3" y="-1" opacity="0.5" composite-op="svg:multiply"/>
          <stack name="head" opacity="0.5">
            <layer name="eye" src="data/eye.png" x="1" y="2" visibility="visible"/>
            <layer name="old" src="data/missing.png" visibility="hidden"/>
          </stack>
          <layer src="data/eye.png"/>
        </stack></image>)";
    QImage hat(2, 1, QImage::Format_RGBA64);
    hat.fill(QColor::fromRgba64(0x1234, 0x5678, 0x9abc, 0xffff));
    writeArchive(path("hero.ora"), {{"mimetype", "image/openraster"},
                                    {"stack.xml", stack},
                                    {"data/hat.png", pngOf(hat)},
                                    {"data/eye.png", pngOf(filled(3, 2, QColor(10, 20, 30, 40)))}});
    const DIO_Drawing drawing = drawingOf(path("hero.ora"));
    EXPECT_EQ(drawing.size, QSizeF(20, 10));
    ASSERT_EQ(namesOf(drawing), (QStringList{"Layer 1", "head/eye", "hat"}));
    EXPECT_EQ(placeOf(drawing.layers[1]), QRectF(1, 2, 3, 2));
    EXPECT_EQ(drawing.layers[1].shapes.front().picture.pixel(2, 1), qRgba(10, 20, 30, 40));
    EXPECT_DOUBLE_EQ(drawing.layers[1].shapes.front().opacity, 0.5);
    EXPECT_EQ(placeOf(drawing.layers[2]), QRectF(3, -1, 2, 1));
    EXPECT_EQ(drawing.layers[2].shapes.front().picture.pixelColor(0, 0).rgba64().red(), 0x1234);
    EXPECT_EQ(drawing.warnings, QStringList{"blend modes are shown as normal: multiply (hat)"});
}

TEST_F(LayeredReader, LayersOfOpenRasterThatShareAPictureShareItsMemory)
{
    const QByteArray layer = R"(<layer name="eye" src="data/eye.png"/>)";
    writeArchive(path("pair.ora"), {{"stack.xml", R"(<image w="4" h="4"><stack>)" + layer + layer + "</stack></image>"},
                                    {"data/eye.png", pngOf(filled(3, 2, QColor(10, 20, 30)))}});
    const DIO_Drawing drawing = drawingOf(path("pair.ora"));
    ASSERT_EQ(drawing.layers.size(), 2U);
    const QImage& lower = drawing.layers[0].shapes.front().picture;
    const QImage& upper = drawing.layers[1].shapes.front().picture;
    EXPECT_EQ(upper.pixel(2, 1), qRgb(10, 20, 30));
    EXPECT_EQ(upper.constBits(), lower.constBits());
}

TEST_F(LayeredReader, ALayerOfOpenRasterThatIsInNoStackIsReadByItsName)
{
    writeArchive(path("bare.ora"),
                 {{"mimetype", "image/openraster"},
                  {"stack.xml", R"(<image w="4" h="4"><layer name="eye" src="data/eye.png"/></image>)"},
                  {"data/eye.png", pngOf(filled(3, 2, QColor(10, 20, 30)))}});
    EXPECT_EQ(namesOf(drawingOf(path("bare.ora"))), QStringList{"eye"});
}

TEST_F(LayeredReader, OpenRasterOfKritaShowsItsPixels)
{
    const DIO_Drawing drawing = drawingOf(QStringLiteral(TEST_FILES "/krita.ora"));
    ASSERT_EQ(drawing.layers.size(), 1u);
    const QPointF place = placeOf(drawing.layers[0]).topLeft();
    expectBlocks(drawing.layers[0].shapes.front().picture, place.toPoint(), 0);
}

TEST_F(LayeredReader, MovingPicturesKeepTheirPixelsAndTimes)
{
    struct Case
    {
        const char* file;
        double rate;
        std::vector<int> shown;
    };
    // Written by ImageMagick and ffmpeg.
    for (const auto& [file, rate, shown] :
         {Case{"blocks.gif", 10.0, {0, 1, 2, 2}}, Case{"blocks.apng", 10.0, {0, 1, 2}},
          Case{"blocks.webp", 10.0, {0, 1, 2}}}) {
        SCOPED_TRACE(file);
        const QString path = QStringLiteral(TEST_FILES "/") + QString::fromLatin1(file);
        const bool isKnown = DIO_drawingKindOf(path) != nullptr;
        if (!isKnown && QString::fromLatin1(file).endsWith(QLatin1String("webp")))
            continue; // Qt's plug-in for WebP is not installed
        const DIO_Animation film = framesOf(path);
        EXPECT_DOUBLE_EQ(film.frameRate, rate);
        ASSERT_EQ(film.layers.size(), 1u);
        EXPECT_EQ(film.layers[0].shown, shown);
        ASSERT_EQ(film.layers[0].drawings.size(), 3u);
        for (int i = 0; i < 3; ++i) {
            const QImage& picture = film.layers[0].drawings[static_cast<std::size_t>(i)].front().picture;
            ASSERT_EQ(picture.size(), QSize(16, 12));
            expectBlocks(picture, {}, i);
        }
    }
}

TEST_F(LayeredReader, AStillHasNoFrames)
{
    const QString png = path("still.png");
    ASSERT_TRUE(filled(3, 3, Qt::red).save(png));
    const auto frames = DIO_readFrames(png);
    ASSERT_TRUE(frames);
    EXPECT_FALSE(frames->has_value());
}

TEST_F(LayeredReader, AFileInWhichNothingShowsIsRefused)
{
    AsepriteFile file(4, 4);
    file.frame(100);
    file.layer("hidden", 0);
    file.layer("clear");
    file.packedCel(0, 0, 0, 1, 1, kRed);
    file.packedCel(1, 0, 0, 1, 1, QByteArray(4, '\0'));
    EXPECT_THAT(refusalOf(write("blank.ase", file.bytes())), HasSubstr("nothing shows in it"));
}
