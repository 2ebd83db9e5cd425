// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is done in the node view: selecting, linking, naming, groups.
#include "Apps/studio/docks/NodeViewTesting.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QLineEdit>
#include <QToolButton>

TEST_F(NodeViewTest, AClickSelectsAndWithControlAddsToTheSelection)
{
    click(module("Hero"));
    EXPECT_EQ(document.selection(), QList<MO_Module*>{&module("Hero")});
    click(module("Composite"), Qt::ControlModifier);
    EXPECT_EQ(document.selection(), (QList<MO_Module*>{&module("Hero"), &module("Composite")}));
    expectNoChange();
}

TEST_F(NodeViewTest, ARubberBandSelectsWhatItTouches)
{
    const QRect hero = nodes().mapFromScene(nodes().item(module("Hero"))->box()).boundingRect();
    const QRect hat = nodes().mapFromScene(nodes().item(module("Hat"))->box()).boundingRect();
    const QRect both = (hero | hat).adjusted(-12, -14, 12, 4);
    QTest::mousePress(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, both.topLeft());
    // The rubber band looks at the buttons of the event, which QTest::mouseMove() does not set.
    QMouseEvent move(QEvent::MouseMove, both.bottomRight(), nodes().viewport()->mapToGlobal(both.bottomRight()),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(nodes().viewport(), &move);
    QTest::mouseRelease(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, both.bottomRight());
    EXPECT_EQ(document.selection().size(), 2);
    EXPECT_TRUE(document.selection().contains(&module("Hero")));
    EXPECT_TRUE(document.selection().contains(&module("Hat")));
}

TEST_F(NodeViewTest, ASelectionMadeElsewhereIsShown)
{
    document.setSelection({&module("Display")});
    EXPECT_TRUE(nodes().item(module("Display"))->isSelected());
    EXPECT_FALSE(nodes().item(module("Hero"))->isSelected());
}

TEST_F(NodeViewTest, ASelectionMadeElsewhereIsBroughtIntoViewInAGraphThatDoesNotFit)
{
    auto scene = docks::smallScene();
    for (int i = 0; i < 60; ++i)
        scene->root().emplace<MO_ElementModule>().setInstanceName(QStringLiteral("Extra%1").arg(i));
    document.replaceScene(std::move(scene), QString(), false);
    docks::settle();
    for (const char* const name : {"Extra0", "Extra59", "Display"}) {
        document.setSelection({&module(name)});
        docks::settle();
        const QRect box = nodes().mapFromScene(nodes().item(module(name))->box()).boundingRect();
        EXPECT_TRUE(nodes().viewport()->rect().contains(box)) << name;
    }
}

TEST_F(NodeViewTest, ADragFromAnOutputToAnInputConnects)
{
    MO_Module& arm = module("Arm");
    drag(*nodes().viewport(), port(module("Hero"), false, 0), port(arm, true, 0));
    ASSERT_NE(arm.inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(arm.inPort(0)->srcPort()->node(), &module("Hero"));
    EXPECT_TRUE(state().contains(QStringLiteral("<link from=\"Hero\" fromPort=\"0\" to=\"Arm\" toPort=\"0\"/>")));
    expectOneChange(QStringLiteral("Connect \"Hero\" to \"Arm\""));
}

TEST_F(NodeViewTest, ADragFromAFreeInputToAnOutputConnectsToo)
{
    drag(*nodes().viewport(), port(module("Arm"), true, 0), port(module("Hat"), false, 0));
    ASSERT_NE(module("Arm").inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(module("Arm").inPort(0)->srcPort()->node(), &module("Hat"));
    expectOneChange(QStringLiteral("Connect \"Hat\" to \"Arm\""));
}

TEST_F(NodeViewTest, ALinkDroppedOnANodeTakesItsFirstFreeInput)
{
    drag(*nodes().viewport(), port(module("Arm"), false, 0), middleOf(module("Composite")));
    ASSERT_GE(module("Composite").nInPorts(), 3u);
    ASSERT_NE(module("Composite").inPort(2)->srcPort(), nullptr);
    EXPECT_EQ(module("Composite").inPort(2)->srcPort()->node(), &module("Arm"));
    expectOneChange(QStringLiteral("Connect \"Arm\" to \"Composite\""));
}

TEST_F(NodeViewTest, ALinkDraggedAwayFromItsInputIsCut)
{
    const QPoint empty(4, nodes().viewport()->height() - 4);
    ASSERT_EQ(nodes().moduleAt(empty), nullptr);
    drag(*nodes().viewport(), port(module("Display"), true, 0), empty);
    EXPECT_EQ(module("Display").inPort(0)->srcPort(), nullptr);
    expectOneChange(QStringLiteral("Disconnect \"Display\""));
}

TEST_F(NodeViewTest, ALinkDraggedToAnotherInputMovesThereInOneStep)
{
    drag(*nodes().viewport(), port(module("Display"), true, 0), port(module("Arm"), true, 0));
    EXPECT_EQ(module("Display").inPort(0)->srcPort(), nullptr);
    ASSERT_NE(module("Arm").inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(module("Arm").inPort(0)->srcPort()->node(), &module("Composite"));
    expectOneChange(QStringLiteral("Move Link to \"Arm\""));
}

TEST_F(NodeViewTest, ALinkPutBackIsNoChange)
{
    const QPoint input = port(module("Display"), true, 0);
    drag(*nodes().viewport(), input, input);
    expectNoChange();
}

TEST_F(NodeViewTest, ACircleIsRefusedWithTheReason)
{
    document.execute(std::move(*MO_connectCmd(module("Composite"), module("Arm"))));
    document.commands().clear();
    docks::settle();
    before = state();
    QStringList told;
    QObject::connect(&nodes(), &NodeView::refused, &nodes(), [&](const QString& why) { told << why; });
    drag(*nodes().viewport(), port(module("Arm"), false, 0), port(module("Composite"), true, 2));
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.front(), QStringLiteral("\"Arm\" already depends on \"Composite\"; the link would close a circle"));
    expectNoChange();
}

TEST_F(NodeViewTest, DeleteRemovesTheSelectionWithItsLinks)
{
    click(module("Composite"));
    QTest::keyClick(&nodes(), Qt::Key_Delete);
    EXPECT_EQ(document.scene().findModule(QStringLiteral("Composite")), nullptr);
    EXPECT_FALSE(state().contains(QStringLiteral("<link from=\"Hero\"")));
    EXPECT_TRUE(document.selection().isEmpty());
    expectOneChange(QStringLiteral("Delete \"Composite\""));
}

TEST_F(NodeViewTest, ControlDDuplicatesAndSelectsTheCopy)
{
    click(module("Hero"));
    QTest::keyClick(&nodes(), Qt::Key_D, Qt::ControlModifier);
    ASSERT_EQ(document.selection().size(), 1);
    EXPECT_EQ(document.currentModule()->instanceName(), QStringLiteral("Hero_1"));
    EXPECT_NE(nodes().item(*document.currentModule()), nullptr);
    expectOneChange(QStringLiteral("Duplicate \"Hero\""));
}

TEST_F(NodeViewTest, DSwitchesOffAndOn)
{
    click(module("Hat"));
    QTest::keyClick(&nodes(), Qt::Key_D);
    EXPECT_FALSE(module("Hat").enabled());
    EXPECT_TRUE(state().contains(QStringLiteral("<module drawingFileExt=\"KVR\" enabled=\"false\" name=\"Hat\"")));
    QTest::keyClick(&nodes(), Qt::Key_D);
    EXPECT_TRUE(module("Hat").enabled());
    document.undo();
    document.commands().endMerging();
    EXPECT_FALSE(module("Hat").enabled());
}

TEST_F(NodeViewTest, F2RenamesInPlace)
{
    click(module("Hero"));
    QTest::keyClick(&nodes(), Qt::Key_F2);
    auto* field = nodes().findChild<QLineEdit*>(QStringLiteral("NodeName"));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->text(), QStringLiteral("Hero"));
    QTest::keyClicks(field, QStringLiteral("Bold"));
    EXPECT_EQ(state(), before);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_NE(document.scene().findModule(QStringLiteral("Bold")), nullptr);
    expectOneChange(QStringLiteral("Rename \"Hero\""));
}

TEST_F(NodeViewTest, EscapeKeepsTheName)
{
    click(module("Hero"));
    QTest::keyClick(&nodes(), Qt::Key_F2);
    auto* field = nodes().findChild<QLineEdit*>(QStringLiteral("NodeName"));
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, QStringLiteral("Bold"));
    QTest::keyClick(field, Qt::Key_Escape);
    expectNoChange();
    EXPECT_EQ(nodes().findChild<QLineEdit*>(QStringLiteral("NodeName")), nullptr);
}

TEST_F(NodeViewTest, ADoubleClickEntersAGroupAndTheBarLeadsBack)
{
    QTest::mouseDClick(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(module("Arm")));
    EXPECT_EQ(&nodes().group(), &module("Arm"));
    EXPECT_EQ(nodes().item(module("Hero")), nullptr);
    EXPECT_NE(nodes().item(dynamic_cast<XUGroup&>(module("Arm")).entry()), nullptr);
    docks::settle();
    QToolButton* back = nullptr;
    for (auto* button : view<NodePanel>().findChildren<QToolButton*>())
        if (button->text() == QStringLiteral("Scene"))
            back = button;
    ASSERT_NE(back, nullptr);
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(&nodes().group(), &document.scene().root());
    EXPECT_EQ(document.currentModule(), &module("Arm"));
    expectNoChange();
}

TEST_F(NodeViewTest, TheBorderOfAGroupIsConnectedLikeANode)
{
    auto& arm = dynamic_cast<XUGroup&>(module("Arm"));
    MO_Module& inner = *arm.modules().front();
    nodes().enter(arm);
    drag(*nodes().viewport(), port(arm.entry(), false, 0), port(inner, true, 0));
    EXPECT_EQ(inner.inPort(0)->srcPort(), arm.entry().outPort(0));
    docks::settle();
    drag(*nodes().viewport(), port(inner, false, 0), port(arm.exit(), true, 0));
    EXPECT_EQ(arm.exit().inPort(0)->srcPort(), inner.outPort(0));
    document.undo();
    document.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(NodeViewTest, AGroupThatIsDeletedWhileItIsShownIsLeft)
{
    nodes().enter(dynamic_cast<XUGroup&>(module("Arm")));
    document.execute(MO_removeModulesCmd({&module("Arm")}));
    EXPECT_EQ(&nodes().group(), &document.scene().root());
    document.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(NodeViewTest, EveryKindOfTheFactoryCanBeAddedFromTheMenu)
{
    QMenu menu;
    view<NodePanel>().actions().fillAddMenu(menu);
    const auto kinds = menu.actions().size();
    EXPECT_GE(kinds, 6);
    for (qsizetype i = 0; i < kinds; ++i) {
        document.setSelection({});
        menu.actions().at(i)->trigger();
        ASSERT_NE(document.currentModule(), nullptr);
        EXPECT_EQ(QStringLiteral("add") + document.currentModule()->keyword(), menu.actions().at(i)->objectName());
        EXPECT_NE(nodes().item(*document.currentModule()), nullptr);
    }
    EXPECT_EQ(document.commands().undoNames().size(), kinds);
    while (document.commands().canUndo())
        document.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(NodeViewTest, AnAddedNodeIsLinkedToTheSelectedOneInTheSameStep)
{
    click(module("Hero"));
    EXPECT_TRUE(view<NodePanel>().actions().addNode(QStringLiteral("Vallorin")));
    MO_Module* const added = document.currentModule();
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->keyword(), QStringLiteral("Vallorin"));
    ASSERT_NE(added->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(added->inPort(0)->srcPort()->node(), &module("Hero"));
    expectOneChange(QStringLiteral("Add %1").arg(added->baseDisplayName()));
}

TEST_F(NodeViewTest, TheMenuConnectsAndDisconnectsWithoutAMouse)
{
    document.setSelection({&module("Hat")});
    nodes().setFocus();
    QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&nodes(), &wanted);
    auto* menu = nodes().findChild<QMenu*>(QStringLiteral("NodeMenu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(choose(*menu, QStringLiteral("Arm")));
    menu->close();
    ASSERT_NE(module("Arm").inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(module("Arm").inPort(0)->srcPort()->node(), &module("Hat"));
    expectOneChange(QStringLiteral("Connect \"Hat\" to \"Arm\""));
}

TEST_F(NodeViewTest, PortsOfGroupsComeAndGoUnlessTheyAreLinked)
{
    document.setSelection({&module("Arm")});
    Q_EMIT nodes().menuWanted(QPoint(), &module("Arm"), {});
    auto* menu = nodes().findChild<QMenu*>(QStringLiteral("NodeMenu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(choose(*menu, QStringLiteral("Add Input")));
    menu->close();
    EXPECT_EQ(module("Arm").nInPorts(), 2u);
    EXPECT_TRUE(state().contains(QStringLiteral("inPorts=\"2\" name=\"Arm\"")));
    expectOneChange(QStringLiteral("Add Input Port"));
}

TEST_F(NodeViewTest, ArrowKeysGoFromNodeToNode)
{
    nodes().setFocus();
    document.setSelection({&module("Display")});
    QTest::keyClick(&nodes(), Qt::Key_Up);
    EXPECT_EQ(document.currentModule(), &module("Composite"));
    QTest::keyClick(&nodes(), Qt::Key_Up);
    EXPECT_TRUE(document.currentModule() == &module("Hero") || document.currentModule() == &module("Hat"));
    QTest::keyClick(&nodes(), Qt::Key_Down);
    EXPECT_EQ(document.currentModule(), &module("Composite"));
}

TEST_F(NodeViewTest, ALinkIsNoNode)
{
    const QPoint from = port(module("Composite"), false, 0);
    const QPoint middle = (from + port(module("Display"), true, 0)) / 2;
    EXPECT_EQ(nodes().linkAt(middle).module, &module("Display"));
    EXPECT_EQ(nodes().moduleAt(middle), nullptr);
}
