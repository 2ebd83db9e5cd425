// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node view, with mouse and keyboard.
#include "Apps/studio/docks/DocksTesting.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include <QDockWidget>
#include <QGraphicsView>
#include <QLineEdit>
#include <QToolButton>

namespace {

class NodeViewTest : public docks::DocksTest
{
protected:
    QPointF middleInGraph(const char* name) const { return nodes().item(module(name))->box().center(); }
    void moveMouse(const QPoint& to)
    {
        QMouseEvent event(QEvent::MouseMove, to, nodes().viewport()->mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(nodes().viewport(), &event);
    }
    void moveBy(const MO_Module& module, const QPoint& way)
    {
        const QPoint from = middleOf(module);
        QTest::mousePress(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from);
        moveMouse(from + way / 2);
        moveMouse(from + way);
        QTest::mouseRelease(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from + way);
        docks::settle();
    }
    QPoint port(const MO_Module& module, bool isInput, unsigned index) const
    {
        return nodes().portPosition(module, isInput, index);
    }
    void click(const MO_Module& module, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::mouseClick(nodes().viewport(), Qt::LeftButton, keys, middleOf(module));
    }
};

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

TEST_F(NodeViewTest, TheWheelZoomsAndTheMiddleButtonPans)
{
    const double zoom = nodes().transform().m11();
    QWheelEvent wheel(QPointF(100, 60), nodes().viewport()->mapToGlobal(QPointF(100, 60)), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(nodes().viewport(), &wheel);
    EXPECT_GT(nodes().transform().m11(), zoom);
    const QPoint at = middleOf(module("Hero"));
    QTest::mousePress(nodes().viewport(), Qt::MiddleButton, Qt::NoModifier, QPoint(100, 60));
    QTest::mouseMove(nodes().viewport(), QPoint(130, 80));
    QTest::mouseRelease(nodes().viewport(), Qt::MiddleButton, Qt::NoModifier, QPoint(130, 80));
    EXPECT_EQ(middleOf(module("Hero")), at + QPoint(30, 20));
    expectNoChange();
}

TEST_F(NodeViewTest, FingersThatRestOnATouchpadLeaveTheGraphFitted)
{
    QWheelEvent rest(QPointF(100, 60), nodes().viewport()->mapToGlobal(QPointF(100, 60)), QPoint(), QPoint(),
                     Qt::NoButton, Qt::NoModifier, Qt::ScrollBegin, false);
    nodes().fitAll();
    QCoreApplication::sendEvent(nodes().viewport(), &rest);
    const double scale = nodes().transform().m11();
    window.resizeDocks({window.findChild<QDockWidget*>(QStringLiteral("NodesDock"))}, {120}, Qt::Vertical);
    window.resize(1500, 500);
    docks::settle();
    EXPECT_LT(nodes().transform().m11(), scale);
}

TEST_F(NodeViewTest, ALinkIsNoNode)
{
    const QPoint from = port(module("Composite"), false, 0);
    const QPoint middle = (from + port(module("Display"), true, 0)) / 2;
    EXPECT_EQ(nodes().linkAt(middle).module, &module("Display"));
    EXPECT_EQ(nodes().moduleAt(middle), nullptr);
}

TEST_F(NodeViewTest, ANodeIsMovedByHandAndKeepsItsPlaceUntilThatIsUndone)
{
    const QPointF was = middleInGraph("Hat");
    const QPointF others = middleInGraph("Hero");
    moveBy(module("Hat"), QPoint(60, 40));
    const double zoom = nodes().transform().m11();
    EXPECT_NEAR(middleInGraph("Hat").x(), was.x() + 60 / zoom, 1.0);
    EXPECT_NEAR(middleInGraph("Hat").y(), was.y() + 40 / zoom, 1.0);
    EXPECT_EQ(middleInGraph("Hero"), others);
    expectOneChange(QStringLiteral("Move \"Hat\""));
    document.undo();
    docks::settle();
    EXPECT_EQ(middleInGraph("Hat"), was);
}

TEST_F(NodeViewTest, SelectedNodesMoveTogetherAndTheirLinksWithThem)
{
    document.setSelection({&module("Hero"), &module("Hat")});
    const QPointF between = middleInGraph("Hero") - middleInGraph("Hat");
    moveBy(module("Hat"), QPoint(50, 0));
    EXPECT_NEAR((middleInGraph("Hero") - middleInGraph("Hat") - between).manhattanLength(), 0.0, 2.0);
    EXPECT_EQ(nodes().linkAt(port(module("Composite"), true, 1)).module, &module("Composite"));
    EXPECT_EQ(document.commands().undoNames().size(), 1);
}

TEST_F(NodeViewTest, EscapeGivesAMoveUp)
{
    const QPointF was = middleInGraph("Hat");
    const QPoint from = middleOf(module("Hat"));
    QTest::mousePress(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from);
    moveMouse(from + QPoint(80, 30));
    EXPECT_NE(middleInGraph("Hat"), was);
    QTest::keyClick(&nodes(), Qt::Key_Escape);
    EXPECT_EQ(middleInGraph("Hat"), was);
    QTest::mouseRelease(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from + QPoint(80, 30));
    expectNoChange();
}

TEST_F(NodeViewTest, ArrangeLetsTheGraphPlaceTheNodesAgain)
{
    const QPointF was = middleInGraph("Hat");
    moveBy(module("Hat"), QPoint(60, 40));
    QTest::keyClick(&nodes(), Qt::Key_L);
    docks::settle();
    EXPECT_EQ(middleInGraph("Hat"), was);
}

TEST_F(NodeViewTest, ConnectingMovesNoNodeUntilTheGraphIsArranged)
{
    const QStringList names{QStringLiteral("Hero"), QStringLiteral("Hat"), QStringLiteral("Composite"),
                            QStringLiteral("Display"), QStringLiteral("Arm")};
    const auto places = [&] {
        QList<QPointF> middles;
        for (const QString& name : names)
            middles << middleInGraph(qPrintable(name));
        return middles;
    };
    const QList<QPointF> first = places();
    // By itself, the layout would put the arm into a row above the composite.
    drag(*nodes().viewport(), port(module("Arm"), false, 0), port(module("Composite"), true, 2));
    ASSERT_NE(module("Composite").inPort(2)->srcPort(), nullptr);
    docks::settle();
    EXPECT_EQ(places(), first);
    document.undo();
    docks::settle();
    EXPECT_EQ(places(), first);
    document.redo();
    document.setSelection({});
    QTest::keyClick(&nodes(), Qt::Key_L);
    docks::settle();
    const GraphLayout arranged = layoutGraph(document.scene().root());
    for (const QString& name : names)
        EXPECT_EQ(middleInGraph(qPrintable(name)), arranged[&module(qPrintable(name))].center()) << qPrintable(name);
    EXPECT_NE(places(), first);
}

TEST_F(NodeViewTest, ANodeKeepsItsPlaceWhileAnotherGroupIsLookedAt)
{
    drag(*nodes().viewport(), port(module("Arm"), false, 0), port(module("Composite"), true, 2));
    docks::settle();
    const QPointF was = middleInGraph("Arm");
    nodes().enter(dynamic_cast<XUGroup&>(module("Arm")));
    nodes().leave();
    docks::settle();
    EXPECT_EQ(middleInGraph("Arm"), was);
}

TEST_F(NodeViewTest, WhatIsNewGivesWayToWhatStands)
{
    const GraphLayout alone = layoutGraph(document.scene().root());
    // Everything stands a little higher than the layout would have it, and the arm where the new node would come.
    NodePlaces standing;
    for (auto node = alone.cbegin(); node != alone.cend(); ++node)
        standing.insert(node.key(), node->center() - QPointF(0.0, 10.0));
    auto& added = document.scene().root().emplace<MO_DisplayModule>();
    ASSERT_TRUE(MO_Scene::connect(module("Hat"), added).ok());
    const QRectF wanted = layoutGraph(document.scene().root())[&added];
    standing[&module("Arm")] = wanted.center();
    const GraphLayout layout = layoutGraph(document.scene().root(), standing);
    for (const auto& [node, place] : standing.asKeyValueRange())
        EXPECT_EQ(layout[node].center(), place);
    for (auto node = layout.cbegin(); node != layout.cend(); ++node)
        if (node.key() != &added) {
            EXPECT_FALSE(node->intersects(layout[&added]));
        }
    EXPECT_EQ(layout[&added].center().y(), wanted.center().y() - 10.0);
}

TEST_F(NodeViewTest, ANewNodeAppearsWhereTheMenuWasOpened)
{
    const QPoint place(40, nodes().viewport()->height() - 40);
    ASSERT_EQ(nodes().moduleAt(place), nullptr);
    const QPoint hero = middleOf(module("Hero"));
    Q_EMIT nodes().menuWanted(nodes().viewport()->mapToGlobal(place), nullptr, {});
    const auto* const menu = nodes().findChild<QMenu*>(QStringLiteral("NodeMenu"));
    ASSERT_NE(menu, nullptr);
    ASSERT_TRUE(choose(*menu, MO_CompositeModule().baseDisplayName()));
    docks::settle();
    ASSERT_NE(document.currentModule(), nullptr);
    EXPECT_LE((middleOf(*document.currentModule()) - place).manhattanLength(), 2);
    // What was seen stays where it was.
    EXPECT_EQ(middleOf(module("Hero")), hero);
}

TEST_F(NodeViewTest, ConnectingPansNothing)
{
    moveBy(module("Hat"), QPoint(20, 0));
    const QTransform was = nodes().viewportTransform();
    drag(*nodes().viewport(), port(module("Hero"), false, 0), port(module("Arm"), true, 0));
    ASSERT_NE(module("Arm").inPort(0)->srcPort(), nullptr);
    docks::settle();
    EXPECT_EQ(nodes().viewportTransform(), was);
}

TEST_F(NodeViewTest, ThreeHundredInputsAreReadable)
{
    auto* const group = dynamic_cast<XUGroup*>(&module("Arm"));
    while (group->nInPorts() < 320)
        group->addInPort();
    document.execute(std::move(*MO_connectCmd(module("Hero"), *group, 300)));
    docks::settle();
    // As near as one has to be to take hold of a single port.
    nodes().resetTransform();
    nodes().keepView();
    nodes().centerOn(nodes().item(*group)->portPosition(true, 300));
    const QPoint one = port(*group, true, 300);
    const QPoint next = port(*group, true, 301);
    EXPECT_GE(next.x() - one.x(), 16);
    moveMouse(one);
    EXPECT_EQ(nodes().item(*group)->toolTip(), QStringLiteral("Input 301: Hero"));
    // The name stands where the node is seen, thousands of units from its left end.
    const QRectF seen = nodes().mapToScene(nodes().viewport()->rect()).boundingRect();
    EXPECT_TRUE(seen.contains(nodes().item(*group)->nameBox(seen).topLeft()));
}

TEST_F(NodeViewTest, AMenuOfHundredsOfLinksFitsTheScreen)
{
    auto* const group = dynamic_cast<XUGroup*>(&module("Arm"));
    while (group->nInPorts() < 120)
        group->addInPort();
    for (unsigned i = 0; i < 120; ++i)
        ASSERT_TRUE(MO_Scene::connect(module("Hero"), *group, i).ok());
    docks::settle();
    Q_EMIT nodes().menuWanted(QPoint(10, 10), group, {});
    auto* const menu = nodes().findChild<QMenu*>(QStringLiteral("NodeMenu"));
    ASSERT_NE(menu, nullptr);
    const QSize screen = nodes().screen()->availableSize();
    EXPECT_LE(menu->sizeHint().height(), screen.height());
    bool found = false;
    for (QMenu* const inner : menu->findChildren<QMenu*>()) {
        found = found || inner->actions().size() == 120;
        EXPECT_LE(inner->sizeHint().width(), screen.width());
    }
    EXPECT_TRUE(found);
}

TEST_F(NodeViewTest, InputsStandAboveWhatTheyFeedAndNoBoxesOverlap)
{
    const GraphLayout layout = layoutGraph(document.scene().root());
    ASSERT_EQ(layout.size(), 5);
    EXPECT_LT(layout[&module("Hero")].bottom(), layout[&module("Composite")].top());
    EXPECT_LT(layout[&module("Composite")].bottom(), layout[&module("Display")].top());
    // Hero goes into the first port and so stands to the left.
    EXPECT_LT(layout[&module("Hero")].right(), layout[&module("Hat")].left());
    for (auto a = layout.cbegin(); a != layout.cend(); ++a)
        for (auto b = std::next(a); b != layout.cend(); ++b)
            EXPECT_FALSE(a.value().intersects(b.value()));
}

} // namespace
