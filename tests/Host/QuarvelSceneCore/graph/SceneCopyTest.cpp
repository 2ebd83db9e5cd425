// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A copy is equal and independent.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

std::unique_ptr<MO_Scene> copyOf(const MO_Scene& scene)
{
    auto copy = MO_copyScene(scene);
    EXPECT_TRUE(copy.ok()) << (copy ? "" : qPrintable(copy.error().text));
    return std::move(*copy);
}

struct SceneCopy : testing::Test
{
    SceneCopy()
    {
        scene.setFrameRange(-2, 9);
        scene.addPalette(palette());
        auto& composite = scene.root().emplace<MO_CompositeModule>();
        EXPECT_TRUE(MO_Scene::connect(hero, composite).ok());
        hero.positionX()->setSurrogate(
            UT_makeShared<AT_AttrLink>(AT_AttrLink::makePath(hero.instanceName(), hero.scaleX()->keyword())));
        scene.resolveLinks();
    }

    MO_Scene scene;
    XUGroup& group = scene.root().emplace<XUGroup>();
    MO_ElementModule& inner = addElement(group, rectangle(0, 0, 2, 2));
    MO_ElementModule& hero = addElement(scene.root(), rectangle(0, 0, 1, 1));
};

TEST_F(SceneCopy, SaysTheSame)
{
    const auto copy = copyOf(scene);
    EXPECT_EQ(savedText(*copy), savedText(scene));
    EXPECT_EQ(copy->palettes(), scene.palettes());
}

TEST_F(SceneCopy, KeepsLinksBesideFreeInputsOfALargeNode)
{
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    for (unsigned port = 0; port < 3000; port += 3)
        ASSERT_TRUE(MO_Scene::connect(hero, composite, port).ok()) << port;
    EXPECT_EQ(savedText(*copyOf(scene)), savedText(scene));
}

TEST_F(SceneCopy, ShowsTheSameDrawingsInGroupsToo)
{
    const auto copy = copyOf(scene);
    for (const MO_ElementModule* element : {&hero, &inner}) {
        const auto& copied = dynamic_cast<MO_ElementModule&>(*copy->findModule(element->instanceName()));
        const auto drawing = element->drawingAt(1.0);
        ASSERT_TRUE(drawing);
        ASSERT_TRUE(copied.drawingAt(1.0));
        EXPECT_TRUE(std::ranges::equal(copied.drawingAt(1.0)->shapes(GR_Art::COLOUR), drawing->shapes(GR_Art::COLOUR)));
    }
}

TEST_F(SceneCopy, LinksOfTheCopyReadTheCopy)
{
    const auto copy = copyOf(scene);
    hero.scaleX()->setLocalValue(5.0);
    auto& copied = dynamic_cast<MO_ElementModule&>(*copy->findModule(hero.instanceName()));
    EXPECT_EQ(copied.positionX()->value(1.0), 1.0);
    copied.scaleX()->setLocalValue(7.0);
    EXPECT_EQ(copied.positionX()->value(1.0), 7.0);
}

TEST_F(SceneCopy, IsNotTouchedByWhatHappensToTheOriginal)
{
    const auto copy = copyOf(scene);
    const QString before = savedText(*copy);
    hero.setDrawing(QStringLiteral("1"), nullptr);
    hero.positionY()->setLocalValue(3.0);
    scene.root().take(group);
    EXPECT_EQ(savedText(*copy), before);
    EXPECT_TRUE(dynamic_cast<MO_ElementModule&>(*copy->findModule(hero.instanceName())).drawingAt(1.0));
}

TEST_F(SceneCopy, OfAModuleBelongsToNoGraph)
{
    const auto copy = std::move(*MO_copyModule(hero));
    EXPECT_EQ(copy->group(), nullptr);
    EXPECT_EQ(dynamic_cast<MO_ElementModule&>(*copy).drawingAt(1.0), hero.drawingAt(1.0));
}

TEST_F(SceneCopy, OfMoreModulesThanAFileMayHaveIsRefused)
{
    while (inner.group()->modules().size() < XUGroup::kMaxModulesInFile)
        inner.group()->emplace<MO_GlueModule>();
    EXPECT_FALSE(MO_copyScene(scene).ok());
    group.emplace<MO_GlueModule>();
    EXPECT_FALSE(MO_copyModule(group).ok());
}

TEST_F(SceneCopy, OfGroupsInEachOtherEndsWhereFilesEnd)
{
    XUGroup* deepest = &group;
    for (int depth = 1; depth < XUGroup::kMaxDepthInFile; ++depth)
        deepest = &deepest->emplace<XUGroup>();
    EXPECT_EQ(savedText(*copyOf(scene)), savedText(scene));
    const std::vector<const MO_Module*> another = {&group};
    EXPECT_FALSE(deepest->mayAdd(another).ok());
    deepest->emplace<XUGroup>();
    EXPECT_FALSE(MO_copyScene(scene).ok());
}

} // namespace
