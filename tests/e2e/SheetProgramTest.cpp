// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pages of many sprites: each region is the sprite rendered alone, to the bit, wherever and however it lies.
#include "ProgramFixture.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

using U16 = std::uint16_t;
using Pixel = std::array<U16, 4>;

// 24 x 16 pixels, of which 17 x 12 from 3, 2 on show anything; no two of its sides are alike.
QImage sprite()
{
    QImage image(24, 16, QImage::Format_ARGB32);
    image.fill(0);
    QPainter painter(&image);
    painter.fillRect(3, 2, 12, 12, QColor(200, 80, 40));
    painter.fillRect(15, 5, 5, 4, QColor(40, 80, 200));
    return image;
}

constexpr QRect kTrimmed(3, 2, 17, 12);

Pixel pixelAt(const IIO_Picture& picture, int x, int y)
{
    Pixel pixel{};
    std::copy_n(picture.row<U16>(y).begin() + std::ptrdiff_t{4} * x, 4, pixel.begin());
    return pixel;
}

U16 negated(U16 sample)
{
    return sample == 32768 ? sample : static_cast<U16>(65535 - sample);
}

class SheetProgram : public Program
{
protected:
    void save(const char* name, const QImage& image) const { ASSERT_TRUE(image.save(path(name))); }

    // A page with the sprite as it is, turned clockwise, and turned counter-clockwise.
    void savePage() const
    {
        const QImage trimmed = sprite().copy(kTrimmed);
        QImage page(64, 32, QImage::Format_ARGB32);
        page.fill(0);
        QPainter painter(&page);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(1, 1, trimmed);
        painter.drawImage(24, 1, trimmed.transformed(QTransform().rotate(90)));
        painter.drawImage(40, 1, trimmed.transformed(QTransform().rotate(-90)));
        painter.end();
        save("page.png", page);
        save("alone.png", sprite());
    }

    static void expectStraight(const IIO_Picture& page, const IIO_Picture& alone)
    {
        for (int y = 0; y < kTrimmed.height(); ++y)
            for (int x = 0; x < kTrimmed.width(); ++x)
                ASSERT_EQ(pixelAt(page, 1 + x, 1 + y), pixelAt(alone, 3 + x, 2 + y)) << x << ", " << y;
    }
};

const char* const kJson = R"({"frames": [
  {"filename": "straight", "frame": {"x": 1, "y": 1, "w": 17, "h": 12}, "rotated": false, "trimmed": true,
   "spriteSourceSize": {"x": 3, "y": 2, "w": 17, "h": 12}, "sourceSize": {"w": 24, "h": 16}},
  {"filename": "turned", "frame": {"x": 24, "y": 1, "w": 17, "h": 12}, "rotated": true, "trimmed": true,
   "spriteSourceSize": {"x": 3, "y": 2, "w": 17, "h": 12}, "sourceSize": {"w": 24, "h": 16}}],
  "meta": {"image": "page.png"}})";

// Offsets count from the lower left: 16 - 2 - 12 is 2.
const char* const kAtlas = "page.png\nsize: 64, 32\nstraight\n  bounds: 1, 1, 17, 12\n  offsets: 3, 2, 24, 16\n"
                           "turned\n  rotate: 90\n  bounds: 40, 1, 17, 12\n  offsets: 3, 2, 24, 16\n";

} // namespace

