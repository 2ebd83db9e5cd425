// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Undoable changes of a scene, compared as the text that would be saved: after every undo and redo it is the one of
// before and after, to the byte.
#include "TestModules.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommands.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace test_modules;

namespace {

QString savedText(const MO_Scene& scene)
{
    QString text;
    PO_XmlWriter writer(text);
    writer.startDocument();
    scene.writeXml(writer);
    writer.endDocument();
    return text;
}

struct EditCommands : testing::Test
{
    MO_Scene scene;
    CO_CommandStack stack;
    XUGroup& root = scene.root();
    MO_ElementModule& hero = root.emplace<MO_ElementModule>();
    MO_GlueModule& glue = root.emplace<MO_GlueModule>();
    MO_CompositeModule& composite = root.emplace<MO_CompositeModule>();

    void link(MO_Module& source, MO_Module& target, unsigned inPort = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, inPort).ok());
    }

    // Executes, and sees that undo and redo bring back what was there.
    void execute(MO_EditCommand command)
    {
        ASSERT_TRUE(command);
        const QString before = savedText(scene);
        ASSERT_TRUE(stack.execute(std::move(command)));
        const QString after = savedText(scene);
        ASSERT_NE(after, before);
        stack.undo();
        ASSERT_EQ(savedText(scene), before);
        stack.redo();
        ASSERT_EQ(savedText(scene), after);
    }
};

TEST_F(EditCommands, AddedModulesGetANameThatIsFree)
{
    auto second = std::make_unique<MO_GlueModule>();
    MO_Module* const added = second.get();
    execute(MO_addModuleCmd(root, std::move(second)));
    EXPECT_EQ(added->instanceName(), glue.instanceName() + QStringLiteral("_1"));
    EXPECT_EQ(root.modules().back().get(), added);
}

TEST_F(EditCommands, ARemovedModuleComesBackToItsPlaceWithItsLinks)
{
    link(hero, glue);
    link(glue, composite, 2);
    execute(MO_removeModulesCmd({&glue}));
    EXPECT_EQ(composite.nInPorts(), 1U);
    stack.undo();
    EXPECT_EQ(root.modules()[1].get(), &glue);
    EXPECT_EQ(composite.inPort(2)->srcPort(), glue.outPort(0));
}

TEST_F(EditCommands, SeveralModulesGoAndComeBackTogether)
{
    link(hero, glue);
    link(glue, composite);
    execute(MO_removeModulesCmd({&composite, &hero}));
    EXPECT_EQ(root.modules().size(), 1U);
}

TEST_F(EditCommands, AttributesThatReadARemovedModuleTakeTheirOwnValueUntilItIsBack)
{
    auto& other = root.emplace<MO_ElementModule>();
    hero.positionX()->setLocalValue(7.0);
    other.positionX()->setLocalValue(1.0);
    other.positionX()->setSurrogate(
        UT_makeShared<AT_AttrLink>(AT_AttrLink::makePath(hero.instanceName(), hero.positionX()->keyword())));
    scene.resolveLinks();
    ASSERT_EQ(other.positionX()->value(1.0), 7.0);
    execute(MO_removeModulesCmd({&hero}));
    EXPECT_EQ(other.positionX()->value(1.0), 1.0);
    stack.undo();
    EXPECT_EQ(other.positionX()->value(1.0), 7.0);
}

TEST_F(EditCommands, OtherCommandsOfARemovedModuleStillUndo)
{
    const QString atFirst = savedText(scene);
    stack.execute(std::unique_ptr<CO_Command>(hero.positionX()->setValueCmd(1.0, 12.0)));
    stack.execute(MO_removeModulesCmd({&hero}));
    stack.undo();
    stack.undo();
    EXPECT_EQ(savedText(scene), atFirst);
}

TEST_F(EditCommands, ALinkReplacesTheOneThatWasThere)
{
    auto& other = root.emplace<MO_ElementModule>();
    link(hero, composite);
    auto command = MO_connectCmd(other, composite);
    ASSERT_TRUE(command.ok());
    EXPECT_EQ(composite.inPort(0)->srcPort(), hero.outPort(0)) << "nothing happens before the command is executed";
    execute(std::move(*command));
    EXPECT_EQ(composite.inPort(0)->srcPort(), other.outPort(0));
}

TEST_F(EditCommands, ALinkThatClosesACircleIsAnErrorAndChangesNothing)
{
    link(glue, composite);
    const QString before = savedText(scene);
    EXPECT_FALSE(MO_connectCmd(composite, glue).ok());
    EXPECT_EQ(savedText(scene), before);
}

TEST_F(EditCommands, ALinkThatIsThereAlreadyNeedsNoCommand)
{
    link(glue, composite);
    const auto command = MO_connectCmd(glue, composite);
    ASSERT_TRUE(command.ok());
    EXPECT_FALSE(*command);
}

TEST_F(EditCommands, CuttingALinkInTheMiddleKeepsThoseBehindIt)
{
    link(hero, composite, 0);
    link(glue, composite, 1);
    execute(MO_disconnectCmd(composite, 0));
    EXPECT_EQ(composite.inPort(1)->srcPort(), glue.outPort(0));
    EXPECT_FALSE(MO_disconnectCmd(composite, 0)) << "nothing is left to cut";
}

