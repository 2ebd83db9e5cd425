// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the node view shows the nodes: its window into the graph, moved nodes, the arrangement.
#include "Apps/studio/docks/NodeViewTesting.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"

#include <QDockWidget>

using NodePlacesTest = NodeViewTest;

TEST_F(NodePlacesTest, TheWheelZoomsAndTheMiddleButtonPans)
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

TEST_F(NodePlacesTest, FingersThatRestOnATouchpadLeaveTheGraphFitted)
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

TEST_F(NodePlacesTest, ANodeIsMovedByHandAndKeepsItsPlaceUntilThatIsUndone)
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

TEST_F(NodePlacesTest, SelectedNodesMoveTogetherAndTheirLinksWithThem)
{
    document.setSelection({&module("Hero"), &module("Hat")});
    const QPointF between = middleInGraph("Hero") - middleInGraph("Hat");
    moveBy(module("Hat"), QPoint(50, 0));
    EXPECT_NEAR((middleInGraph("Hero") - middleInGraph("Hat") - between).manhattanLength(), 0.0, 2.0);
    EXPECT_EQ(nodes().linkAt(port(module("Composite"), true, 1)).module, &module("Composite"));
    EXPECT_EQ(document.commands().undoNames().size(), 1);
}

TEST_F(NodePlacesTest, EscapeGivesAMoveUp)
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

TEST_F(NodePlacesTest, ArrangeLetsTheGraphPlaceTheNodesAgain)
{
    const QPointF was = middleInGraph("Hat");
    moveBy(module("Hat"), QPoint(60, 40));
    QTest::keyClick(&nodes(), Qt::Key_L);
    docks::settle();
    EXPECT_EQ(middleInGraph("Hat"), was);
}

TEST_F(NodePlacesTest, ConnectingMovesNoNodeUntilTheGraphIsArranged)
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

TEST_F(NodePlacesTest, ANodeKeepsItsPlaceWhileAnotherGroupIsLookedAt)
{
    drag(*nodes().viewport(), port(module("Arm"), false, 0), port(module("Composite"), true, 2));
    docks::settle();
    const QPointF was = middleInGraph("Arm");
    nodes().enter(dynamic_cast<XUGroup&>(module("Arm")));
    nodes().leave();
    docks::settle();
    EXPECT_EQ(middleInGraph("Arm"), was);
}

TEST_F(NodePlacesTest, WhatIsNewGivesWayToWhatStands)
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

TEST_F(NodePlacesTest, ANewNodeAppearsWhereTheMenuWasOpened)
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

TEST_F(NodePlacesTest, ConnectingPansNothing)
{
    moveBy(module("Hat"), QPoint(20, 0));
    const QTransform was = nodes().viewportTransform();
    drag(*nodes().viewport(), port(module("Hero"), false, 0), port(module("Arm"), true, 0));
    ASSERT_NE(module("Arm").inPort(0)->srcPort(), nullptr);
    docks::settle();
    EXPECT_EQ(nodes().viewportTransform(), was);
}

TEST_F(NodePlacesTest, ThreeHundredInputsAreReadable)
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

TEST_F(NodePlacesTest, AMenuOfHundredsOfLinksFitsTheScreen)
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

TEST_F(NodePlacesTest, InputsStandAboveWhatTheyFeedAndNoBoxesOverlap)
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