// A sprite that lies turned: its pixels lie as on the page, each with the vector of the sprite alone.
TEST_F(SheetProgram, LeavesVectorsAsTheyAreForProgramsThatTakeThemSo)
{
    savePage();
    write("page.json", kJson);
    ASSERT_EQ(quarvel("normalmap alone.png --for melonjs").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap --atlas page.json --for melonjs").exitCode, 0);
    const IIO_Picture page = read("page_n.png");
    const IIO_Picture alone = read("alone_n.png");
    for (int y = 0; y < kTrimmed.height(); ++y)
        for (int x = 0; x < kTrimmed.width(); ++x)
            ASSERT_EQ(pixelAt(page, 24 + kTrimmed.height() - 1 - y, 1 + x), pixelAt(alone, 3 + x, 2 + y))
                << x << ", " << y;
}

TEST_F(SheetProgram, EveryCellIsTheSpriteRenderedAlone)
{
    QImage page(24 * 3 + 2 * 2 + 2, 16 + 2, QImage::Format_ARGB32);
    page.fill(0);
    QPainter painter(&page);
    for (int i = 0; i < 3; ++i)
        painter.drawImage(1 + 26 * i, 1, sprite());
    painter.end();
    save("page.png", page);
    save("alone.png", sprite());
    const Outcome outcome = quarvel("normalmap page.png --cells 24x16 --margin 1 --spacing 2 --lit lit.png");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("sprites: 3"));
    EXPECT_EQ(outcome.messages, "");
    ASSERT_EQ(quarvel("normalmap alone.png --lit alone_lit.png").exitCode, 0);
    for (const auto& [ofPage, ofSprite] : {std::pair{"page_n.png", "alone_n.png"}, {"lit.png", "alone_lit.png"}}) {
        const IIO_Picture map = read(ofPage);
        const IIO_Picture alone = read(ofSprite);
        ASSERT_EQ(map.width(), page.width());
        ASSERT_EQ(map.height(), page.height());
        for (int i = 0; i < 3; ++i)
            for (int y = 0; y < 16; ++y)
                for (int x = 0; x < 24; ++x)
                    ASSERT_EQ(pixelAt(map, 1 + 26 * i + x, 1 + y), pixelAt(alone, x, y)) << i << ": " << x << ", " << y;
    }
    EXPECT_EQ(pixelAt(read("page_n.png"), 0, 0), (Pixel{32768, 32768, 65535, 65535})) << "between the cells it is flat";
}

TEST_F(SheetProgram, WarnsOfCellsThatMissAPartOfThePage)
{
    QImage page(48, 16, QImage::Format_ARGB32);
    page.fill(0);
    QPainter painter(&page);
    painter.drawImage(0, 0, sprite());
    painter.drawImage(24, 0, sprite());
    painter.end();
    save("page.png", page);
    // The first cell ends within the second sprite, and the second cell would leave the page.
    const Outcome missed = quarvel("normalmap page.png --cells 32x16");
    EXPECT_EQ(missed.exitCode, 0);
    EXPECT_THAT(missed.messages, HasSubstr("page.png: warning: something on the page lies in none of the 1 cells"));
    // Where the whole page is painted, what lies between cells may be its backdrop.
    QImage opaque(48, 16, QImage::Format_ARGB32);
    opaque.fill(Qt::white);
    QPainter over(&opaque);
    over.drawImage(0, 0, page);
    over.end();
    save("opaque.png", opaque);
    EXPECT_THAT(quarvel("normalmap opaque.png --cells 32x16").messages, Not(HasSubstr("cells")));
}

TEST_F(SheetProgram, TurnsVectorsWithSpritesThatAnAtlasTurned)
{
    savePage();
    write("page.json", kJson);
    const Outcome outcome = quarvel("normalmap --atlas page.json");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    ASSERT_EQ(quarvel("normalmap alone.png").exitCode, 0);
    const IIO_Picture page = read("page_n.png");
    const IIO_Picture alone = read("alone_n.png");
    EXPECT_NE(pixelAt(alone, 3, 8)[0], 32768) << "the sprite has volume";
    expectStraight(page, alone);
    for (int y = 0; y < kTrimmed.height(); ++y)
        for (int x = 0; x < kTrimmed.width(); ++x) {
            // Clockwise: the upper left corner is the upper right one, and what faced right faces down.
            const Pixel was = pixelAt(alone, 3 + x, 2 + y);
            ASSERT_EQ(pixelAt(page, 24 + 11 - y, 1 + x), (Pixel{was[1], negated(was[0]), was[2], was[3]}));
        }
    QFile atlas(path("page_n.json"));
    ASSERT_TRUE(atlas.open(QIODevice::ReadOnly));
    EXPECT_THAT(atlas.readAll().toStdString(), HasSubstr("\"page_n.png\""));
}

