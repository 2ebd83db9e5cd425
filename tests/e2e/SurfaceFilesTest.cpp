// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures beside the map: heights, ambient occlusion, object numbers and gloss, of drawings, sheets and scenes.
#include "ProgramFixture.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

#include <algorithm>

using testing::HasSubstr;

namespace {

using U16 = std::uint16_t;

// A square of 40 x 40 in a frame of 72 x 72, one scene unit being a tenth of a pixel, and a disc on top of its middle.
const char* const kTwoObjects = R"(<svg xmlns="http://www.w3.org/2000/svg"
  xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" width="72" height="72">
  <g inkscape:groupmode="layer" inkscape:label="square"><rect x="16" y="16" width="40" height="40" fill="#ff0000"/></g>
  <g inkscape:groupmode="layer" inkscape:label="disc"><circle cx="36" cy="36" r="10" fill="#0000ff"/></g>
</svg>)";

// Both objects have steep rims, so that their middles lie at their full heights: 2 and 1 times 37.5 tenths of a pixel.
const char* const kSteep = " --object 1:bevel=1:elevation=2 --object 2:bevel=1:elevation=1";

class SurfaceFiles : public Program
{
protected:
    void SetUp() override { write("two.svg", kTwoObjects); }

    Outcome made(const char* options) const
    {
        return quarvel(QStringLiteral("normalmap two.svg") + QLatin1String(options) + QLatin1String(kSteep));
    }

    float floatAt(const char* file, int x, int y) const
    {
        return read(file).row<float>(y)[static_cast<std::size_t>(x)];
    }

    U16 codeAt(const char* file, int x, int y) const { return read(file).row<U16>(y)[static_cast<std::size_t>(x)]; }
};

} // namespace

TEST_F(SurfaceFiles, HeightsAreInPixelsAndObjectsLieOnEachOther)
{
    const Outcome outcome = made(" --height height.exr");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_NEAR(floatAt("height.exr", 22, 22), 7.5F, 0.01F);
    EXPECT_NEAR(floatAt("height.exr", 36, 36), 7.5F + 3.75F, 0.2F);
    EXPECT_EQ(floatAt("height.exr", 2, 2), 0.0F);
}

TEST_F(SurfaceFiles, HeightsOfIntegersReachFromBlackToWhiteOrToWhatWasAsked)
{
    ASSERT_EQ(made(" --height height.png").exitCode, 0);
    const IIO_Picture own = read("height.png");
    const auto row = own.row<U16>(36);
    EXPECT_EQ(*std::ranges::max_element(row), 65535);
    EXPECT_EQ(row[2], 0);
    EXPECT_THAT(own.metadata().value(QStringLiteral("Heights")).toStdString(),
                HasSubstr("black = 0 pixels, white = 11."));

    // 7.5 of 15 pixels is half.
    ASSERT_EQ(made(" --height half.png --height-range 15").exitCode, 0);
    EXPECT_NEAR(codeAt("half.png", 22, 22), 32768, 50);
}

TEST_F(SurfaceFiles, OcclusionIsDarkAtTheFootOfTheDiscAndWhiteOnTopOfIt)
{
    const Outcome outcome = made(" --occlusion ao.png");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_EQ(read("ao.png").channels(), IIO_channelsGrey());
    EXPECT_GT(codeAt("ao.png", 36, 36), 65000);
    EXPECT_EQ(codeAt("ao.png", 2, 2), 65535);
    EXPECT_LT(codeAt("ao.png", 25, 36), 55000);
    EXPECT_LT(codeAt("ao.png", 25, 36), codeAt("ao.png", 19, 36));
}

TEST_F(SurfaceFiles, NumbersAreTheFilesSamples)
{
    ASSERT_EQ(made(" --numbers n.png").exitCode, 0);
    EXPECT_EQ(codeAt("n.png", 2, 2), 0);
    EXPECT_EQ(codeAt("n.png", 20, 20), 1);
    EXPECT_EQ(codeAt("n.png", 36, 36), 2);
    ASSERT_EQ(made(" --numbers n8.png --bits 8").exitCode, 0);
    EXPECT_EQ(QImage(path("n8.png")).pixelColor(36, 36).red(), 2);
}

