// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the words of "quarvel normalmap" mean, and what is said of words that mean nothing.
#include "NormalMapOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

QStringList words(const char* line)
{
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

NormalMapOptions parsed(const char* line)
{
    const UT_Result<NormalMapOptions> result = parseNormalMapOptions(words(line));
    EXPECT_TRUE(result) << (result ? "" : qPrintable(result.error().text));
    return result ? *result : NormalMapOptions();
}

std::string errorOf(const char* line)
{
    const UT_Result<NormalMapOptions> result = parseNormalMapOptions(words(line));
    return result ? std::string("no error") : result.error().text.toStdString();
}

using testing::HasSubstr;

} // namespace

TEST(NormalMapOptions, ADrawingAloneIsEnough)
{
    const NormalMapOptions options = parsed("hero.svg");
    EXPECT_EQ(options.drawings, QStringList{"hero.svg"});
    EXPECT_TRUE(options.output.isEmpty());
    EXPECT_FALSE(options.nodeLayout);
    EXPECT_EQ(mapFormFor(options, "hero_n.png"), kFormForMost);
    EXPECT_FALSE(options.settings.renderInFloat);
    EXPECT_EQ(options.settings.form.objects, ObjectChoice::AUTO);
    EXPECT_EQ(options.settings.normalQuality, "LOW_NORMAL_QUALITY");
}

TEST(NormalMapOptions, TakesSeveralDrawings)
{
    EXPECT_EQ(parsed("a.svg b.svg -o maps").drawings, (QStringList{"a.svg", "b.svg"}));
}

TEST(NormalMapOptions, WantsADrawing)
{
    EXPECT_THAT(errorOf("--float"), HasSubstr("which drawing?"));
}

TEST(NormalMapOptions, TakesASizeOrAWidth)
{
    EXPECT_EQ(parsed("a.svg --size 3840x2160").settings.size, QSize(3840, 2160));
    EXPECT_EQ(parsed("a.svg --size 640").settings.size, QSize(640, 0));
}

TEST(NormalMapOptions, RefusesASizeOfZero)
{
    EXPECT_THAT(errorOf("a.svg --size 0x100"), HasSubstr("at least 1 pixel"));
    EXPECT_THAT(errorOf("a.svg --size 100x0"), HasSubstr("at least 1 pixel"));
    EXPECT_THAT(errorOf("a.svg --size 0"), HasSubstr("at least 1 pixel"));
}

TEST(NormalMapOptions, SaysWhatASizeLooksLike)
{
    EXPECT_THAT(errorOf("a.svg --size big"), HasSubstr("such as 1920x1080"));
    EXPECT_THAT(errorOf("a.svg --size 1x2x3"), HasSubstr("such as 1920x1080"));
}

TEST(NormalMapOptions, SetsAllObjectsByBevel)
{
    EXPECT_EQ(parsed("a.svg --bevel 24.5").settings.allObjects.bevel, 24.5);
    EXPECT_THAT(errorOf("a.svg --bevel=-1"), HasSubstr("from 0 to 100000"));
    EXPECT_THAT(errorOf("a.svg --bevel 1e9"), HasSubstr("from 0 to 100000"));
}

TEST(NormalMapOptions, SetsOneObjectsValues)
{
    const auto options = parsed("a.svg --object 2:bevel=60:elevation=0.5:smoothness=2:level=0.25:coverage");
    ASSERT_EQ(options.settings.objects.size(), 1U);
    const ObjectSettings& object = options.settings.objects.at(2);
    EXPECT_EQ(object.bevel, 60.0);
    EXPECT_EQ(object.elevation, 0.5);
    EXPECT_EQ(object.smoothness, 2.0);
    EXPECT_EQ(object.level, 0.25);
    EXPECT_EQ(object.scaleByCoverage, true);
    EXPECT_FALSE(object.cutOut.has_value());
}

TEST(NormalMapOptions, GathersSeveralWordsAboutOneObject)
{
    const auto options = parsed("a.svg --object 2:bevel=60 --object 2:cutout --object 3:hidden");
    EXPECT_EQ(options.settings.objects.at(2).bevel, 60.0);
    EXPECT_EQ(options.settings.objects.at(2).cutOut, true);
    EXPECT_EQ(options.settings.objects.at(3).hidden, true);
}

TEST(NormalMapOptions, TakesObjectsByName)
{
    const auto options = parsed("a.svg --object head:bevel=60 --object eye*:cutout");
    const auto& named = options.settings.namedObjects;
    ASSERT_EQ(named.size(), 2U);
    EXPECT_EQ(named[0].first, "head");
    EXPECT_EQ(named[0].second.bevel, 60.0);
    EXPECT_EQ(named[1].first, "eye*");
    EXPECT_EQ(named[1].second.cutOut, true);
}

TEST(NormalMapOptions, SaysWhatAnObjectHas)
{
    EXPECT_THAT(errorOf("a.svg --object 2:colour=red"), HasSubstr("bevel="));
    EXPECT_THAT(errorOf("a.svg --object :bevel=1"), HasSubstr("2:bevel=60"));
    EXPECT_THAT(errorOf("a.svg --object 0:bevel=1"), HasSubstr("2:bevel=60"));
    EXPECT_THAT(errorOf("a.svg --object 2"), HasSubstr("2:bevel=60"));
    EXPECT_THAT(errorOf("a.svg --object 2:bevel=wide"), HasSubstr("a number"));
}