TEST_F(SheetProgram, ReadsWhatSpinePacked)
{
    savePage();
    write("page.atlas", kAtlas);
    const Outcome outcome = quarvel("normalmap --atlas page.atlas --y down");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    ASSERT_EQ(quarvel("normalmap alone.png --y down").exitCode, 0);
    const IIO_Picture page = read("page_n.png");
    const IIO_Picture alone = read("alone_n.png");
    expectStraight(page, alone);
    for (int y = 0; y < kTrimmed.height(); ++y)
        for (int x = 0; x < kTrimmed.width(); ++x) {
            // Counter-clockwise: the upper left corner is the lower left one, and what faced right faces up, which is
            // negative here.
            const Pixel was = pixelAt(alone, 3 + x, 2 + y);
            ASSERT_EQ(pixelAt(page, 40 + y, 1 + 16 - x), (Pixel{was[1], negated(was[0]), was[2], was[3]}));
        }
}

TEST_F(SheetProgram, GivesTheFramesOfAnAnimationOneSetOfValues)
{
    // Discs of other sizes: alone each is rounded by its own breadth.
    QImage page(64, 32, QImage::Format_ARGB32);
    page.fill(0);
    QPainter painter(&page);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(4, 4, 24, 24);
    painter.drawEllipse(32 + 10, 10, 12, 12);
    painter.end();
    save("page.png", page);
    ASSERT_EQ(quarvel("normalmap page.png --cells 32 -o own.png").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap page.png --cells 32 --animation -o shared.png").exitCode, 0);
    const auto differs = [&](int from) {
        const IIO_Picture own = read("own.png");
        const IIO_Picture shared = read("shared.png");
        for (int y = 0; y < 32; ++y)
            for (int x = from; x < from + 32; ++x)
                if (pixelAt(own, x, y) != pixelAt(shared, x, y))
                    return true;
        return false;
    };
    EXPECT_NE(differs(0), differs(32)) << "one of the two lends its values to the other";
}

TEST_F(SheetProgram, ShowsEveryPartOfASpriteOfSeveralColours)
{
    save("alone.png", sprite());
    ASSERT_EQ(quarvel("normalmap alone.png --drawing drawing.png --alpha coverage").exitCode, 0);
    const QImage shown(path("drawing.png"));
    const IIO_Picture map = read("alone_n.png");
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 24; ++x) {
            EXPECT_EQ(shown.pixel(x, y), sprite().pixel(x, y)) << x << ", " << y;
            EXPECT_EQ(pixelAt(map, x, y)[3], qAlpha(sprite().pixel(x, y)) * 257) << x << ", " << y;
        }
}

TEST_F(SheetProgram, WritesMapsForMirroredSprites)
{
    save("alone.png", sprite());
    ASSERT_EQ(quarvel("normalmap alone.png --flips").exitCode, 0);
    const Pixel map = pixelAt(read("alone_n.png"), 3, 8);
    ASSERT_NE(map[0], 32768);
    EXPECT_EQ(pixelAt(read("alone_n_flipx.png"), 3, 8), (Pixel{negated(map[0]), map[1], map[2], map[3]}));
    EXPECT_EQ(pixelAt(read("alone_n_flipy.png"), 3, 8), (Pixel{map[0], negated(map[1]), map[2], map[3]}));
}