TEST_F(EditCommands, RenamingSwitchingAndFramesUndo)
{
    execute(MO_renameCmd(hero, QStringLiteral("Héros <1>")));
    EXPECT_EQ(hero.instanceName(), QStringLiteral("Héros <1>"));
    execute(MO_enableCmd({&hero, &glue}, false));
    EXPECT_FALSE(glue.enabled());
    execute(MO_frameRangeCmd(scene, -3, 48));
    EXPECT_EQ(scene.firstFrame(), -3);
    execute(MO_frameHeightCmd(scene, 720.0));
    EXPECT_FALSE(MO_renameCmd(hero, hero.instanceName()));
    EXPECT_FALSE(MO_enableCmd({&hero}, false));
    EXPECT_FALSE(MO_frameRangeCmd(scene, 5, 4));
    EXPECT_FALSE(MO_frameHeightCmd(scene, 0.0));
}

TEST_F(EditCommands, ANameThatIsTakenGetsANumber)
{
    execute(MO_renameCmd(hero, glue.instanceName()));
    EXPECT_EQ(hero.instanceName(), glue.instanceName() + QStringLiteral("_1"));
}

TEST_F(EditCommands, DrawingsAndPalettesUndo)
{
    const auto first = rectangle(0, 0, 1, 1);
    stack.execute(MO_drawingCmd(hero, QStringLiteral("1"), first));
    stack.execute(MO_drawingCmd(hero, QStringLiteral("1"), rectangle(0, 0, 2, 2)));
    stack.undo();
    EXPECT_EQ(hero.drawings().at(QStringLiteral("1")), first);
    stack.undo();
    EXPECT_TRUE(hero.drawings().empty());
    EXPECT_FALSE(MO_drawingCmd(hero, QStringLiteral("1"), nullptr));

    const auto colours = palette();
    stack.execute(MO_addPaletteCmd(scene, colours));
    EXPECT_FALSE(MO_addPaletteCmd(scene, colours));
    stack.undo();
    EXPECT_TRUE(scene.palettes().empty());
}

TEST_F(EditCommands, CopiesHaveTheLinksAmongThemTheValuesAndTheDrawings)
{
    auto& group = root.emplace<XUGroup>();
    auto& inner = addElement(group, rectangle(0, 0, 1, 1));
    link(hero, glue);
    hero.positionX()->setLocalValue(3.5);
    std::vector<MO_Module*> copies;
    execute(MO_duplicateModulesCmd({&hero, &glue, &group}, &copies));
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[1]->inPort(0)->srcPort()->node(), copies[0]);
    EXPECT_EQ(dynamic_cast<MO_ElementModule&>(*copies[0]).positionX()->value(1.0), 3.5);
    const auto& innerCopy = dynamic_cast<MO_ElementModule&>(*dynamic_cast<XUGroup&>(*copies[2]).modules().front());
    EXPECT_EQ(innerCopy.drawings(), inner.drawings());
}

TEST_F(EditCommands, ModulesOfDifferentGroupsAreNotTakenTogether)
{
    auto& group = root.emplace<XUGroup>();
    auto& inner = group.emplace<MO_GlueModule>();
    EXPECT_FALSE(MO_removeModulesCmd({&glue, &inner}));
    EXPECT_FALSE(MO_removeModulesCmd({}));
    EXPECT_FALSE(MO_duplicateModulesCmd({&glue, &inner}));
}

// A change of any kind; null when the one that was drawn makes no sense.
MO_EditCommand anyChange(MO_Scene& scene)
{
    std::vector<XUGroup*> groups{&scene.root()};
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* group = dynamic_cast<XUGroup*>(&module))
            groups.push_back(group);
    });
    XUGroup& group = *groups[static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(groups.size())))];
    const auto pick = [&]() -> MO_Module* {
        const auto count = static_cast<int>(group.modules().size());
        return count == 0 ? nullptr : group.modules()[static_cast<std::size_t>(*rc::gen::inRange(0, count))].get();
    };
    MO_Module* const one = pick();
    MO_Module* const two = pick();
    const int kind = *rc::gen::inRange(0, 9);
    if (kind < 3 || !one) {
        const QStringList kinds{XUGroup::Keyword(), MO_ElementModule::Keyword(), MO_GlueModule::Keyword(),
                                MO_CompositeModule::Keyword()};
        return MO_addModuleCmd(group, MO_ModuleFactorySingleton().create(kinds[*rc::gen::inRange(0, 4)]));
    }
    switch (kind) {
    case 3:
        return MO_removeModulesCmd(one == two ? std::vector{one} : std::vector{one, two});
    case 4:
        return MO_duplicateModulesCmd({one});
    case 5:
        return MO_disconnectCmd(*two, static_cast<unsigned>(*rc::gen::inRange(0, 3)));
    case 6:
        return MO_renameCmd(*one, *rc::gen::element(QStringLiteral("A"), QStringLiteral("A_1"), QStringLiteral("")));
    default: {
        auto command = MO_connectCmd(*one, *two, static_cast<unsigned>(*rc::gen::inRange(0, 3)));
        return command ? std::move(*command) : nullptr;
    }
    }
}

RC_GTEST_PROP(EditCommandsOfAnyKind, UndoAndRedoBringBackTheBytes, ())
{
    MO_Scene scene;
    CO_CommandStack stack;
    std::vector<QString> texts{savedText(scene)};
    for (int i = 0; i < 25; ++i) {
        if (!stack.execute(anyChange(scene)))
            continue;
        texts.push_back(savedText(scene));
    }
    for (std::size_t i = texts.size() - 1; i > 0; --i) {
        RC_ASSERT(savedText(scene) == texts[i]);
        stack.undo();
    }
    for (const QString& text : texts) {
        RC_ASSERT(savedText(scene) == text);
        stack.redo();
    }
}

} // namespace
