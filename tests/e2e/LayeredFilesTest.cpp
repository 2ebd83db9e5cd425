// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings as artists keep them, in layers and in frames, through the program.
#include "ProgramFixture.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class LayeredFiles : public Program
{
protected:
    void fetch(const char* name) const
    {
        ASSERT_TRUE(QFile::copy(QStringLiteral(LAYERED_FILES "/") + QString::fromLatin1(name), path(name)));
    }
};

} // namespace

TEST_F(LayeredFiles, AFilmBecomesASceneOfItsFramesAtItsRate)
{
    fetch("blocks.gif");
    const Outcome made = quarvel("import blocks.gif");
    ASSERT_EQ(made.exitCode, 0) << made.messages;
    EXPECT_THAT(made.output, HasSubstr("frames 1-4, elements: 1, drawings: 3"));
    EXPECT_THAT(quarvel("inspect blocks.scene").output, HasSubstr("rate    10 frames a second"));
}

TEST_F(LayeredFiles, ADrawingOfAFilmIsItsFirstFrameWhichIsSaid)
{
    fetch("blocks.gif");
    const Outcome made = quarvel("normalmap blocks.gif");
    EXPECT_EQ(made.exitCode, 0);
    EXPECT_THAT(made.messages, HasSubstr("only the first of 3 pictures is read"));
    EXPECT_TRUE(exists("blocks_n.png"));
}

TEST_F(LayeredFiles, AnOpenRasterFileIsADrawingAndAScene)
{
    fetch("krita.ora");
    EXPECT_EQ(quarvel("normalmap krita.ora").exitCode, 0);
    EXPECT_TRUE(exists("krita_n.png"));
    EXPECT_EQ(quarvel("import krita.ora").exitCode, 0);
}

// Each is two modules of a scene, of which files hold 30,000.
TEST_F(LayeredFiles, ADrawingOfFiveThousandObjectsBecomesAMap)
{
    QByteArray drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">)";
    for (int i = 0; i < 5'001; ++i)
        drawing += QStringLiteral(R"(<g id="part%1"><path d="M%2 %3h1v1h-1z" fill="#c04020"/></g>)")
                       .arg(i)
                       .arg(i % 100)
                       .arg(i / 100)
                       .toUtf8();
    write("parts.svg", drawing + "</svg>");
    const Outcome made = quarvel("normalmap parts.svg --objects groups --size 100");
    EXPECT_EQ(made.exitCode, 0) << made.messages;
    EXPECT_EQ(read("parts_n.png").width(), 100);
}

// Of 24 by 16 pixels the body covers 120, of which the eye covers 12; the eye covers 24.
TEST_F(LayeredFiles, AreListedWithWhatIsSeenOfTheirLayers)
{
    fetch("gimp.psd");
    const Outcome listed = quarvel("inspect gimp.psd");
    EXPECT_THAT(listed.output, testing::ContainsRegex("body +28 %"));
    EXPECT_THAT(listed.output, testing::ContainsRegex("head/eye +6 %"));
    write("layers.svg",
          R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"
        width="100" height="100"><g inkscape:groupmode="layer" inkscape:label="ground"><path d="M0 0h50v100h-50z" fill="#102030"/></g>
        <g inkscape:groupmode="layer" inkscape:label="tree"><path d="M0 0h25v100h-25z" fill="#405060"/></g></svg>)");
    const Outcome drawn = quarvel("inspect layers.svg");
    EXPECT_THAT(drawn.output, testing::ContainsRegex("ground +25 %.*#102030"));
    EXPECT_THAT(drawn.output, testing::ContainsRegex("tree +25 %.*#405060"));
}

TEST_F(LayeredFiles, ComeThroughStandardInputToo)
{
    for (const char* const name : {"krita.ora", "krita.kra", "agpsd.psd", "agpsd.psb", "blocks.apng", "blocks.gif",
                                   "blocks.webp", "tiff8-straight.tif"}) {
        fetch(name);
        ASSERT_EQ(quarvel(QStringList{"normalmap", name, "-o", "file.png"}).exitCode, 0) << name;
        const Outcome outcome = piped(name, "normalmap - -o pipe.png");
        ASSERT_EQ(outcome.exitCode, 0) << name << ": " << outcome.messages;
        EXPECT_EQ(read("pipe.png").width(), read("file.png").width()) << name;
    }
}

TEST_F(LayeredFiles, WhatIsDamagedLeavesNothingBehind)
{
    fetch("krita.ora");
    write("cut.ora", bytes("krita.ora").first(700));
    write("cut.ase", QByteArray(64, '\1'));
    for (const char* name : {"cut.ora", "cut.ase"}) {
        const Outcome map = quarvel(QStringList{"normalmap", name});
        EXPECT_EQ(map.exitCode, 1);
        EXPECT_THAT(map.messages, HasSubstr(name));
        EXPECT_EQ(quarvel(QStringList{"import", name, "-o", "cut.scene"}).exitCode, 1);
    }
    EXPECT_EQ(files(), (QStringList{"cut.ase", "cut.ora", "krita.ora"}));
    EXPECT_FALSE(exists("cut.scene"));
}