TEST_F(SheetProgram, LetsTheEdgesOfATileMeet)
{
    // A brick of 28 pixels that begins at column 30 and ends at column 10 of the next tile.
    QImage tile(48, 24, QImage::Format_ARGB32);
    tile.fill(0);
    QPainter painter(&tile);
    painter.fillRect(30, 4, 18, 16, QColor(200, 120, 60));
    painter.fillRect(0, 4, 10, 16, QColor(200, 120, 60));
    painter.end();
    save("tile.png", tile);
    ASSERT_EQ(quarvel("normalmap tile.png --tile x --pad 0").exitCode, 0);
    const IIO_Picture map = read("tile_n.png");
    ASSERT_EQ(map.width(), 48);
    ASSERT_EQ(map.height(), 24);
    const auto lean = [&](int x) { return pixelAt(map, x, 12)[0] - 32768; };
    EXPECT_LT(lean(30), -8000) << "the brick's left end leans left";
    EXPECT_GT(lean(9), 8000) << "its right end leans right";
    EXPECT_NEAR(lean(30), -lean(9), 300) << "as much";
    // Its middle is column 44; on either side of the border, at 47 and 0, it has begun to fall.
    EXPECT_NEAR(lean(43), -lean(44), 300);
    EXPECT_GE(lean(0), lean(47));
    EXPECT_LT(lean(0) - lean(47), lean(9) / 2) << "no step at the border";
}

// Two tiles: ground that fills its cell, and ground that ends in the middle of its cell, in one colour.
TEST_F(SheetProgram, ConnectedCellsAreNotRoundedWhereTheyTouch)
{
    QImage page(64, 32, QImage::Format_ARGB32);
    page.fill(0);
    QPainter(&page).fillRect(0, 0, 48, 32, QColor(120, 90, 60));
    save("ground.png", page);
    const QString how =
        QStringLiteral("normalmap ground.png --cells 32x32 --bevel 60 -o %1.png --elevation %1_e.png%2");
    ASSERT_EQ(quarvel(how.arg("single", "")).exitCode, 0);
    ASSERT_EQ(quarvel(how.arg("connected", " --connected")).exitCode, 0);
    const IIO_Picture single = read("single.png");
    const IIO_Picture connected = read("connected.png");
    EXPECT_EQ(connected.width(), 64);
    constexpr U16 kFlat = 32768;
    EXPECT_NE(pixelAt(single, 0, 16)[0], kFlat) << "a cell alone ends at its border";
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(pixelAt(connected, x, y), (Pixel{kFlat, kFlat, 65535, 65535})) << x << ", " << y;
        EXPECT_GT(pixelAt(connected, 47, y)[0], 40000) << "the ground's own end leans right";
        EXPECT_EQ(pixelAt(connected, 47, y), pixelAt(connected, 47, 16)) << "and goes on straight";
    }
}

TEST_F(SheetProgram, ConnectedGoesWithCells)
{
    save("alone.png", sprite());
    const Outcome outcome = quarvel("normalmap alone.png --connected");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("go with --cells"));
}

TEST_F(SheetProgram, JoinsPageMapAndGlossForGodot)
{
    savePage();
    write("hero.tres", "[gd_resource type=\"SpriteFrames\" load_steps=3 format=3 uid=\"uid://a\"]\n"
                       "[ext_resource type=\"Texture2D\" uid=\"uid://b\" path=\"page.png\" id=\"1\"]\n"
                       "[sub_resource type=\"AtlasTexture\" id=\"f\"]\n"
                       "atlas = ExtResource(\"1\")\nregion = Rect2(1, 1, 17, 12)\n");
    const Outcome outcome =
        quarvel("normalmap --atlas hero.tres --for godot --canvas --gloss #c85028=1 --gloss-file gloss.png");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_EQ(bytes("page_canvas.tres").toStdString(),
              "[gd_resource type=\"CanvasTexture\" load_steps=4 format=3]\n\n"
              "[ext_resource type=\"Texture2D\" path=\"page.png\" id=\"1\"]\n"
              "[ext_resource type=\"Texture2D\" path=\"page_n.png\" id=\"2\"]\n"
              "[ext_resource type=\"Texture2D\" path=\"gloss.png\" id=\"3\"]\n\n"
              "[resource]\n"
              "diffuse_texture = ExtResource(\"1\")\n"
              "normal_texture = ExtResource(\"2\")\n"
              "specular_texture = ExtResource(\"3\")\n");
    EXPECT_THAT(bytes("hero_lit.tres").toStdString(), HasSubstr("path=\"page_canvas.tres\""));
    EXPECT_THAT(bytes("hero_n.tres").toStdString(), HasSubstr("path=\"page_n.png\""));
    // An identifier that stays would lead back to the page without light.
    EXPECT_FALSE(bytes("hero_lit.tres").contains("uid:"));
    EXPECT_FALSE(bytes("hero_n.tres").contains("uid:"));
}

