// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene: names, camera, palettes, links between attributes, notification.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_PaletteCollector.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

class Listener : public XUListener
{
public:
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

QString name(const char* text)
{
    return QString::fromLatin1(text);
}

TEST(SceneNames, ANewModuleIsCalledAfterItsKindWithANumberWhenNeeded)
{
    MO_Scene scene;
    EXPECT_EQ(scene.root().emplace<PassModule>().instanceName(), name("Pass"));
    EXPECT_EQ(scene.root().emplace<PassModule>().instanceName(), name("Pass_1"));
    EXPECT_EQ(scene.root().emplace<PassModule>().instanceName(), name("Pass_2"));
}

TEST(SceneNames, NamesAreUniqueAcrossGroups)
{
    MO_Scene scene;
    auto& outer = scene.root().emplace<PassModule>();
    auto& group = scene.root().emplace<XUGroup>();
    auto& inner = group.emplace<PassModule>();
    EXPECT_EQ(inner.instanceName(), name("Pass_1"));
    inner.setInstanceName(name("Hero"));
    outer.setInstanceName(name("Hero"));
    EXPECT_EQ(outer.instanceName(), name("Hero_1"));
    EXPECT_EQ(scene.findModule(name("Hero")), &inner);
    EXPECT_EQ(group.findModule(name("Hero")), &inner);
    EXPECT_EQ(group.findModule(name("Hero_1")), nullptr);
    EXPECT_EQ(scene.findModule(name("Hero_1")), &outer);
}

TEST(SceneNames, ANameThatBecameFreeIsGivenAgain)
{
    MO_Scene scene;
    scene.root().emplace<PassModule>();
    auto& first = scene.root().emplace<PassModule>();
    scene.root().emplace<PassModule>();
    scene.root().take(first);
    EXPECT_EQ(scene.findModule(name("Pass_1")), nullptr);
    EXPECT_EQ(scene.root().emplace<PassModule>().instanceName(), name("Pass_1"));
}

TEST(SceneNames, AModuleMayKeepItsOwnName)
{
    MO_Scene scene;
    auto& module = scene.root().emplace<PassModule>();
    module.setInstanceName(name("Pass"));
    EXPECT_EQ(module.instanceName(), name("Pass"));
    module.setInstanceName(QString());
    EXPECT_EQ(module.instanceName(), name("PASS"));
}

TEST(SceneNames, AGroupBringsTheNamesInsideOfItAlong)
{
    MO_Scene scene;
    scene.root().emplace<PassModule>();
    auto group = std::make_unique<XUGroup>();
    auto& inner = group->emplace<PassModule>();
    EXPECT_EQ(inner.instanceName(), name("Pass"));
    auto& added = scene.root().add(std::move(group));
    EXPECT_EQ(inner.instanceName(), name("Pass_1"));
    EXPECT_EQ(scene.findModule(name("Pass_1")), &inner);
    const auto taken = scene.root().take(added);
    EXPECT_EQ(scene.findModule(name("Pass_1")), nullptr);
    EXPECT_EQ(static_cast<XUGroup&>(*taken).findModule(name("Pass_1")), &inner);
}

TEST(SceneMembership, ModulesKnowTheirSceneAtEveryDepth)
{
    MO_Scene scene;
    auto& group = scene.root().emplace<XUGroup>();
    auto& inner = group.emplace<PassModule>();
    EXPECT_EQ(inner.sceneCommon(), &scene);
    const auto taken = group.take(inner);
    EXPECT_EQ(taken->sceneCommon(), nullptr);
    EXPECT_EQ(taken->group(), nullptr);
    EXPECT_EQ(group.take(*taken), nullptr);
}

TEST(SceneOutput, IsTheFirstEnabledDisplay)
{
    MO_Scene scene;
    EXPECT_EQ(scene.outputModule(), nullptr);
    scene.root().emplace<PassModule>();
    auto& first = scene.root().emplace<MO_DisplayModule>();
    auto& second = scene.root().emplace<MO_DisplayModule>();
    EXPECT_EQ(scene.outputModule(), &first);
    first.setEnabled(false);
    EXPECT_EQ(scene.outputModule(), &second);
}

TEST(SceneCamera, TruckFactorIsOneWithoutAMoveAndFollowsItsCurve)
{
    MO_Scene scene;
    auto& module = scene.root().emplace<PassModule>();
    const auto at = [&](double frame) { return MO_PortContext({frame}, {640, 480}, &module, 0).truckFactor(); };
    EXPECT_EQ(at(1.0), 1.0);
    AT_Curve curve;
    ASSERT_TRUE(curve.setKey({.frame = 1.0, .value = 1.0, .in = {}, .out = {}, .unknown = {}}));
    ASSERT_TRUE(curve.setKey({.frame = 11.0, .value = 3.0, .in = {}, .out = {}, .unknown = {}}));
    scene.truckFactorAttr().setCurve(curve);
    EXPECT_EQ(at(6.0), 2.0);
    EXPECT_EQ(at(11.0), 3.0);
}

TEST(SceneCamera, AModuleOfNoSceneHasTruckFactorOne)
{
    const PassModule module;
    EXPECT_EQ(MO_PortContext({1.0}, {640, 480}, &module, 0).truckFactor(), 1.0);
    EXPECT_EQ(MO_PortContext({1.0}, {640, 480}, nullptr, 0).truckFactor(), 1.0);
}

TEST(SceneCamera, SceneUnitsGoToPixelsAboutTheCentre)
{
    MO_Scene scene;
    // 1440 pixels for 720 units: two pixels a unit on both axes, whatever the height.
    EXPECT_EQ(scene.sceneToPixel(1.0, {1440, 400}).map(QPointF(0, 0)), QPointF(720, 200));
    EXPECT_EQ(scene.sceneToPixel(1.0, {1440, 400}).map(QPointF(-360, 10)), QPointF(0, 220));
    scene.truckFactorAttr().setLocalValue(2.0);
    EXPECT_EQ(scene.sceneToPixel(1.0, {1440, 400}).map(QPointF(0, 0)), QPointF(720, 200));
    EXPECT_EQ(scene.sceneToPixel(1.0, {1440, 400}).map(QPointF(10, -10)), QPointF(760, 160));
}

TEST(SceneFrames, ARangeThatEndsBeforeItBeginsIsRefused)
{
    MO_Scene scene;
    EXPECT_TRUE(scene.setFrameRange(-5, 10));
    EXPECT_FALSE(scene.setFrameRange(3, 2));
    EXPECT_EQ(scene.firstFrame(), -5);
    EXPECT_EQ(scene.lastFrame(), 10);
    EXPECT_FALSE(scene.setFrameHeight(0.0));
    EXPECT_EQ(scene.frameHeight(), 405.0);
}

TEST(SceneFrames, ARangeWhoseFramesNoIntCountsIsRefused)
{
    MO_Scene scene;
    constexpr int kFar = MO_Scene::kFarthestFrame;
    EXPECT_TRUE(scene.setFrameRange(-kFar, kFar));
    EXPECT_EQ(scene.lastFrame() - scene.firstFrame(), 2 * 999'999'999);
    EXPECT_FALSE(scene.setFrameRange(1, kFar + 1));
    EXPECT_FALSE(scene.setFrameRange(-kFar - 1, 1));
    EXPECT_EQ(scene.firstFrame(), -kFar);
    EXPECT_EQ(scene.lastFrame(), kFar);
}

TEST(SceneFrames, APictureHasWholeSides)
{
    MO_Scene scene; // 16 to 9
    EXPECT_EQ(scene.heightInPixels(1920), 1080);
    EXPECT_EQ(scene.heightInPixels(721), 406) << "405.56";
    EXPECT_EQ(scene.heightInPixels(1), 1) << "0.56";
    scene.setFrameHeight(0.001);
    EXPECT_EQ(scene.heightInPixels(1920), 1) << "a picture has a pixel";
    scene.setFrameHeight(1e300);
    EXPECT_EQ(scene.heightInPixels(1920), 1'000'000'000) << "no int holds the height";
}

TEST(PaletteCollector, GivesThePalettesOfTheNodesSceneInOrder)
{
    MO_Scene scene;
    const auto first = palette();
    const auto second = palette();
    scene.addPalette(first);
    scene.addPalette(second);
    scene.addPalette(nullptr);
    auto& inner = scene.root().emplace<XUGroup>().emplace<PassModule>();
    EXPECT_EQ(MO_PaletteCollector(&inner), (std::vector<CM_SharedPtr<CM_Palette>>{first, second}));
    scene.removePalette(first);
    EXPECT_EQ(MO_PaletteCollector(&inner), (std::vector<CM_SharedPtr<CM_Palette>>{second}));
    const PassModule stray;
    EXPECT_TRUE(MO_PaletteCollector(&stray).empty());
    EXPECT_TRUE(MO_PaletteCollector(nullptr).empty());
}

TEST(SceneLinks, PathsLeadToAttributesAndBack)
{
    MO_Scene scene;
    auto& element = scene.root().emplace<MO_ElementModule>();
    element.setInstanceName(name("Arm.left"));
    EXPECT_EQ(scene.pathOf(*element.rotation()), name("Arm.left.Rotation"));
    EXPECT_EQ(scene.findAttr(name("Arm.left.Rotation")), element.rotation());
    EXPECT_EQ(scene.findAttr(name("Arm.left.Nothing")), nullptr);
    EXPECT_EQ(scene.findAttr(name("Nobody.Rotation")), nullptr);
    EXPECT_EQ(scene.findAttr(scene.pathOf(scene.truckFactorAttr())), &scene.truckFactorAttr());
    const MO_ElementModule stray;
    EXPECT_EQ(scene.pathOf(*stray.rotation()), QString());
}

TEST(SceneLinks, FollowTheNodeThatIsRenamed)
{
    MO_Scene scene;
    auto& driver = scene.root().emplace<MO_ElementModule>();
    auto& driven = scene.root().emplace<MO_ElementModule>();
    driver.rotation()->setLocalValue(30.0);
    ASSERT_TRUE(driven.rotation()->setSurrogate(UT_makeShared<AT_AttrLink>(scene.pathOf(*driver.rotation()))));
    scene.resolveLinks();
    EXPECT_EQ(driven.rotation()->value(1.0), 30.0);
    driver.setInstanceName(name("Boss"));
    EXPECT_EQ(driven.rotation()->link()->path(), name("Boss.Rotation"));
}

TEST(SceneChanges, AreToldToListeners)
{
    MO_Scene scene;
    Listener listener;
    scene.addListener(listener);
    const auto tells = [&](const auto& change) {
        listener.count = 0;
        change();
        return listener.count > 0;
    };
    auto& first = scene.root().emplace<MO_ElementModule>();
    auto& second = scene.root().emplace<PassModule>();
    EXPECT_GT(listener.count, 0);
    EXPECT_TRUE(tells([&] { static_cast<void>(MO_Scene::connect(first, second)); }));
    EXPECT_TRUE(tells([&] { MO_Scene::disconnect(second); }));
    EXPECT_TRUE(tells([&] { first.rotation()->setLocalValue(5.0); }));
    EXPECT_TRUE(tells([&] { first.setEnabled(false); }));
    EXPECT_FALSE(tells([&] { first.setEnabled(false); }));
    EXPECT_TRUE(tells([&] { first.setInstanceName(name("x")); }));
    EXPECT_TRUE(tells([&] { scene.truckFactorAttr().setLocalValue(2.0); }));
}

TEST(NodeAttributes, StandWhereTheyAreRegistered)
{
    static const AT_AttrMeta kFirst(name("First"), name("First"));
    static const AT_AttrMeta kMiddle(name("Middle"), name("Middle"));
    static const AT_AttrMeta kLast(name("Last"), name("Last"));
    PassModule module;
    const auto attr = [](const AT_AttrMeta& meta) { return new AT_DrawingAttr(meta); };
    auto* const first = attr(kFirst);
    auto* const last = attr(kLast);
    auto* const middle = attr(kMiddle);
    module.registerAttr(first);
    module.registerAttr(last, -1);
    module.registerAttr(middle, 1);
    EXPECT_EQ(module.attrs(), (std::vector<AT_Attr*>{first, middle, last}));
    EXPECT_EQ(module.findAttr(name("Middle")), middle);
    EXPECT_EQ(module.findAttr(name("None")), nullptr);
    EXPECT_EQ(middle->node(), &module);
}

} // namespace
