// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The program as people run it: its files, its messages, its exit codes.
#include "ProgramFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// A red square of 32 x 32 in a frame of 64 x 64, with a blue disc over its middle; two layers.
const char* const kTwoLayers = R"(<svg xmlns="http://www.w3.org/2000/svg"
  xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" width="64" height="64">
  <g inkscape:groupmode="layer" inkscape:label="square"><rect x="16" y="16" width="32" height="32" fill="#ff0000"/></g>
  <g inkscape:groupmode="layer" inkscape:label="disc"><circle cx="32" cy="32" r="8" fill="#0000ff"/></g>
</svg>)";

} // namespace

TEST_F(Program, WritesTheNormalMapBesideTheDrawing)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_EQ(files(), (QStringList{"hero.svg", "hero_n.png"}));
    const IIO_Picture map = read("hero_n.png");
    EXPECT_EQ(map.width(), 64);
    EXPECT_EQ(map.height(), 64);
}

TEST_F(Program, KeepsStandardOutputForItsResultsAndKeepsQuietWhenAsked)
{
    write("hero.svg", kTwoLayers);
    EXPECT_THAT(quarvel("normalmap hero.svg").output,
                AllOf(StartsWith("hero.svg -> hero_n.png\n"), Not(HasSubstr("FINISHING"))));
    const Outcome quiet = quarvel("normalmap hero.svg --quiet");
    EXPECT_EQ(quiet.output + quiet.messages, "");
}

TEST_F(Program, NamesEveryFileThatItWrote)
{
    write("hero.svg", kTwoLayers);
    EXPECT_THAT(quarvel("normalmap hero.svg --lit lit.png --gloss all=0.5 --html hero.html").output,
                StartsWith("hero.svg -> hero_n.png, lit.png, hero.html, hero_gloss.png\n"));
    EXPECT_THAT(quarvel("normalmap hero.svg --html hero.html --json").output, HasSubstr("\"page\": \"hero.html\""));
}

// Icons say how large they are in a line of text.
TEST_F(Program, SaysWhatMakesASmallMapLarger)
{
    write("hero.svg", kTwoLayers);
    write("large.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="256" height="64">
        <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
    EXPECT_THAT(quarvel("normalmap hero.svg large.svg -o maps").output,
                HasSubstr("maps of less than 256 pixels a side, because their drawings say so: 1; --size 1024"));
    const auto saysNothing = Not(HasSubstr("--size"));
    EXPECT_THAT(quarvel("normalmap large.svg").output, saysNothing);
    EXPECT_THAT(quarvel("normalmap hero.svg --size 64").output, saysNothing);
    EXPECT_THAT(quarvel("normalmap hero_n.png -o sprite_n.png").output, saysNothing) << "a sprite has its pixels";
}

TEST_F(Program, EveryTangentVectorHasUnitLengthAndFacesTheViewerWhereNothingIs)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg -o map.exr --quality high --exr map --alpha coverage --pad 0").exitCode, 0);
    const IIO_Picture map = read("map.exr");
    for (int y = 0; y < map.height(); ++y)
        for (int x = 0; x < map.width(); ++x) {
            const float* p = map.row<float>(y).data() + static_cast<std::ptrdiff_t>(x) * 4;
            const double nx = 2.0 * p[0] - 1.0;
            const double ny = 2.0 * p[1] - 1.0;
            const double nz = 2.0 * p[2] - 1.0;
            ASSERT_NEAR(std::sqrt(nx * nx + ny * ny + nz * nz), 1.0, 1e-6) << x << ", " << y;
            if (p[3] == 0.0F) {
                ASSERT_EQ(nz, 1.0) << x << ", " << y;
            }
        }
}

TEST_F(Program, LeansNormalsOutwardsAndTurnsYWithTheOrientation)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg -o up.exr --objects one --exr map").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap hero.svg -o down.exr --objects one --y down --exr map").exitCode, 0);
    const IIO_Picture up = read("up.exr");
    const IIO_Picture down = read("down.exr");
    const auto at = [](const IIO_Picture& map, int x, int y, int channel) {
        return map.row<float>(y)[static_cast<std::size_t>(4 * x + channel)] - 0.5F;
    };
    EXPECT_LT(at(up, 17, 32, 0), 0.0F) << "the left edge faces left";
    EXPECT_GT(at(up, 46, 32, 0), 0.0F) << "the right edge faces right";
    EXPECT_GT(at(up, 32, 17, 1), 0.0F) << "the upper edge faces up, which is positive";
    EXPECT_LT(at(down, 32, 17, 1), 0.0F) << "the upper edge faces up, which is negative with y down";
    EXPECT_EQ(up.metadata().value("Y"), "up");
    EXPECT_EQ(down.metadata().value("Y"), "down");
}