TEST_F(SheetProgram, ACanvasNamesTheDrawingFromItsOwnFolder)
{
    save("alone.png", sprite());
    ASSERT_EQ(quarvel("normalmap alone.png --for godot --canvas -o maps/alone_n.png").exitCode, 0);
    EXPECT_THAT(bytes("maps/alone_canvas.tres").toStdString(), HasSubstr("path=\"../alone.png\""));
    EXPECT_EQ(quarvel("normalmap alone.png --canvas").exitCode, 2);
    EXPECT_THAT(quarvel("normalmap alone.png --for godot --canvas --size 64").messages, HasSubstr("--drawing"));
}

TEST_F(SheetProgram, SaysWhatIsWrongWithAnAtlasAndWritesNothing)
{
    savePage();
    const auto refused = [&](const char* json) {
        write("bad.json", json);
        const QStringList before = files();
        const Outcome outcome = quarvel("normalmap --atlas bad.json");
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(files(), before);
        return outcome.messages;
    };
    EXPECT_THAT(
        refused(R"({"frames": {"a": {"frame": {"x": 60, "y": 0, "w": 9, "h": 9}}}, "meta": {"image": "page.png"}})"),
        AllOf(HasSubstr("\"a\""), HasSubstr("leaves the page"), HasSubstr("64 x 32")));
    EXPECT_THAT(refused(R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 9, "h": 9}},
                                       "b/c": {"frame": {"x": 8, "y": 0, "w": 9, "h": 9}}}, "meta": {"image": "page.png"}})"),
                AllOf(HasSubstr("\"b/c\""), HasSubstr("overlap")));
    EXPECT_THAT(
        refused(R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 0, "h": 0}}}, "meta": {"image": "page.png"}})"),
        HasSubstr("no pixels"));
    EXPECT_THAT(
        refused(R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 1, "h": 1}}}, "meta": {"image": "gone.png"}})"),
        HasSubstr("gone.png is missing"));
    EXPECT_THAT(
        refused(R"({"frames": {"a": {"frame": {"x": "0", "y": 0, "w": 1, "h": 1}}}, "meta": {"image": "page.png"}})"),
        AllOf(HasSubstr("\"a\""), HasSubstr("whole numbers")));
    EXPECT_THAT(
        refused(R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 1, "h": 1}}}, "meta": {"image": "../out.png"}})"),
        HasSubstr("outside the atlas' folder"));
    EXPECT_THAT(refused("{\"frames\": "), HasSubstr("bad.json"));
    EXPECT_EQ(quarvel("normalmap page.png --atlas page.json").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap page.png --margin 2").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap page.png --cells 8 --tile x").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap page.png --cells 100").exitCode, 1);
    write("page.svg", "<svg/>");
    EXPECT_THAT(quarvel("normalmap page.svg --cells 8").messages, HasSubstr("page.svg: a page of sprites is a bitmap"));
    EXPECT_EQ(quarvel("normalmap page.png --cells 8 -o page_n.exr").exitCode, 1);
}