TEST_F(SurfaceFiles, OpenExrHoldsTheNumbersAsALayer)
{
    ASSERT_EQ(made(" -o map.exr --exr numbers").exitCode, 0);
    const IIO_Picture layers = read("map.exr");
    ASSERT_TRUE(layers.channels().contains(QStringLiteral("object.id")));
    const auto channel = static_cast<std::size_t>(layers.channels().indexOf(QStringLiteral("object.id")));
    const auto count = static_cast<std::size_t>(layers.channelCount());
    EXPECT_EQ(layers.row<float>(36)[36 * count + channel], 2.0F);
    EXPECT_EQ(layers.row<float>(36)[20 * count + channel], 1.0F);
}

// 0.8 of 255 is 204, and 0.2 is 51. Beside the silhouette the mask continues for four pixels.
TEST_F(SurfaceFiles, GlossIsThatOfTheColours)
{
    const Outcome outcome = made(" --gloss #ff0000=0.8 --gloss all=0.2");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_NEAR(codeAt("two_gloss.png", 20, 20), 204 * 257, 1);
    EXPECT_NEAR(codeAt("two_gloss.png", 36, 36), 51 * 257, 1);
    EXPECT_NEAR(codeAt("two_gloss.png", 12, 36), 204 * 257, 1);
    EXPECT_EQ(codeAt("two_gloss.png", 11, 36), 0);
}

TEST_F(SurfaceFiles, GlossIsNoCoarserThanItsFile)
{
    ASSERT_EQ(made(" --gloss #ff0000=0.3 --gloss all=0.001").exitCode, 0);
    EXPECT_NEAR(codeAt("two_gloss.png", 20, 20), 0.3 * 65535, 2);
    EXPECT_NEAR(codeAt("two_gloss.png", 36, 36), 0.001 * 65535, 2);
}

TEST_F(SurfaceFiles, GlossBecomesRoughnessForProgramsThatTakeThat)
{
    ASSERT_EQ(made(" --gloss #00f=1 --for three").exitCode, 0);
    EXPECT_EQ(codeAt("two_roughness.png", 36, 36), 0);
    EXPECT_EQ(codeAt("two_roughness.png", 20, 20), 65535);
}

TEST_F(SurfaceFiles, AColourThatIsNowhereIsTold)
{
    const Outcome outcome = made(" --gloss #123456=1");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.messages, HasSubstr("no place has the colour #123456 of --gloss"));
}

TEST_F(SurfaceFiles, AreNamedAsTheTargetWantsThem)
{
    ASSERT_TRUE(QDir(path("")).mkdir(QStringLiteral("out")));
    ASSERT_EQ(made(" --for unreal -o out --height out --occlusion out --gloss #00f=1 --gloss-file out").exitCode, 0);
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files, QDir::Name),
              (QStringList{"two_AO.png", "two_H.png", "two_N.png", "two_R.png"}));
}

TEST_F(SurfaceFiles, OfASheetAreThoseOfItsSprites)
{
    // Two equal sprites, side by side.
    QImage sprite(24, 24, QImage::Format_ARGB32);
    sprite.fill(0);
    QPainter(&sprite).fillRect(4, 4, 16, 16, QColor(255, 0, 0));
    QImage page(48, 24, QImage::Format_ARGB32);
    page.fill(0);
    QPainter painter(&page);
    painter.drawImage(0, 0, sprite);
    painter.drawImage(24, 0, sprite);
    painter.end();
    ASSERT_TRUE(sprite.save(path("alone.png")));
    ASSERT_TRUE(page.save(path("page.png")));
    const char* const options =
        " --height %1_h.png --occlusion %1_ao.png --numbers %1_id.png --gloss #f00=1 --gloss-file "
        "%1_g.png";
    ASSERT_EQ(quarvel(QStringLiteral("normalmap alone.png") + QString::fromLatin1(options).arg("alone")).exitCode, 0);
    const Outcome outcome =
        quarvel(QStringLiteral("normalmap page.png --cells 24x24") + QString::fromLatin1(options).arg("page"));
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    for (const char* const kind : {"_h.png", "_ao.png", "_id.png", "_g.png"}) {
        const IIO_Picture alone = read(("alone" + std::string(kind)).c_str());
        const IIO_Picture both = read(("page" + std::string(kind)).c_str());
        for (int y = 0; y < 24; ++y)
            for (std::size_t x = 0; x < 48; ++x)
                ASSERT_EQ(both.row<U16>(y)[x], alone.row<U16>(y)[x % 24]) << kind << " " << x << ", " << y;
    }
}

