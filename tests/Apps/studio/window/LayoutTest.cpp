// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The window on a small screen, and the way back to the first arrangement of its panels.
#include "Apps/studio/window/WindowTesting.h"

#include "studio/docks/timeline/TimelineCanvas.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/objects/ObjectsModel.h"
#include "studio/objects/ObjectsView.h"

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
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
    void makeSmall()
    {
        window->resize(1024, 768);
        QCoreApplication::processEvents();
        resetLayout();
    }
};

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
    openDisc();
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
    openDisc();
    window->resizeDocks({&dock("NodesDock"), &dock("TimelineDock")}, {200, 400}, Qt::Horizontal);
    QCoreApplication::processEvents();
    const int width = dock("TimelineDock").width();
    const auto names = [this] { return window->findChild<TimelineCanvas*>()->nameWidth(); };
    ASSERT_EQ(names(), TimelineCanvas::kFirstNameWidth);
    window->findChild<TimelineCanvas*>()->setNameWidth(190);
    window->close();
    renew();
    openDisc();
    EXPECT_EQ(dock("TimelineDock").width(), width) << "the panels have their sizes again";
    EXPECT_EQ(names(), 190);
    resetLayout();
    EXPECT_EQ(names(), TimelineCanvas::kFirstNameWidth);
}

TEST_F(LayoutTest, ThereIsNoLayoutToResetOnTheStartPage)
{
    EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("resetLayout"))->isEnabled());
    openDisc();
    EXPECT_TRUE(window->findChild<QAction*>(QStringLiteral("resetLayout"))->isEnabled());
}

} // namespace
