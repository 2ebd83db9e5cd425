// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values that words set for objects.
#include "jobs/drawing/ObjectWords.h"

#include "jobs/drawing/ObjectNames.h"
#include "jobs/drawing/OwnValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::HasSubstr;

namespace {

ObjectWishes said(std::initializer_list<const char*> all)
{
    ObjectWishes wishes;
    for (const char* words : all) {
        const UT_Result<void> taken = takeObjectWords(wishes, QString::fromUtf8(words));
        EXPECT_TRUE(taken) << words;
    }
    return wishes;
}

std::string errorOf(const char* words)
{
    ObjectWishes wishes;
    const UT_Result<void> taken = takeObjectWords(wishes, QString::fromUtf8(words));
    EXPECT_FALSE(taken) << words;
    EXPECT_TRUE(wishes.objects.empty() && wishes.namedObjects.empty());
    return taken ? std::string() : taken.error().sentence().toStdString();
}

TEST(ObjectWords, SayAllValuesOfAnObject)
{
    const ObjectWishes wishes = said({"2:bevel=60:Elevation=-0.5:smoothness=2:level=0.25:coverage:cutout=no:hidden=yes:"
                                      "tilt=30,-12.5:rim=3,0.8:relief=-1.5"});
    const ObjectSettings& two = wishes.objects.at(2);
    EXPECT_EQ(two.bevel, 60.0);
    EXPECT_EQ(two.elevation, -0.5);
    EXPECT_EQ(two.smoothness, 2.0);
    EXPECT_EQ(two.level, 0.25);
    EXPECT_EQ(two.scaleByCoverage, true);
    EXPECT_EQ(two.cutOut, false);
    EXPECT_EQ(two.hidden, true);
    EXPECT_EQ(two.tilt, (ObjectTilt{30.0, -12.5}));
    EXPECT_EQ(two.rim, (ObjectRim{3.0, 0.8}));
    EXPECT_EQ(two.relief, -1.5);
    // 0 would be an empty object for the node.
    EXPECT_NEAR(*said({"2:elevation=0"}).objects.at(2).elevation, 0.0, 1e-3);
    EXPECT_NE(said({"2:elevation=0"}).objects.at(2).elevation, 0.0);
    EXPECT_EQ(said({"2:elevation=-0.00001"}).objects.at(2).elevation, said({"2:elevation=0"}).objects.at(2).elevation)
        << "too small to tell from 0";
    EXPECT_EQ(said({"2:role=Ridge"}).objects.at(2).relief, 0.5);
    EXPECT_EQ(said({"2:role=crease:role=object"}).objects.at(2).relief, 0.0);
}

TEST(ObjectWords, CountByNumberBeforeNameAndByNameBeforeAll)
{
    const ObjectWishes wishes =
        said({"2:bevel=1", "ey*:bevel=2:elevation=2", "eye:elevation=3", "all:bevel=4:elevation=4:smoothness=4"});
    const ObjectSettings eye = wishesFor(wishes, 2, {"Eye"});
    EXPECT_EQ(eye.bevel, 1.0);
    EXPECT_EQ(eye.elevation, 3.0);
    EXPECT_EQ(eye.smoothness, 4.0);
    const ObjectSettings nose = wishesFor(wishes, 1, {"nose"});
    EXPECT_EQ(nose.bevel, 4.0);
}

TEST(ObjectWords, SayWhatWasExpected)
{
    EXPECT_THAT(errorOf("head"), HasSubstr("head:bevel=60"));
    EXPECT_THAT(errorOf("0:bevel=1"), HasSubstr("not \"0:bevel=1\""));
    EXPECT_THAT(errorOf("head:colour=red"), AllOf(HasSubstr("bevel="), HasSubstr("\"colour=red\"")));
    EXPECT_THAT(errorOf("head:bevel=nan"), HasSubstr("bevel takes a number from 0 to 100000 such as 24, not \"nan\""));
    EXPECT_THAT(errorOf("head:bevel=-4"), HasSubstr("bevel takes a number from 0 to 100000"));
    for (const char* const words : {"head:elevation=100001", "head:elevation=-1e9", "head:elevation=nan"})
        EXPECT_THAT(errorOf(words), HasSubstr("elevation takes a number from -100000 to 100000 such as 1 or -0.5"));
    EXPECT_THAT(errorOf("head:smoothness=0"), HasSubstr("smoothness takes a number from 0.01 to 128"));
    EXPECT_THAT(errorOf("head:bevel"), HasSubstr("bevel takes a number"));
    EXPECT_THAT(errorOf("head:level=2"), HasSubstr("from 0 to 1"));
    EXPECT_THAT(errorOf("head:hidden=perhaps"), HasSubstr("yes or no"));
    for (const char* const words :
         {"head:tilt=30", "head:tilt=91,0", "head:tilt=1,nan", "head:tilt=1,2,3", "head:tilt"})
        EXPECT_THAT(errorOf(words), HasSubstr("tilt takes two numbers of degrees from -90 to 90 such as 30,-10"));
    for (const char* const words : {"head:rim", "head:rim=-1", "head:rim=721", "head:rim=3,11", "head:rim=3,nan"})
        EXPECT_THAT(errorOf(words), HasSubstr("rim takes a bevel from 0 to 720 such as 3"));
    EXPECT_THAT(errorOf("head:relief=5"), HasSubstr("relief takes a number from -4 to 4 such as -0.5"));
    EXPECT_THAT(errorOf("head:role=hair"), HasSubstr("role takes crease, ridge or object"));
}

TEST(ObjectWords, AreTakenFromTheNamesOfLayers)
{
    DIO_Drawing drawing;
    for (const char* name : {"Head bevel=40 cutout=no", "Arm x=3", "bevel=40", "a b  level=1"})
        drawing.layers.push_back({QString::fromUtf8(name), true, {}});
    drawing.layers.front().values = {"bevel=50"};
    takeValuesFromNames(drawing);
    EXPECT_EQ(drawing.layers[0].name, "Head");
    EXPECT_EQ(drawing.layers[0].values, (QStringList{"bevel=40", "cutout=no", "bevel=50"}));
    EXPECT_EQ(drawing.layers[1].name, "Arm x=3");
    EXPECT_EQ(drawing.layers[2].name, "bevel=40") << "a name keeps a word";
    EXPECT_EQ(drawing.layers[3].name, "a b");
    QStringList warnings;
    EXPECT_EQ(ownSettings(drawing.layers[0].values, {}, 1, "Head", ObjectRole::BODY, warnings).bevel, 50.0);
    EXPECT_TRUE(warnings.isEmpty());
}

} // namespace
