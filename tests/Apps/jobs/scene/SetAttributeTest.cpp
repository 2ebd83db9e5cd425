// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words after "quarvel set", and the changes that they make to the scene.
#include "jobs/scene/SetAttribute.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/scene/DescribeScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

struct SetInScene : testing::Test
{
    SetInScene() { hero.setInstanceName(QStringLiteral("Hero")); }

    MO_Scene scene;
    CO_CommandStack stack;
    MO_ElementModule& hero = scene.root().emplace<MO_ElementModule>();

    /// Whether anything changed.
    UT_Result<bool> set(const char* subject, const QStringList& words)
    {
        const auto changed = setInScene(scene, stack, QString::fromUtf8(subject), words);
        return changed ? UT_Result<bool>(!changed->empty()) : UT_Result<bool>(changed.error());
    }

    void draw(const QStringList& names)
    {
        const auto palette = UT_makeShared<CM_Palette>(UT_String("ink"), UT_Id(1));
        for (const QString& name : names)
            hero.setDrawing(name, UT_makeShared<CELVEC_Kvd>(palette));
    }

    /// The answer to a change: before and after.
    std::string told(const char* subject, const QStringList& words)
    {
        const auto changed = setInScene(scene, stack, QString::fromUtf8(subject), words);
        EXPECT_TRUE(changed && changed->size() == 1) << subject;
        if (!changed || changed->size() != 1)
            return {};
        EXPECT_EQ(changed->front().what, QString::fromUtf8(subject));
        return (changed->front().before + QStringLiteral(" -> ") + changed->front().after).toStdString();
    }

    std::string errorOf(const char* subject, const QStringList& words)
    {
        const QString before = describeScene(scene, DescribedAttributes::ALL);
        const auto changed = set(subject, words);
        EXPECT_FALSE(changed.ok());
        EXPECT_EQ(describeScene(scene, DescribedAttributes::ALL), before) << "nothing changes";
        return changed ? std::string() : changed.error().text.toStdString();
    }
};

TEST_F(SetInScene, AValueAloneCountsForAllFrames)
{
    EXPECT_TRUE(*set("Hero.PositionX", {"12.5"}));
    EXPECT_EQ(hero.positionX()->value(1.0), 12.5);
    EXPECT_EQ(hero.positionX()->value(100.0), 12.5);
}

