// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The window on a small screen, and the way back to the first arrangement of its panels.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/docks/graph/NodeView.h"
#include "studio/docks/timeline/TimelineCanvas.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/objects/ObjectsModel.h"
#include "studio/objects/ObjectsView.h"

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>

namespace {

class LayoutTest : public studio_testing::WindowTest
{
protected:
    QDockWidget& dock(const char* name) const { return *window->findChild<QDockWidget*>(QLatin1String(name)); }
    void resetLayout()
    {
        window->findChild<QAction*>(QStringLiteral("resetLayout"))->trigger();
        QCoreApplication::processEvents();
    }
    /// A scene of 10 frames.
    void openMoving()
    {
        drop({write(QStringLiteral("slide.json"), studio_testing::slide(10))});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
        QCoreApplication::processEvents();
    }
    bool isTimelineBehindNodes() const
    {
        return window->tabifiedDockWidgets(&dock("NodesDock")).contains(&dock("TimelineDock"));
    }
    static bool isSeen(const QAbstractScrollArea& view) { return !view.viewport()->visibleRegion().isEmpty(); }
    void makeSmall()
    {
        window->resize(1024, 768);
        QCoreApplication::processEvents();
        resetLayout();
    }
};

TEST_F(LayoutTest, ANarrowerWindowTakesRoomFromThePanelsToo)
{
    drop({MainWindow::examplePath()});
    ASSERT_TRUE(waitForPicture());
    window->resize(1600, 900);
    QCoreApplication::processEvents();
    resetLayout();
    const int panels = dock("ObjectsDock").width();
    window->resize(1024, 768);
    QTest::qWait(0);
    QCoreApplication::processEvents();
    EXPECT_LT(dock("ObjectsDock").width(), panels);
    EXPECT_EQ(dock("lightsDock").width(), dock("ObjectsDock").width());
    const int picture = viewer().width();
    resetLayout();
    EXPECT_EQ(viewer().width(), picture) << "the first arrangement leaves more room";
    // Panels that people make wide stay so while the window keeps its width.
    window->resizeDocks({&dock("ObjectsDock")}, {620}, Qt::Horizontal);
    QCoreApplication::processEvents();
    const int wide = dock("ObjectsDock").width();
    window->resize(1024, 700);
    QTest::qWait(0);
    EXPECT_EQ(dock("ObjectsDock").width(), wide);
}

TEST_F(LayoutTest, FitsAScreenOf1024By768)
{
    drop({MainWindow::examplePath()});
    ASSERT_TRUE(waitForPicture());
    makeSmall();
    EXPECT_EQ(window->size(), QSize(1024, 768));
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
    EXPECT_LE(window->minimumSizeHint().height(), 768);
    // The picture is the largest part.
    EXPECT_GT(viewer().width(), dock("ObjectsDock").width());
}

// Of 720 rows, as many laptops have in their larger letters, the system's bar and the title take a part.
TEST_F(LayoutTest, FitsAScreenOf1280By720BesideTheSystemsBars)
{
    constexpr int kLeft = 640;
    EXPECT_LE(window->minimumSizeHint().height(), kLeft);
    openDisc();
    EXPECT_LE(window->minimumSizeHint().height(), kLeft);
    dock("PropertiesDock").raise();
    dock("TimelineDock").raise();
    QCoreApplication::processEvents();
    window->resize(1280, kLeft);
    EXPECT_EQ(window->size(), QSize(1280, kLeft));
    EXPECT_LE(window->minimumSizeHint().height(), kLeft);
}

TEST_F(LayoutTest, TheObjectsNamesAreReadInFullOnASmallScreen)
{
    drop({MainWindow::examplePath()});
    ASSERT_TRUE(waitForPicture());
    makeSmall();
    const QTableView& table = window->findChild<ObjectsView*>()->table();
    const QHeaderView& header = *table.horizontalHeader();
    ASSERT_GT(table.model()->rowCount(), 5);
    EXPECT_GE(header.sectionSize(ObjectsModel::NAME), table.sizeHintForIndex(table.model()->index(0, 0)).width());
    for (int column = 0; column < ObjectsModel::COLUMN_COUNT; ++column)
        EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column)) << column;
    EXPECT_LE(header.length(), table.viewport()->width());
}