TEST_F(Program, PadsColoursButNotCoverage)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg -o plain.png --no-clip --alpha coverage --pad 0").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap hero.svg -o padded.png --no-clip --alpha coverage --pad 3").exitCode, 0);
    const IIO_Picture plain = read("plain.png");
    const IIO_Picture padded = read("padded.png");
    const auto sample = [](const IIO_Picture& map, int x, int y, int channel) {
        return map.row<std::uint16_t>(y)[static_cast<std::size_t>(4 * x + channel)];
    };
    EXPECT_EQ(sample(plain, 14, 32, 0), 32768) << "nothing there: it faces the viewer";
    EXPECT_EQ(sample(padded, 14, 32, 0), sample(plain, 16, 32, 0)) << "the silhouette's colour reaches two pixels out";
    EXPECT_EQ(sample(padded, 12, 32, 0), 32768) << "but not four";
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(sample(padded, x, y, 3), sample(plain, x, y, 3));
}

TEST_F(Program, WritesMapsThatMostProgramsLightRightlyAndSaysWhich)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg");
    EXPECT_THAT(outcome.output, HasSubstr("y up, opaque, 16 bits, 4 pixels of padding: right for "));
    const IIO_Picture map = read("hero_n.png");
    EXPECT_EQ(map.row<std::uint16_t>(0)[3], 65535) << "opaque where nothing is";
    EXPECT_EQ(map.row<std::uint16_t>(32)[4 * 13], map.row<std::uint16_t>(32)[4 * 16]) << "padded";
    EXPECT_EQ(map.metadata().value("Alpha"), "opaque");
}

TEST_F(Program, MakesMapsForAProgramThatIsNamed)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg --for unreal");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_EQ(files(), (QStringList{"hero.svg", "hero_N.png"}));
    QFile file(path("hero_N.png"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(25).at(24), 8) << "bits a channel";
    EXPECT_EQ(read("hero_N.png").metadata().value("Y"), "down");
    EXPECT_THAT(outcome.output, HasSubstr("right for Unreal Engine\n"));
}

TEST_F(Program, LetsSingleWordsWinOverTheProgramThatIsNamed)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg --for unreal --y up --alpha hard --bits 16 --suffix .normal").exitCode, 0);
    const IIO_Picture map = read("hero.normal.png");
    EXPECT_EQ(map.metadata().value("Y"), "up");
    EXPECT_EQ(map.row<std::uint16_t>(0)[3], 0);
    EXPECT_EQ(map.row<std::uint16_t>(16)[4 * 16 + 3], 65535);
}

TEST_F(Program, RefusesTargetsAndFormsThatMakeNoSense)
{
    write("hero.svg", kTwoLayers);
    const Outcome unknown = quarvel("normalmap hero.svg --for paper");
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_THAT(unknown.messages, AllOf(HasSubstr("paper"), HasSubstr("phaser")));
    EXPECT_EQ(quarvel("normalmap hero.svg --layout node --alpha opaque").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap hero.svg --bits 12").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap hero.svg --suffix a/b").exitCode, 2);
    EXPECT_EQ(files(), QStringList{"hero.svg"});
}

TEST_F(Program, CutsHolesWithCutOuts)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg --object 2:cutout --alpha coverage").exitCode, 0);
    const IIO_Picture map = read("hero_n.png");
    EXPECT_EQ(map.row<std::uint16_t>(32)[4 * 32 + 3], 0) << "the disc's middle is cut out";
    EXPECT_EQ(map.row<std::uint16_t>(20)[4 * 20 + 3], 65535) << "the square is still there";
}

TEST_F(Program, WritesEveryPictureOfTheRunInTheSameSize)
{
    write("hero.svg", kTwoLayers);
    ASSERT_EQ(quarvel("normalmap hero.svg --size 128x96 --elevation e.png --lit lit.png --drawing d.png").exitCode, 0);
    for (const char* name : {"hero_n.png", "e.png", "lit.png", "d.png"}) {
        const IIO_Picture picture = read(name);
        EXPECT_EQ(picture.width(), 128) << name;
        EXPECT_EQ(picture.height(), 96) << name;
    }
}

TEST_F(Program, RendersInFloatAsWellAsIn16Bit)
{
    write("hero.svg", kTwoLayers);
    EXPECT_EQ(quarvel("normalmap hero.svg -o map.exr --float --exr half,map").exitCode, 0);
    EXPECT_EQ(quarvel("normalmap hero.svg -o map.png --float --layout node").exitCode, 0);
    EXPECT_EQ(read("map.png").metadata().value("Layout"), "node");
}

TEST_F(Program, TakesSeveralDrawingsAndDoesTheRestWhenOneFails)
{
    write("a.svg", kTwoLayers);
    write("b.svg", "this is no drawing");
    write("c.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap a.svg b.svg missing.svg c.svg -o maps");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(exists("maps/a_n.png"));
    EXPECT_TRUE(exists("maps/c_n.png"));
    EXPECT_FALSE(exists("maps/b_n.png"));
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("b.svg"), HasSubstr("missing.svg"), Not(HasSubstr("a.svg"))));
}