TEST(NormalMapOptions, TakesLevelsOfColours)
{
    const auto options = parsed("a.svg --level #1b1b1b=0 --level white=128 --level all=200");
    ASSERT_EQ(options.settings.levels.size(), 2U);
    EXPECT_EQ(options.settings.levels[0].colour, QColor(0x1b, 0x1b, 0x1b));
    EXPECT_EQ(options.settings.levels[0].level, 0);
    EXPECT_EQ(options.settings.levels[1].level, 128);
    EXPECT_EQ(options.settings.levelOfAllColours, 200);
}

TEST(NormalMapOptions, SaysWhatALevelLooksLike)
{
    EXPECT_THAT(errorOf("a.svg --level #1b1b1b"), HasSubstr("'#1b1b1b=0'"));
    EXPECT_THAT(errorOf("a.svg --level #1b1b1b=256"), HasSubstr("from 0 to 255"));
    EXPECT_THAT(errorOf("a.svg --level nocolour=1"), HasSubstr("a colour such as"));
}

TEST(NormalMapOptions, ReachesEveryAttributeOfTheNode)
{
    const auto s =
        parsed("a.svg --quality high --bevel-multiplier 2 --elevation-multiplier 3 --smoothness-multiplier 4 "
               "--no-normals --depth-in-blue --no-clip --use-truck-factor --level all=1 --object all:bevel=9")
            .settings;
    EXPECT_EQ(s.normalQuality, "HIGH_NORMAL_QUALITY");
    EXPECT_EQ(s.blurScale, 2.0);
    EXPECT_EQ(s.elevationScale, 3.0);
    EXPECT_EQ(s.elevationSmoothness, 4.0);
    EXPECT_FALSE(s.generateNormals);
    EXPECT_TRUE(s.depthInBlue);
    EXPECT_FALSE(s.clipBlurredWithGeometry);
    EXPECT_TRUE(s.useTruckFactor);
    EXPECT_EQ(s.levelOfAllColours, 1);
    EXPECT_EQ(s.allObjects.bevel, 9.0);
}

TEST(NormalMapOptions, HoldsMultipliersToTheirLimits)
{
    EXPECT_THAT(errorOf("a.svg --smoothness-multiplier 0"), HasSubstr("from 0.1 to 128"));
    EXPECT_THAT(errorOf("a.svg --bevel-multiplier 10.5"), HasSubstr("from 0 to 10"));
    EXPECT_THAT(errorOf("a.svg --bevel-multiplier nan"), HasSubstr("a number"));
}

TEST(NormalMapOptions, SaysWhichChoicesThereAre)
{
    EXPECT_THAT(errorOf("a.svg --quality best"), HasSubstr("low, medium, high"));
    EXPECT_THAT(errorOf("a.svg --layout world"), HasSubstr("tangent, node"));
    EXPECT_THAT(errorOf("a.svg --y sideways"), HasSubstr("up, down"));
    EXPECT_THAT(errorOf("a.svg --objects all"), HasSubstr("auto, layers, groups, shapes, one"));
}

TEST(NormalMapOptions, PointsToTheHelpForAnUnknownOption)
{
    EXPECT_THAT(errorOf("a.svg --bevle 3"), testing::AllOf(HasSubstr("bevle"), HasSubstr("quarvel help normalmap")));
}

TEST(NormalMapOptions, TakesTheLightsTwoAngles)
{
    const auto options = parsed("a.svg --light 45,30");
    EXPECT_EQ(options.light.azimuth, 45.0);
    EXPECT_EQ(options.light.height, 30.0);
    EXPECT_THAT(errorOf("a.svg --light 45"), HasSubstr("135,45"));
    EXPECT_THAT(errorOf("a.svg --light 45,91"), HasSubstr("from 0 to 90"));
}

TEST(NormalMapOptions, TheHelpNamesEveryOption)
{
    const std::string help = normalMapHelp().toStdString();
    for (const char* option : {"--output",
                               "--elevation",
                               "--lit",
                               "--drawing",
                               "--layout",
                               "--y",
                               "--pad",
                               "--exr",
                               "--light",
                               "--size",
                               "--float",
                               "--truck",
                               "--objects",
                               "--object",
                               "--bevel",
                               "--level",
                               "--bevel-multiplier",
                               "--elevation-multiplier",
                               "--smoothness-multiplier",
                               "--quality",
                               "--no-normals",
                               "--depth-in-blue",
                               "--no-clip",
                               "--use-truck-factor",
                               "--progress",
                               "--quiet",
                               "--help"})
        EXPECT_THAT(help, HasSubstr(option));
}

TEST(NormalMapOptions, NotesWhatDeterminesThePictures)
{
    EXPECT_EQ(parsed("a.svg --bevel 24 --float").pictureWords, parsed("b.svg --float --bevel 24").pictureWords);
    EXPECT_NE(parsed("a.svg --bevel 24").pictureWords, parsed("a.svg --bevel 25").pictureWords);
    EXPECT_NE(parsed("a.svg --object 1:bevel=4 --object 2:bevel=5").pictureWords,
              parsed("a.svg --object 2:bevel=5 --object 1:bevel=4").pictureWords);
    EXPECT_NE(parsed("a.svg --for unity").pictureWords, parsed("a.svg --for godot").pictureWords);
}

TEST(NormalMapOptions, PlacesAndTheRunDoNotDetermineThePictures)
{
    EXPECT_TRUE(parsed("a.svg -o m --elevation e --lit l --drawing d --html h --height x --occlusion y --numbers z "
                       "--jobs 2 --resume --progress -q")
                    .pictureWords.isEmpty());
}