TEST_F(LayoutTest, TheNodesEditorShowsAllColumnsOnASmallScreenWithoutScrollingSideways)
{
    drop({MainWindow::examplePath()});
    ASSERT_TRUE(waitForPicture());
    makeSmall();
    dock("PropertiesDock").raise();
    QCoreApplication::processEvents();
    const auto* const area = dock("PropertiesDock").findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    const auto tables = area->findChildren<QTableView*>();
    ASSERT_EQ(tables.size(), 1);
    const QHeaderView& header = *tables.front()->horizontalHeader();
    for (int column = 0; column < header.count(); ++column) {
        const QString title = header.model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_GT(header.sectionSize(column), header.fontMetrics().horizontalAdvance(title)) << title.toStdString();
    }
    EXPECT_LE(header.length(), tables.front()->viewport()->width());
    EXPECT_GT(viewer().width(), dock("PropertiesDock").width());
}

TEST_F(LayoutTest, TheTimelinesBarBreaksIntoLinesWhereItIsNarrow)
{
    openMoving();
    auto& timeline = *window->findChild<TimelineView*>();
    const auto top = [&](const char* name) {
        const auto* const field = timeline.findChild<QWidget*>(QLatin1String(name));
        return field->mapTo(&timeline, field->rect().center()).y();
    };
    window->resize(1900, 900);
    window->resizeDocks({&dock("NodesDock"), &dock("TimelineDock")}, {300, 900}, Qt::Horizontal);
    QCoreApplication::processEvents();
    EXPECT_EQ(top("Play"), top("FrameRate"));
    window->resizeDocks({&dock("NodesDock"), &dock("TimelineDock")}, {900, 300}, Qt::Horizontal);
    QCoreApplication::processEvents();
    EXPECT_LT(top("Play"), top("FrameRate"));
    // Nothing is cut off.
    const auto* const rate = timeline.findChild<QWidget*>(QStringLiteral("FrameRate"));
    EXPECT_TRUE(timeline.rect().contains(QRect(rate->mapTo(&timeline, QPoint()), rate->size())));
}

TEST_F(LayoutTest, ResetLayoutBringsPanelsBackToWhereTheyWere)
{
    openDisc();
    QDockWidget& nodes = dock("NodesDock");
    const QRect before = nodes.geometry();
    nodes.close();
    dock("PaletteDock").setFloating(true);
    window->addDockWidget(Qt::LeftDockWidgetArea, &dock("ObjectsDock"));
    QCoreApplication::processEvents();
    resetLayout();
    EXPECT_TRUE(nodes.isVisible());
    EXPECT_FALSE(dock("PaletteDock").isFloating());
    EXPECT_EQ(window->dockWidgetArea(&dock("ObjectsDock")), Qt::RightDockWidgetArea);
    EXPECT_EQ(nodes.geometry().topLeft(), before.topLeft());
}

TEST_F(LayoutTest, PanelsAndTheTimelinesNamesKeepTheirWidths)
{
    openMoving();
    window->resizeDocks({&dock("NodesDock"), &dock("TimelineDock")}, {200, 400}, Qt::Horizontal);
    QCoreApplication::processEvents();
    const int width = dock("TimelineDock").width();
    const auto names = [this] { return window->findChild<TimelineCanvas*>()->nameWidth(); };
    ASSERT_EQ(names(), TimelineCanvas::kFirstNameWidth);
    window->findChild<TimelineCanvas*>()->setNameWidth(190);
    window->close();
    renew();
    openMoving();
    EXPECT_EQ(dock("TimelineDock").width(), width) << "the panels have their sizes again";
    EXPECT_EQ(names(), 190);
    resetLayout();
    EXPECT_EQ(names(), TimelineCanvas::kFirstNameWidth);
}