TEST_F(Program, MakesTheSameOfManyDrawingsHoweverManyAtOnce)
{
    QString drawings;
    for (int i = 0; i < 12; ++i) {
        const QString name = QStringLiteral("d%1.svg").arg(i);
        write(name, i == 5 ? "this is no drawing" : kTwoLayers);
        drawings += QLatin1Char(' ') + name;
    }
    const Outcome one = quarvel("normalmap --jobs 1 -o one" + drawings);
    const Outcome four = quarvel("normalmap --jobs 4 -o four" + drawings);
    EXPECT_EQ(one.exitCode, 1);
    EXPECT_EQ(four.exitCode, 1);
    EXPECT_EQ(four.messages, one.messages);
    EXPECT_EQ(four.text().replace("four/", "one/").toStdString(), one.output);
    for (const int i : {0, 1, 4, 6, 11}) {
        const QByteArray name = QStringLiteral("/d%1_n.png").arg(i).toUtf8();
        EXPECT_EQ(bytes(("four" + name).constData()), bytes(("one" + name).constData())) << i;
    }
    EXPECT_EQ(quarvel("normalmap --jobs 0 d1.svg").exitCode, 2);
}

TEST_F(Program, SaysThatADrawingIsEmpty)
{
    write("empty.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" height=\"10\"/>");
    const Outcome outcome = quarvel("normalmap empty.svg");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("empty.svg"));
    EXPECT_EQ(files(), QStringList{"empty.svg"});
}

TEST_F(Program, NamesTheColoursWhenOneIsUnknown)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg --level #123456=0");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("#123456"), HasSubstr("#ff0000"), HasSubstr("#0000ff")));
    EXPECT_FALSE(exists("hero_n.png"));
}

TEST_F(Program, NamesTheObjectsWhenOneIsUnknown)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg --object 3:cutout");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("object 3"), HasSubstr("1 square"), HasSubstr("2 disc")));
}

TEST_F(Program, RefusesSizesThatDoNotFitBeforeItTriesThem)
{
    write("hero.svg", kTwoLayers);
    const Outcome large = quarvel("normalmap hero.svg --size 1000000x1000000");
    EXPECT_EQ(large.exitCode, 2);
    EXPECT_THAT(large.messages, HasSubstr("--size 1000000x1000000: a picture is at most 32767 pixels wide"));
    // A width alone lets the height follow from the drawing, which is seen only then.
    write("tall.svg", QByteArray(kTwoLayers).replace("height=\"64\"", "height=\"1280\""));
    EXPECT_EQ(quarvel("normalmap tall.svg --size 30000").exitCode, 1);
    QFile::remove(path("tall.svg"));
    EXPECT_EQ(quarvel("normalmap hero.svg --size 0x10").exitCode, 2);
    EXPECT_EQ(files(), QStringList{"hero.svg"});
}

TEST_F(Program, LeavesNothingHalfWrittenWhenTheDiskIsFull)
{
    write("hero.svg", kTwoLayers);
    write("hero_n.png", "what was there before");
    // A limit on the size of files simulates a full disk: writing fails in the same place.
    const Outcome outcome =
        run("/bin/sh", {"-c", "trap '' XFSZ; ulimit -f 1; exec " QUARVEL_PROGRAM " normalmap hero.svg --size 512x512"});
    EXPECT_EQ(outcome.exitCode, 1) << outcome.messages;
    EXPECT_THAT(outcome.messages, HasSubstr("hero_n.png"));
    EXPECT_EQ(files(), (QStringList{"hero.svg", "hero_n.png"}));
    QFile old(path("hero_n.png"));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "what was there before");
}

TEST_F(Program, TellsProgressInPercentLinesWhenAsked)
{
    write("hero.svg", kTwoLayers);
    const Outcome outcome = quarvel("normalmap hero.svg --progress");
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("0%\n"), HasSubstr("50%\n"), HasSubstr("100%\n")));
    EXPECT_THAT(quarvel("normalmap hero.svg").messages, Not(HasSubstr("%"))) << "standard error is no terminal here";
}

TEST_F(Program, ExplainsItself)
{
    EXPECT_EQ(quarvel("--help").exitCode, 0);
    EXPECT_THAT(quarvel("--help").output, HasSubstr("quarvel normalmap"));
    EXPECT_THAT(quarvel("help normalmap").output, HasSubstr("--bevel"));
    EXPECT_THAT(quarvel("--version").output, HasSubstr("quarvel "));
}

TEST_F(Program, RefusesWordsThatMakeNoSense)
{
    EXPECT_EQ(quarvel("normalmap").exitCode, 2);
    EXPECT_EQ(quarvel("paint hero.svg").exitCode, 2);
    EXPECT_EQ(quarvel("help paint").exitCode, 2);
    EXPECT_EQ(quarvel("normalmap hero.svg --quality best").exitCode, 2);
}

TEST_F(Program, GivesTheSameBytesWithAnyNumberOfThreads)
{
    write("hero.svg", kTwoLayers);
    const auto bytes = [&](const QString& threads) {
        const Outcome outcome =
            run("/bin/sh",
                {"-c", "taskset -c " + threads + " " QUARVEL_PROGRAM " normalmap hero.svg --size 512 --quality high"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
        QFile file(path("hero_n.png"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray one = bytes("0");
    EXPECT_FALSE(one.isEmpty());
    EXPECT_EQ(one, bytes("0-1"));
}
