// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Undoable changes of a scene, compared as the text that would be saved: every undo and redo restores the text before
// or after the change, to the byte.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_GroupCommands.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <QDomDocument>

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

    // Executes a command and checks that undo and redo restore the saved text.
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

TEST_F(EditCommands, TheLastKeyLeavesItsValue)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 3.0));
    execute(MO_EditCommand(x.setValueCmd(3.0, 7.0)));
    execute(MO_removeKeyCmd(x, 3.0));
    EXPECT_FALSE(x.isAnimated());
    EXPECT_EQ(x.localValue(), 7.0);
}

TEST_F(EditCommands, AKeyInASmoothStretchLeavesItsForm)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_EditCommand(x.setValueCmd(13.0, 7.0)));
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    const AT_Curve before = x.curve();
    EXPECT_GT(before.value(2.0), 0.0);
    EXPECT_LT(before.value(2.0), 7.0 / 12.0) << "it leaves smoothly";
    execute(MO_addKeyCmd(x, 5.0));
    execute(MO_addKeyCmd(x, 10.0));
    ASSERT_EQ(x.curve().keys().size(), 4U);
    for (double frame = 1.0; frame <= 13.0; frame += 0.25)
        EXPECT_NEAR(x.value(frame), before.value(frame), 1e-9) << frame;
    // Another value at a key moves its handles along.
    execute(MO_EditCommand(x.setValueCmd(7.0, 20.0)));
    EXPECT_EQ(x.value(7.0), 20.0);
    EXPECT_NE(x.curve().keyAt(7.0)->out, AT_Curve::Handle());
}

TEST_F(EditCommands, AKeyBehindASmoothLastOneIsReachedSmoothly)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    execute(MO_EditCommand(x.setValueCmd(13.0, 12.0)));
    EXPECT_NEAR(x.value(7.0), 6.0, 1e-9);
    EXPECT_LT(x.value(2.0), 0.5) << "in a straight line it would be 1";
    EXPECT_GT(x.value(12.0), 11.5);
}

TEST_F(EditCommands, ASmoothKeyWithoutHandlesCanBeMadeSmooth)
{
    AT_DoubleAttr& x = *hero.positionX();
    AT_Curve curve;
    curve.setKey({1.0, 0.0, AT_Curve::Interpolation::BEZIER, {}, {}, {}});
    curve.setKey({13.0, 12.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    x.setCurve(curve);
    EXPECT_NEAR(x.value(2.0), 1.0, 1e-9);
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    EXPECT_LT(x.value(2.0), 0.5);
    EXPECT_FALSE(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER)) << "it is smooth now";
}

TEST_F(EditCommands, AnInterpolationReplacesOneThatThisVersionDoesNotKnow)
{
    const auto curveOf = [](const QString& type) {
        QDomDocument document;
        document.setContent(
            QStringLiteral("<curve><key frame=\"1\" type=\"%1\" val=\"2\" mood=\"3\"/></curve>").arg(type));
        AT_Curve curve;
        (void)curve.parseXml(document.documentElement(), nullptr);
        return curve;
    };
    AT_DoubleAttr& x = *hero.positionX();
    for (const auto& [chosen, name] : {std::pair(AT_Curve::Interpolation::HOLD, QStringLiteral("hold")),
                                       std::pair(AT_Curve::Interpolation::LINEAR, QStringLiteral("linear"))}) {
        x.setCurve(curveOf(QStringLiteral("spring")));
        execute(MO_interpolationCmd(x, 1.0, chosen));
        EXPECT_EQ(x.curve(), curveOf(name));
        EXPECT_FALSE(MO_interpolationCmd(x, 1.0, chosen));
    }
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

TEST_F(EditCommands, SeveralNumbersChangeInOneStepHoweverADragReachesThem)
{
    AT_DoubleAttr& x = *hero.positionX();
    AT_DoubleAttr& y = *hero.positionY();
    const QString name = QStringLiteral("Move Hero");
    const QString before = savedText(scene);
    // Across first, then up as well; single commands for each number would not merge.
    ASSERT_TRUE(stack.execute(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 0.0}})));
    ASSERT_TRUE(stack.execute(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 7.0}})));
    EXPECT_EQ(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 7.0}}), nullptr);
    EXPECT_EQ(stack.undoNames(), QStringList{name});
    stack.undo();
    EXPECT_EQ(savedText(scene), before);
    stack.redo();
    EXPECT_EQ(x.localValue(), 5.0);
    EXPECT_EQ(y.localValue(), 7.0);
}

TEST_F(EditCommands, NumbersThatAreAnimatedGetAKey)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_numbersCmd(QStringLiteral("Move Hero"), 9.0, {{&x, 4.0}, {hero.positionY(), 3.0}}));
    EXPECT_EQ(x.value(1.0), 0.0);
    EXPECT_EQ(x.value(9.0), 4.0);
    EXPECT_EQ(hero.positionY()->value(1.0), 3.0);
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

unsigned anyPort()
{
    return static_cast<unsigned>(*rc::gen::inRange(0, 4));
}

MO_EditCommand commandOr(UT_Result<MO_EditCommand> command)
{
    return command ? std::move(*command) : nullptr;
}