TEST_F(LayoutTest, TheTimelineIsATabBehindTheNodesWhereNothingMovesAndBesideThemWhereSomethingDoes)
{
    openDisc();
    QCoreApplication::processEvents();
    EXPECT_TRUE(isTimelineBehindNodes());
    EXPECT_FALSE(isSeen(*window->findChild<TimelineCanvas*>()));
    EXPECT_TRUE(studio_testing::waitUntil([this] { return isSeen(*window->findChild<NodeView*>()); }));
    // The picture has at least two thirds of the height.
    EXPECT_GT(viewer().height() * 3, window->height() * 2 - 150);
    openMoving();
    EXPECT_FALSE(isTimelineBehindNodes());
    EXPECT_TRUE(isSeen(*window->findChild<TimelineCanvas*>()));
    EXPECT_TRUE(isSeen(*window->findChild<NodeView*>()));
    EXPECT_GE(dock("TimelineDock").x(), dock("NodesDock").geometry().right());
    openDisc();
    EXPECT_TRUE(isTimelineBehindNodes());
}

TEST_F(LayoutTest, ASingleFrameWithKeysKeepsTheTimelineInSight)
{
    openDisc();
    AT_Curve curve;
    curve.setKey({.frame = 1, .value = 2.0, .in = {}, .out = {}, .unknown = {}});
    ASSERT_TRUE(NormalMapNode(*window->objects().all().front().node).elevationMultiplier()->setCurve(curve));
    const QString scene = folder.filePath(QStringLiteral("keyed.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    openScene(scene);
    EXPECT_FALSE(isTimelineBehindNodes());
}

TEST_F(LayoutTest, PanelsThatAPersonSizedStayAndResetLayoutArrangesThemAgain)
{
    openMoving();
    // The border between nodes and timeline.
    const QRect nodes = dock("NodesDock").geometry();
    const QRect timeline = dock("TimelineDock").geometry();
    const QPoint border((nodes.right() + timeline.left()) / 2, nodes.center().y());
    ASSERT_EQ(window->childAt(border), nullptr) << "the border is the window's own";
    QTest::mousePress(window.get(), Qt::LeftButton, Qt::NoModifier, border);
    studio_testing::moveMouse(*window, border + QPoint(60, 0), Qt::LeftButton);
    QCoreApplication::processEvents();
    QTest::mouseRelease(window.get(), Qt::LeftButton, Qt::NoModifier, border + QPoint(60, 0));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return dock("NodesDock").width() > nodes.width() + 30; }));
    QCoreApplication::processEvents();
    const int width = dock("NodesDock").width();
    openDisc();
    EXPECT_FALSE(isTimelineBehindNodes());
    EXPECT_EQ(dock("NodesDock").width(), width);
    window->close();
    renew();
    openDisc();
    EXPECT_FALSE(isTimelineBehindNodes()) << "in the next session, too";
    resetLayout();
    EXPECT_TRUE(isTimelineBehindNodes());
}

TEST_F(LayoutTest, NumbersWithACommaAreReadInFullInTheNodesTable)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    renew();
    drop({MainWindow::examplePath()});
    ASSERT_TRUE(waitForPicture());
    dock("PropertiesDock").raise();
    QCoreApplication::processEvents();
    const auto tables = dock("PropertiesDock").findChildren<QTableView*>();
    ASSERT_EQ(tables.size(), 1);
    const QTableView& table = *tables.front();
    // Titles as short as those of some languages.
    QFont tiny = table.font();
    tiny.setPointSize(4);
    table.horizontalHeader()->setFont(tiny);
    QCoreApplication::processEvents();
    const auto* const shown = qobject_cast<const QStyledItemDelegate*>(table.itemDelegate());
    ASSERT_NE(shown, nullptr);
    int commas = 0;
    for (int row = 0; row < table.model()->rowCount(); ++row)
        for (int column = 0; column + 1 < table.model()->columnCount(); ++column) {
            const QModelIndex index = table.model()->index(row, column);
            const QString text = shown->displayText(index.data(), table.locale());
            commas += text.contains(QLatin1Char(',')) ? 1 : 0;
            EXPECT_GE(table.columnWidth(column), table.fontMetrics().horizontalAdvance(text)) << text.toStdString();
            EXPECT_FALSE(table.wordWrap());
        }
    EXPECT_GT(commas, 5) << "otherwise nothing was tried";
    QLocale::setDefault(before);
}

TEST_F(LayoutTest, ThereIsNoLayoutToResetOnTheStartPage)
{
    EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("resetLayout"))->isEnabled());
    openDisc();
    EXPECT_TRUE(window->findChild<QAction*>(QStringLiteral("resetLayout"))->isEnabled());
}

} // namespace
