// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lights of a scene: their XML, and that every change of them can be undone to the byte.
#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/editing/MO_LightCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

void read(MO_Scene& scene, const QString& xml, QStringList* warnings = nullptr)
{
    const auto document = PO_parseDocument(xml.toUtf8(), text("test"));
    ASSERT_TRUE(document.ok());
    ASSERT_TRUE(scene.readXml(document->documentElement(), warnings).ok());
}

struct SceneLights : testing::Test
{
    MO_LightValues light(std::size_t index = 0, double frame = 1.0) const
    {
        return scene.lighting().lights().at(index)->values(frame);
    }
    void expectUndone(const QString& name)
    {
        const QString after = scene.toXml();
        EXPECT_EQ(stack.undoNames(), QStringList{name});
        EXPECT_NE(after, before);
        stack.undo();
        EXPECT_EQ(scene.toXml(), before);
        stack.redo();
        EXPECT_EQ(scene.toXml(), after);
    }

    MO_Scene scene;
    CO_CommandStack stack;
    QString before = scene.toXml();
};

TEST_F(SceneLights, OfANewSceneAreOneWhiteLightThatIsNotWritten)
{
    ASSERT_EQ(scene.lighting().lights().size(), 1);
    EXPECT_EQ(light(), MO_LightValues{});
    EXPECT_FALSE(before.contains(text("<light")));
    EXPECT_FALSE(before.contains(text("frameRate")));
}

TEST_F(SceneLights, AreWrittenAndReadBackToTheByte)
{
    const MO_LightValues key{.name = text("Key \"&\" \xc3\xa9"),
                             .kind = MO_LightKind::POINT,
                             .on = false,
                             .solo = true,
                             .x = -1.25,
                             .y = 0.1,
                             .height = 0.3,
                             .reach = 2.5,
                             .red = 12.5,
                             .green = 34,
                             .blue = 56,
                             .intensity = 1.5};
    stack.execute(
        MO_lightRigCmd(scene, text("x"), {{.ambientRed = 10, .ambientIntensity = 0.5, .highlight = 0.25}, {key, {}}}));
    stack.execute(MO_addKeyCmd(scene.lighting().lights()[1]->number(MO_Light::X), 5.0));
    stack.execute(MO_lightCmd(scene, 1, 9.0, {.x = 1.0}));
    stack.execute(MO_frameRateCmd(scene, 12.5));
    const QString xml = scene.toXml();

    MO_Scene copy;
    QStringList warnings;
    read(copy, xml, &warnings);
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(copy.toXml(), xml);
    EXPECT_EQ(copy.frameRate(), 12.5);
    ASSERT_EQ(copy.lighting().lights().size(), 2);
    EXPECT_EQ(copy.lighting().lights()[0]->values(1.0), key);
    // Keys at the frames 5 and 9, straight between them.
    EXPECT_EQ(copy.lighting().lights()[1]->values(7.0).x, 0.25);
}

TEST_F(SceneLights, OfAnOlderFileAreThoseOfANewScene)
{
    stack.execute(MO_addLightCmd(scene, {.intensity = 2.0}));
    stack.execute(MO_frameRateCmd(scene, 30.0));
    read(scene, text("<scene version=\"1\"/>"));
    EXPECT_TRUE(scene.lighting().isNew());
    EXPECT_EQ(scene.frameRate(), 24.0);
}

TEST_F(SceneLights, WhatANewerProgramWroteOfThemIsKept)
{
    const QString xml = text("<scene version=\"1\"><lights mood=\"dark\"><Fog val=\"1\"/><light><Cone val=\"30\"/>"
                             "<Kind val=\"AREA\"/></light></lights></scene>");
    QStringList warnings;
    read(scene, xml, &warnings);
    const QString written = scene.toXml();
    for (const char* const what : {"<Fog val=\"1\"/>", "<Cone val=\"30\"/>", "mood=\"dark\""})
        EXPECT_TRUE(written.contains(text(what))) << what;
    for (const char* const what : {"Fog", "Cone", "Kind"})
        EXPECT_FALSE(warnings.filter(text(what)).isEmpty()) << what;
}

TEST_F(SceneLights, AnElementWithoutALightIsDark)
{
    read(scene, text("<scene version=\"1\"><lights/></scene>"));
    ASSERT_EQ(scene.lighting().lights().size(), 1);
    EXPECT_FALSE(light().on);
}

TEST_F(SceneLights, NumbersAreHeldToTheirLimits)
{
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.x = 100.0, .height = -3.0, .red = 1e9, .intensity = 50.0}));
    EXPECT_EQ(light(), (MO_LightValues{.x = 8.0, .height = 0.05, .red = 255.0, .intensity = 4.0}));
}

TEST_F(SceneLights, ADraggedLightIsOneStepNamedAfterWhatChanged)
{
    for (const double x : {0.0, 0.25, 0.5})
        EXPECT_TRUE(stack.execute(MO_lightCmd(scene, 0, 1.0, {.x = x, .y = 0.5 - x})));
    expectUndone(text("Place of Light 1"));
}

TEST_F(SceneLights, AColourIsOneThing)
{
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.red = 10, .green = 20, .blue = 30}));
    expectUndone(text("Colour of Light 1"));
}

