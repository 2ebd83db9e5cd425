// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program says and does about options that cannot be what somebody meant.
#include "WordsFixture.h"

#include <QDir>

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST_F(Words, AMistypedOptionOrCommandIsAnsweredWithTheNearest)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --siez 32"), 2);
    EXPECT_THAT(said, HasSubstr("there is no option --siez; did you mean --size?"));
    EXPECT_EQ(quarvel("render s.scene --farmes=1-3"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean --frames?"));
    EXPECT_EQ(quarvel("normalmap hero.svg --zebra"), 2);
    EXPECT_THAT(said, AllOf(HasSubstr("there is no option --zebra"), Not(HasSubstr("did you mean"))));
    EXPECT_EQ(quarvel("normalmpa hero.svg"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean normalmap?"));
}

TEST_F(Words, AnOptionWithoutItsValueIsNamed)
{
    for (const char* option : {"--html", "-o"}) {
        EXPECT_EQ(quarvel({QStringLiteral("normalmap"), QStringLiteral("hero.svg"), QString::fromUtf8(option)}), 2);
        EXPECT_EQ(said, std::string("quarvel: ") + option +
                            " is followed by its value, and there is none; quarvel help normalmap says which\n");
    }
    EXPECT_EQ(quarvel("normalmap hero.svg --quiet=yes"), 2);
    EXPECT_THAT(said, HasSubstr("--quiet"));
}

TEST_F(Words, AFileThatLooksLikeAnOptionGetsAWayOut)
{
    draw("-dash.svg");
    EXPECT_EQ(quarvel("normalmap -dash.svg"), 2);
    EXPECT_THAT(said, HasSubstr("write ./-dash.svg"));
    EXPECT_EQ(quarvel("normalmap ./-dash.svg"), 0) << said;
}

TEST_F(Words, SeveralDrawingsAreNotWrittenIntoAFolderThatIsNamedLikeAPicture)
{
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o one.png"), 2);
    EXPECT_THAT(said, HasSubstr("one.png names one picture"));
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg --lit one.png"), 2);
    EXPECT_EQ(quarvel("import hero.svg -o ok.png"), 1);
    EXPECT_THAT(said, HasSubstr("ok.scene"));
    EXPECT_EQ(entries(), (QStringList{QStringLiteral("hero.svg"), QStringLiteral("tree.svg")}));
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o maps"), 0) << said;
}

TEST_F(Words, AnEmptyNameIsRefused)
{
    EXPECT_EQ(quarvel({QStringLiteral("normalmap"), QStringLiteral("hero.svg"), QStringLiteral("-o"), QString()}), 2);
    EXPECT_THAT(said, HasSubstr("it is empty"));
}

TEST_F(Words, AnOptionThatWouldBeIgnoredIsRefused)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --layout node --y up"), 2);
    EXPECT_THAT(said, HasSubstr("--y up goes with --layout tangent"));
    EXPECT_EQ(quarvel("normalmap hero.svg --layout node --y down"), 0) << said;
}

TEST_F(Words, ALayerOfNumbersNeedsLayers)
{
    for (const char* words :
         {"normalmap hero.svg -o n.exr --exr signed,numbers", "render s.scene -o n.exr --exr numbers --exr map"}) {
        EXPECT_EQ(quarvel(words), 2);
        EXPECT_THAT(said, HasSubstr("--exr numbers adds a layer"));
    }
    EXPECT_EQ(quarvel("normalmap hero.svg -o n.exr --exr half,numbers"), 0) << said;
}

TEST_F(Words, AKeyWithoutItsFrameIsNoKey)
{
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    for (const char* words : {"set s.scene Normal-Map.BlurScale 5 6 7", "set s.scene Normal-Map.BlurScale 1 2"}) {
        EXPECT_EQ(quarvel(words), 2);
        EXPECT_THAT(said, HasSubstr("expected FRAME:VALUE, as in 24:2.0"));
    }
}

TEST_F(Words, WhichOfTwoNumbersIsWrongIsSaid)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --light 40,100"), 2);
    EXPECT_THAT(said, HasSubstr("--light (the second, above) takes a number from 0 to 90, not \"100\""));
    EXPECT_EQ(quarvel("normalmap hero.svg --light 400,45"), 2);
    EXPECT_THAT(said, HasSubstr("--light (the first, around) takes a number from -360 to 360, not \"400\""));
}

TEST_F(Words, AFormatThatKeepsLessIsNamed)
{
    EXPECT_EQ(quarvel("normalmap hero.svg -o hero.jpg"), 0);
    EXPECT_THAT(said, HasSubstr("hero.jpg: warning: .jpg files hold 8 bits a channel and no coverage"));
    EXPECT_EQ(quarvel("normalmap hero.svg -o hero.png"), 0);
    EXPECT_EQ(said, "");
}

TEST_F(Words, TwoDrawingsOfOneNameAreBothNamedWithTwoWaysOut)
{
    ASSERT_TRUE(QDir(path("")).mkdir(QStringLiteral("b")));
    draw("b/hero.svg");
    EXPECT_EQ(quarvel("normalmap hero.svg b/hero.svg -o maps"), 2);
    EXPECT_THAT(said, HasSubstr("hero.svg and b/hero.svg would both be written to maps/hero_n.png; rename one of them, "
                                "or run quarvel once for each, with another folder behind -o"));
}