TEST_F(SurfaceFiles, OfASceneAreThoseOfTheDrawing)
{
    ASSERT_EQ(quarvel("import two.svg -o two.scene").exitCode, 0);
    const Outcome rendered = quarvel("render two.scene --resolution 72x72 --height h.exr --occlusion ao.png --numbers "
                                     "n.png --gloss #f00=0.8 --gloss-file g.png -o map.exr --exr numbers --pad 4");
    ASSERT_EQ(rendered.exitCode, 0) << rendered.messages;
    ASSERT_EQ(
        quarvel("normalmap two.svg --height own_h.exr --occlusion own_ao.png --numbers own_n.png --gloss #f00=0.8 "
                "--gloss-file own_g.png")
            .exitCode,
        0);
    for (int y = 0; y < 72; ++y)
        for (int x = 0; x < 72; x += 5) {
            ASSERT_EQ(floatAt("h.exr", x, y), floatAt("own_h.exr", x, y)) << x << ", " << y;
            ASSERT_EQ(codeAt("ao.png", x, y), codeAt("own_ao.png", x, y)) << x << ", " << y;
            ASSERT_EQ(codeAt("n.png", x, y), codeAt("own_n.png", x, y)) << x << ", " << y;
            ASSERT_EQ(codeAt("g.png", x, y), codeAt("own_g.png", x, y)) << x << ", " << y;
        }
    EXPECT_TRUE(read("map.exr").channels().contains(QStringLiteral("object.id")));
}

TEST_F(SurfaceFiles, OfHeightsAreRefusedForANodeWithoutThemBeforeAnythingIsRendered)
{
    ASSERT_EQ(quarvel("import two.svg -o two.scene").exitCode, 0);
    for (const char* const option : {"--height", "--occlusion"}) {
        const Outcome refused =
            quarvel(QStringLiteral("render two.scene --node Drawing --resolution 72x72 -o map.png %1 surface.exr")
                        .arg(QLatin1String(option)));
        EXPECT_NE(refused.exitCode, 0);
        EXPECT_EQ(refused.messages, "quarvel: heights follow from normals or elevation, and the node makes neither; "
                                    "choose a Vallorin node with --node\n");
        EXPECT_FALSE(exists("map.png")) << option;
    }
}

TEST_F(SurfaceFiles, OfASceneWithIntegersHaveOneRangeForAllFrames)
{
    // The second frame has the drawing at half its size, which is half as high.
    write("f_1.svg", bytes("two.svg"));
    QByteArray small = bytes("two.svg");
    const auto end = small.indexOf('>') + 1;
    write("f_2.svg", small.insert(end, "<g transform='scale(0.5)'>").replace("</svg>", "</g></svg>"));
    ASSERT_EQ(quarvel("import f_1.svg f_2.svg -o two.scene --objects one").exitCode, 0);
    const QString words = QStringLiteral("render two.scene --resolution 72x72 --height %1.#.%2");
    const Outcome coded = quarvel(words.arg("h", "png"));
    ASSERT_EQ(coded.exitCode, 0) << coded.messages;
    EXPECT_THAT(coded.output, HasSubstr("pixels in all frames; --height-range says so to other runs"));
    ASSERT_EQ(quarvel(words.arg("f", "exr")).exitCode, 0);
    const IIO_Picture heights[] = {read("f.1.exr"), read("f.2.exr")};
    const IIO_Picture codes[] = {read("h.1.png"), read("h.2.png")};
    float most = 0.0F;
    for (const IIO_Picture& frame : heights)
        for (int y = 0; y < 72; ++y)
            most = std::max(most, std::ranges::max(frame.row<float>(y)));
    for (const int frame : {0, 1})
        for (int y = 0; y < 72; ++y)
            for (std::size_t x = 0; x < 72; ++x)
                ASSERT_NEAR(codes[frame].row<U16>(y)[x], heights[frame].row<float>(y)[x] / most * 65535.0F, 1.0F);
}

TEST_F(SurfaceFiles, PartsOfARunNeedTheRangeToBeSaid)
{
    ASSERT_EQ(quarvel("import two.svg -o two.scene").exitCode, 0);
    const Outcome outcome = quarvel("render two.scene --height h.#.png --shard 1/2");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("--height-range"));
    EXPECT_FALSE(exists("h.1.png"));
}

TEST_F(SurfaceFiles, GlossThatCannotBeReadIsSaid)
{
    EXPECT_THAT(made(" --gloss #9aa").messages, HasSubstr("a colour and its gloss, such as '#9aa=0.8'"));
    EXPECT_THAT(made(" --gloss #9aa=2").messages, HasSubstr("from 0 to 1"));
    EXPECT_THAT(made(" --gloss-file g.png").messages, HasSubstr("goes with --gloss"));
}