TEST_F(SetInScene, WhatIsThereAlreadyIsNoChange)
{
    EXPECT_FALSE(*set("Hero.PositionX", {"0"}));
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(SetInScene, KeysAnimateAndThoseAtOtherFramesStay)
{
    ASSERT_TRUE(set("Hero.PositionX", {"1:0", "11:10"}));
    ASSERT_TRUE(set("Hero.PositionX", {"21:0"}));
    EXPECT_EQ(hero.positionX()->value(6.0), 5.0);
    EXPECT_EQ(hero.positionX()->value(16.0), 5.0);
}

TEST_F(SetInScene, AHeldKeyStaysUntilTheNext)
{
    ASSERT_TRUE(set("Hero.PositionX", {"1:4:hold", "11:10"}));
    EXPECT_EQ(hero.positionX()->value(10.9), 4.0);
    EXPECT_EQ(hero.positionX()->value(11.0), 10.0);
}

TEST_F(SetInScene, ABezierKeyLeavesAndArrivesSoftly)
{
    ASSERT_TRUE(set("Hero.PositionX", {"0:0:bezier", "12:12"}));
    EXPECT_NEAR(hero.positionX()->value(6.0), 6.0, 1e-9) << "half way at half time, by symmetry";
    EXPECT_LT(hero.positionX()->value(1.0), 0.5) << "slower than straight";
    EXPECT_GT(hero.positionX()->value(11.0), 11.5);
}

TEST_F(SetInScene, AValueAloneEndsTheAnimationAndUndoBringsItBack)
{
    ASSERT_TRUE(set("Hero.PositionX", {"1:0", "11:10"}));
    ASSERT_TRUE(set("Hero.PositionX", {"3"}));
    EXPECT_FALSE(hero.positionX()->isAnimated());
    EXPECT_EQ(hero.positionX()->value(6.0), 3.0);
    stack.undo();
    EXPECT_EQ(hero.positionX()->value(6.0), 5.0);
    stack.redo();
    EXPECT_EQ(hero.positionX()->value(6.0), 3.0);
}

TEST_F(SetInScene, AnAttributeReadsAnotherAndStopsToDoSo)
{
    ASSERT_TRUE(set("Hero.ScaleX", {"2"}));
    ASSERT_TRUE(set("Hero.PositionX", {"=Hero.ScaleX"}));
    EXPECT_EQ(hero.positionX()->value(1.0), 2.0);
    ASSERT_TRUE(set("Hero.PositionX", {"="}));
    EXPECT_EQ(hero.positionX()->value(1.0), 0.0);
}

TEST_F(SetInScene, ExposuresSayWhichDrawingIsShown)
{
    draw({"walk_1", "walk_2"});
    ASSERT_TRUE(set("Hero.Drawing", {"1:walk_1", "3:walk_2", "9:"}));
    EXPECT_EQ(hero.drawingAttr()->drawing(2.0), QStringLiteral("walk_1"));
    EXPECT_EQ(hero.drawingAttr()->drawing(8.0), QStringLiteral("walk_2"));
    EXPECT_EQ(hero.drawingAttr()->drawing(9.0), QString());
}

TEST_F(SetInScene, NamesSwitchesFramesAndTheCameraAreSetAlike)
{
    ASSERT_TRUE(set("Hero.enabled", {"no"}));
    EXPECT_FALSE(hero.enabled());
    ASSERT_TRUE(set("frames", {"-2-48"}));
    EXPECT_EQ(scene.firstFrame(), -2);
    EXPECT_EQ(scene.lastFrame(), 48);
    ASSERT_TRUE(set("height", {"720"}));
    EXPECT_EQ(scene.frameHeight(), 720.0);
    ASSERT_TRUE(set(".TruckFactor", {"1:1", "11:2"}));
    EXPECT_EQ(scene.truckFactor(6.0), 1.5);
    ASSERT_TRUE(set("Hero.name", {"Miss. Dot"}));
    ASSERT_TRUE(set("Miss. Dot.PositionX", {"1"})) << "a name may hold dots";
}

TEST_F(SetInScene, MistakesSayWhatWasMeantToStandThere)
{
    EXPECT_THAT(errorOf("Herp.PositionX", {"1"}), HasSubstr("Hero"));
    EXPECT_THAT(errorOf("Hero.Position", {"1"}), HasSubstr("PositionX"));
    EXPECT_THAT(errorOf("Hero.PositionX", {"wide"}), HasSubstr("a number from"));
    EXPECT_THAT(errorOf("Hero.PositionX", {"1:0", "two:3"}), HasSubstr("FRAME:VALUE"));
    EXPECT_THAT(errorOf("Hero.PositionX", {"1:0:soft"}), HasSubstr("hold, linear or bezier"));
    EXPECT_THAT(errorOf("Hero.PositionX", {"=Hero.Nothing"}), HasSubstr("Hero.Nothing"));
    EXPECT_THAT(errorOf("Hero.Drawing", {"walk"}), HasSubstr("FRAME:DRAWING"));
    EXPECT_THAT(errorOf("Hero.Drawing", {"1:walk"}), HasSubstr("there is no drawing \"walk\""));
    EXPECT_THAT(errorOf("Hero.enabled", {"perhaps"}), HasSubstr("yes or no"));
    EXPECT_THAT(errorOf("rate", {"24", "25"}), HasSubstr("rate: expected one value, got 2"));
    EXPECT_THAT(errorOf("Hero.ScaleX", {"x"}), HasSubstr("Hero.ScaleX: expected a number"));
    EXPECT_THAT(errorOf("frames", {"48"}), HasSubstr("1-48"));
    EXPECT_THAT(errorOf("frames", {"48-1"}), HasSubstr("1-48"));
    EXPECT_THAT(errorOf("frames", {"1-99999999999"}), HasSubstr("1-48"));
    EXPECT_THAT(errorOf("height", {"-3"}), HasSubstr("more than 0"));
    EXPECT_THAT(errorOf("Hero.PositionX", {}), HasSubstr("new value"));
}

TEST_F(SetInScene, AMistypedSubjectIsAnsweredWithTheNearest)
{
    hero.setInstanceName(QStringLiteral("Hero-Body"));
    EXPECT_THAT(errorOf("HeroBody.ScaleX", {"1"}), HasSubstr("there is no node \"HeroBody\"; did you mean Hero-Body?"));
    EXPECT_THAT(errorOf("Hero-Body.SkaleX", {"1"}), HasSubstr("did you mean ScaleX?"));
    EXPECT_THAT(errorOf(".Light1.Intensiti", {"1"}), HasSubstr("did you mean Intensity?"));
    EXPECT_THAT(errorOf("bla", {"1"}), HasSubstr("expected NODE.ATTRIBUTE, the node one of Hero-Body, or lights"));
}

TEST_F(SetInScene, TheAnswerHoldsWhatWasTypedAndBothValues)
{
    EXPECT_EQ(told("Hero.ScaleX", {"2"}), "1 -> 2");
    EXPECT_EQ(told("Hero.ScaleX", {"1:0.5", "24:2"}), "2 -> 1:0.5 24:2");
    EXPECT_EQ(told("Hero.ScaleX", {"=Hero.ScaleY"}), "1:0.5 24:2 -> =Hero.ScaleY");
    EXPECT_EQ(told("Hero.enabled", {"off"}), "yes -> no");
    EXPECT_EQ(told("rate", {"25"}), "24 -> 25");
    EXPECT_EQ(told("frames", {"1-48"}), "1-1 -> 1-48");
    EXPECT_EQ(told("height", {"720"}), "405 -> 720");
    EXPECT_EQ(told(".TruckFactor", {"1.5"}), "1 -> 1.5");
    EXPECT_EQ(told("lights", {"sunset"}), "Light 1 -> Sun, Sky");
    EXPECT_EQ(told(".Light2.Intensity", {"1"}), "0.3 -> 1");
    EXPECT_EQ(told("Hero.name", {"Heroine"}), "Hero -> Heroine");
}

TEST_F(SetInScene, WhatIsDescribedCanBeSet)
{
    ASSERT_TRUE(set("Hero.PositionX", {"1:0:hold", "24:2.5", "30:1e-3:bezier"}));
    draw({"a"});
    ASSERT_TRUE(set("Hero.Drawing", {"1:a", "5:"}));
    const QString described = describeScene(scene, DescribedAttributes::CHANGED);
    EXPECT_TRUE(described.contains(QStringLiteral("PositionX  1:0:hold 24:2.5 30:0.001:bezier")))
        << qPrintable(described);
    EXPECT_TRUE(described.contains(QStringLiteral("Drawing  1:a 5:"))) << qPrintable(described);
    EXPECT_FALSE(described.contains(QStringLiteral("ScaleX"))) << "only what was changed is told";
}

} // namespace
