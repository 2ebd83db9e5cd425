// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Undoable changes of the graph, its names and its palettes: every undo and redo restores the text before or after the
// change, to the byte.
#include "Host/QuarvelSceneCore/editing/EditCommandsTesting.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

using namespace test_modules;

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

TEST_F(EditCommands, ALinkThatWaitedForTheNewNameWaitsAgainWhenTheNameIsTakenBack)
{
    auto& other = root.emplace<MO_ElementModule>();
    const auto link = UT_makeShared<AT_AttrLink>(QStringLiteral("Face.PositionY"));
    other.positionX()->setSurrogate(link);
    execute(MO_renameCmd(hero, QStringLiteral("Face")));
    EXPECT_EQ(link->target(), hero.positionY());
    scene.resolveLinks();
    stack.undo();
    EXPECT_EQ(link->target(), nullptr);
    EXPECT_EQ(link->path(), QStringLiteral("Face.PositionY"));
}

TEST_F(EditCommands, ALinkFollowsItsTargetFromTheStart)
{
    auto& other = root.emplace<MO_ElementModule>();
    const auto link = UT_makeShared<AT_AttrLink>(hero.instanceName() + QStringLiteral(".PositionY"));
    execute(MO_driveCmd(*other.positionX(), link));
    execute(MO_renameCmd(hero, QStringLiteral("Face")));
    EXPECT_EQ(link->path(), QStringLiteral("Face.PositionY"));
}

TEST_F(EditCommands, ANameThatIsTakenGetsANumber)
{
    execute(MO_renameCmd(hero, glue.instanceName()));
    EXPECT_EQ(hero.instanceName(), glue.instanceName() + QStringLiteral("_1"));
}

TEST_F(EditCommands, APaletteThatIsRenamedKeepsItsPlaceAndItsDrawings)
{
    const auto colours = palette();
    const auto others = palette();
    scene.addPalette(colours);
    scene.addPalette(others);
    const auto drawing = UT_makeShared<CELVEC_Kvd>(colours);
    hero.setDrawing(QStringLiteral("1"), drawing);
    ASSERT_TRUE(stack.execute(MO_renamePaletteCmd(scene, colours, QStringLiteral("Skin"))));
    const auto renamed = scene.palettes().front();
    EXPECT_EQ(renamed->GetName(), UT_String(QStringLiteral("Skin")));
    EXPECT_EQ(scene.palettes().back(), others);
    EXPECT_EQ(hero.drawings().at(QStringLiteral("1"))->palette(), renamed);
    stack.undo();
    EXPECT_EQ(scene.palettes().front(), colours);
    EXPECT_EQ(hero.drawings().at(QStringLiteral("1")), drawing);
}

TEST_F(EditCommands, ALinkMovesToAnotherInputAsOneChange)
{
    link(hero, glue);
    auto command = MO_moveLinkCmd(glue, 0, composite, 2);
    ASSERT_TRUE(command.ok());
    execute(std::move(*command));
    EXPECT_EQ(glue.inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(composite.inPort(2)->srcPort(), hero.outPort(0));
    EXPECT_EQ(stack.undoNames().size(), 1);
}

TEST_F(EditCommands, ALinkThatMovesWithinAModuleOfAutomaticPortsFindsItsPort)
{
    link(hero, composite, 3);
    auto command = MO_moveLinkCmd(composite, 3, composite, 2);
    ASSERT_TRUE(command.ok());
    execute(std::move(*command));
    EXPECT_EQ(composite.inPort(2)->srcPort(), hero.outPort(0));
    EXPECT_EQ(composite.nInPorts(), 4U);
}

TEST_F(EditCommands, AModuleIsAddedWithItsLinkAsOneChange)
{
    auto added = std::make_unique<MO_GlueModule>();
    MO_Module* const module = added.get();
    execute(MO_addModuleCmd(root, std::move(added), &hero));
    EXPECT_EQ(module->inPort(0)->srcPort(), hero.outPort(0));
    EXPECT_EQ(stack.undoNames().size(), 1);
}

TEST_F(EditCommands, CopiesHaveTheLinksAmongThemTheValuesAndTheDrawings)
{
    auto& group = root.emplace<XUGroup>();
    auto& inner = addElement(group, rectangle(0, 0, 1, 1));
    link(hero, glue);
    hero.positionX()->setLocalValue(3.5);
    std::vector<MO_Module*> copies;
    execute(std::move(*MO_duplicateModulesCmd({&hero, &glue, &group}, &copies)));
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
    EXPECT_FALSE(*MO_duplicateModulesCmd({&glue, &inner}));
}

TEST_F(EditCommands, DuplicatesOnlyAsManyModulesAsASceneCanBeSavedWith)
{
    auto& group = root.emplace<XUGroup>();
    while (group.modules().size() < XUGroup::kMaxModulesInFile / 2)
        group.emplace<MO_GlueModule>();
    const auto refused = MO_duplicateModulesCmd({&group});
    ASSERT_FALSE(refused.ok());
    EXPECT_TRUE(refused.error().text.contains(QString::number(XUGroup::kMaxModulesInFile)));
    EXPECT_TRUE(MO_duplicateModulesCmd({&hero}).ok());
}