TEST_F(SceneLights, AnotherValueIsAStepOfItsOwn)
{
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.intensity = 2.0}));
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.height = 1.0, .intensity = 2.0}));
    EXPECT_EQ(stack.undoNames(), (QStringList{text("Intensity of Light 1"), text("Height of Light 1")}));
}

TEST_F(SceneLights, SwitchesAndNamesAreUndone)
{
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.solo = true}));
    expectUndone(text("Solo of Light 1"));
}

TEST_F(SceneLights, AnAnimatedNumberGetsAKeyAtTheFrame)
{
    stack.execute(MO_addKeyCmd(scene.lighting().lights()[0]->number(MO_Light::INTENSITY), 1.0));
    stack.execute(MO_lightCmd(scene, 0, 11.0, {.intensity = 2.0}));
    EXPECT_EQ(light(0, 1.0).intensity, 1.0);
    EXPECT_EQ(light(0, 6.0).intensity, 1.5);
    EXPECT_EQ(light(0, 11.0).intensity, 2.0);
}

TEST_F(SceneLights, AreAddedDuplicatedWithTheirKeysAndRemoved)
{
    stack.execute(MO_addKeyCmd(scene.lighting().lights()[0]->number(MO_Light::X), 4.0));
    before = scene.toXml();
    stack.clear();
    EXPECT_TRUE(stack.execute(MO_duplicateLightCmd(scene, 0)));
    ASSERT_EQ(scene.lighting().lights().size(), 2);
    EXPECT_TRUE(scene.lighting().lights()[1]->number(MO_Light::X).isAnimated());
    expectUndone(text("Duplicate Light 1"));
    stack.undo();
    stack.execute(MO_addLightCmd(scene, {.name = text("Rim")}));
    expectUndone(text("Add Light"));
    before = scene.toXml();
    stack.clear();
    stack.execute(MO_removeLightCmd(scene, 1));
    expectUndone(text("Remove Rim"));
}

TEST_F(SceneLights, OneAlwaysStaysAndThereIsAMost)
{
    EXPECT_EQ(MO_removeLightCmd(scene, 0), nullptr);
    EXPECT_EQ(MO_removeLightCmd(scene, 7), nullptr);
    while (scene.lighting().lights().size() < MO_Lighting::kMaxLights)
        ASSERT_TRUE(stack.execute(MO_addLightCmd(scene, {})));
    EXPECT_EQ(MO_addLightCmd(scene, {}), nullptr);
    EXPECT_EQ(MO_duplicateLightCmd(scene, 0), nullptr);
}

TEST_F(SceneLights, WhatTheyHaveInCommonIsUndone)
{
    MO_LightingValues common = scene.lighting().values(1.0);
    common.ambientRed = 10.0;
    common.ambientBlue = 90.0;
    stack.execute(MO_lightingCmd(scene, 1.0, common));
    expectUndone(text("Change Ambient Colour"));
    EXPECT_EQ(MO_lightingCmd(scene, 1.0, common), nullptr);
}

TEST_F(SceneLights, OthersTakeThePlaceOfAllInOneStep)
{
    stack.execute(MO_addKeyCmd(scene.lighting().number(MO_Lighting::HIGHLIGHT), 3.0));
    before = scene.toXml();
    stack.clear();
    stack.execute(MO_lightRigCmd(scene, text("Lights: Two"), {{.highlight = 0.5}, {{.x = 1.0}, {.x = -1.0}}}));
    EXPECT_EQ(scene.lighting().lights().size(), 2);
    EXPECT_EQ(scene.lighting().values(3.0).highlight, 0.5);
    expectUndone(text("Lights: Two"));
}

TEST_F(SceneLights, TellOfThemselvesAndNotOfTheScene)
{
    struct Listener : XUListener
    {
        void told(XUTeller&) override { ++count; }
        int count = 0;
    } ofScene, ofLights;
    scene.addListener(ofScene);
    scene.lighting().addListener(ofLights);
    stack.execute(MO_lightCmd(scene, 0, 1.0, {.intensity = 2.0}));
    EXPECT_EQ(ofLights.count, 1);
    stack.execute(MO_addLightCmd(scene, {}));
    EXPECT_EQ(ofLights.count, 2);
    stack.execute(MO_lightCmd(scene, 1, 1.0, {.intensity = 2.0}));
    EXPECT_EQ(ofLights.count, 3);
    EXPECT_EQ(ofScene.count, 0);
    stack.execute(MO_frameRateCmd(scene, 30.0));
    EXPECT_EQ(ofScene.count, 1);
}

TEST_F(SceneLights, RatesThatMakeNoSenseAreRefused)
{
    for (const double rate : {0.0, -5.0, 241.0, std::nan(""), HUGE_VAL})
        EXPECT_EQ(MO_frameRateCmd(scene, rate), nullptr) << rate;
    QStringList warnings;
    read(scene, text("<scene version=\"1\" frameRate=\"0\"/>"), &warnings);
    EXPECT_EQ(scene.frameRate(), 24.0);
    EXPECT_EQ(warnings.size(), 1);
}

} // namespace