MO_EditCommand anyChangeOfElement(MO_ElementModule& element)
{
    AT_DoubleAttr& x = *element.positionX();
    const int frame = *rc::gen::inRange(0, 3);
    switch (*rc::gen::inRange(0, 7)) {
    case 0:
        return MO_addKeyCmd(x, frame);
    case 1:
        return MO_removeKeyCmd(x, frame);
    case 2:
        return MO_moveKeyCmd(x, frame, *rc::gen::inRange(0, 3));
    case 3:
        return MO_interpolationCmd(x, frame, AT_Curve::Interpolation::BEZIER);
    case 4:
        return MO_constantCmd(x, *rc::gen::inRange(-3, 3));
    case 5:
        return MO_driveCmd(x, UT_makeShared<AT_AttrLink>(QStringLiteral("A.PositionY")));
    default:
        return MO_exposeCmd(*element.drawingAttr(), frame, *rc::gen::element(QStringLiteral("1"), QStringLiteral("2")));
    }
}

MO_EditCommand anyChangeOfScene(MO_Scene& scene)
{
    switch (*rc::gen::inRange(0, 3)) {
    case 0:
        return MO_frameRangeCmd(scene, *rc::gen::inRange(-3, 3), *rc::gen::inRange(0, 9));
    case 1:
        return MO_frameHeightCmd(scene, *rc::gen::inRange(0, 3) * 100.0);
    default:
        return MO_renamePaletteCmd(scene, scene.palettes().front(),
                                   *rc::gen::element(QStringLiteral("Skin"), QStringLiteral("Cloth")));
    }
}

// A random change; null when the drawn one is not possible.
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
    const int kind = *rc::gen::inRange(0, 14);
    if (kind < 3 || !one) {
        const QStringList kinds{XUGroup::Keyword(), MO_ElementModule::Keyword(), MO_GlueModule::Keyword(),
                                MO_CompositeModule::Keyword()};
        return MO_addModuleCmd(group, MO_ModuleFactorySingleton().create(kinds[*rc::gen::inRange(0, 4)]),
                               *rc::gen::arbitrary<bool>() ? one : nullptr);
    }
    switch (kind) {
    case 3:
        return MO_removeModulesCmd(one == two ? std::vector{one} : std::vector{one, two});
    case 4:
        return std::move(*MO_duplicateModulesCmd({one}));
    case 5:
        return MO_disconnectCmd(*two, anyPort());
    case 6:
        return MO_renameCmd(*one, *rc::gen::element(QStringLiteral("A"), QStringLiteral("A_1"), QStringLiteral("")));
    case 7:
        return MO_enableCmd({one, two}, *rc::gen::arbitrary<bool>());
    case 8:
        return commandOr(MO_moveLinkCmd(*one, anyPort(), *two, anyPort()));
    case 9:
        return *rc::gen::arbitrary<bool>() ? MO_addGroupPortCmd(group, *rc::gen::arbitrary<bool>())
                                           : commandOr(MO_removeGroupPortCmd(group, *rc::gen::arbitrary<bool>()));
    case 10:
        return anyChangeOfScene(scene);
    case 11: {
        auto* const element = dynamic_cast<MO_ElementModule*>(one);
        return element ? anyChangeOfElement(*element) : nullptr;
    }
    default:
        return commandOr(MO_connectCmd(*one, *two, anyPort()));
    }
}

RC_GTEST_PROP(EditCommandsOfAnyKind, UndoAndRedoBringBackTheBytes, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
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

// Counts the scene's notifications.
class Notifications : public XUListener
{
public:
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

RC_GTEST_PROP(EditCommandsOfAnyKind, AreMadeWithoutChangingTheSceneOrTellingAnybody, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
    Notifications notifications;
    scene.addListener(notifications);
    CO_CommandStack stack;
    for (int i = 0; i < 25; ++i) {
        const QString text = savedText(scene);
        const int count = notifications.count;
        MO_EditCommand command = anyChange(scene);
        RC_ASSERT(savedText(scene) == text);
        RC_ASSERT(notifications.count == count);
        stack.execute(std::move(command));
    }
}

RC_GTEST_PROP(ModulesOfAnyKind, AreLinkedExactlyWhenTheyMayBe, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
    CO_CommandStack stack;
    for (int i = 0; i < 25; ++i) {
        stack.execute(anyChange(scene));
        std::vector<MO_Module*> modules;
        scene.root().forEachModule([&](MO_Module& module) { modules.push_back(&module); });
        if (modules.empty())
            continue;
        MO_Module& source = **rc::gen::elementOf(modules);
        MO_Module& target = **rc::gen::elementOf(modules);
        const unsigned port = anyPort();
        const QString text = savedText(scene);
        const auto possible = MO_Scene::mayConnect(source, target, port);
        RC_ASSERT(savedText(scene) == text);
        const auto linked = MO_Scene::connect(source, target, port);
        RC_ASSERT(linked.ok() == possible.ok());
        if (!possible)
            RC_ASSERT(savedText(scene) == text);
        else
            RC_ASSERT(target.inPort(port)->srcPort() == source.outPort(0));
    }
}

} // namespace
