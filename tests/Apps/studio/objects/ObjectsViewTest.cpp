// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of objects: its contents, and that it always agrees with the picture.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "studio/docks/scene/PaletteView.h"
#include "studio/objects/ObjectsModel.h"
#include "studio/objects/ObjectsView.h"
#include "studio/objects/ValueField.h"

#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>

namespace {

class ObjectsViewTest : public studio_testing::ObjectsTest
{
protected:
    ObjectsView& view() const { return *window->findChild<ObjectsView*>(); }
    QTableView& table() const { return view().table(); }
    QString text(int row, int column) const { return table().model()->index(row, column).data().toString(); }
    /// The colour in the middle of a row's picture; invalid without a picture.
    QColor pictureOf(int row) const
    {
        const QImage image =
            table().model()->index(row, ObjectsModel::NAME).data(Qt::DecorationRole).value<QPixmap>().toImage();
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
    }
    QPoint middleOf(int row, int column) const
    {
        return table().visualRect(table().model()->index(row, column)).center();
    }
    void enter(int row, int column, const QString& text)
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(row, column));
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(row, column));
        // Fields of earlier entries may be there still, hidden.
        ValueField* field = nullptr;
        for (ValueField* const each : table().findChildren<ValueField*>())
            field = each->isVisible() ? each : field;
        ASSERT_NE(field, nullptr);
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        // The field hands its value over, then the change is told; that would give the next field its old value.
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
    }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, middleOf(row, ObjectsModel::NUMBER));
        QCoreApplication::processEvents();
    }
};

TEST_F(ObjectsViewTest, ShowsAllObjectsTheTopmostFirstWithPictures)
{
    openParts();
    EXPECT_TRUE(table().isVisible());
    ASSERT_EQ(table().model()->rowCount(), 2);
    EXPECT_EQ(text(0, ObjectsModel::NAME), QStringLiteral("Head"));
    EXPECT_EQ(text(1, ObjectsModel::NAME), QStringLiteral("Body"));
    EXPECT_EQ(text(0, ObjectsModel::BEVEL), QStringLiteral("24"));
    EXPECT_EQ(pictureOf(0), QColor(0xd0, 0xa0, 0x20));
}

// Undo frees the recoloured drawing, whose address the next one may get.
TEST_F(ObjectsViewTest, PicturesFollowColoursThatAreTriedAndUndone)
{
    openParts();
    const CM_SharedPtr<CM_Palette> palette = document().scene().palettes().front();
    const auto head = std::ranges::find_if(palette->colors(), [](const auto& color) {
        return color->GetNominalColor() == CM_Rgba{0xd0, 0xa0, 0x20, 0xff};
    });
    ASSERT_NE(head, palette->colors().end());
    for (const QColor colour : {QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255), QColor(255, 255, 0)}) {
        window->findChild<PaletteView*>()->recolor(palette, (*head)->GetColorId(), colour);
        QCoreApplication::processEvents();
        EXPECT_EQ(pictureOf(0), colour);
        ASSERT_TRUE(waitForPicture());
        document().undo();
        QCoreApplication::processEvents();
        EXPECT_EQ(pictureOf(0), QColor(0xd0, 0xa0, 0x20));
        ASSERT_TRUE(waitForPicture());
    }
}

TEST_F(ObjectsViewTest, ARowSelectsTheObjectAndAnObjectItsRow)
{
    openParts();
    clickRow(1);
    EXPECT_EQ(selected(), QStringList({"Body"}));
    clickRow(0, Qt::ControlModifier);
    EXPECT_EQ(selected(), QStringList({"Body", "Head"}));
    click(kBody);
    const QModelIndexList rows = table().selectionModel()->selectedRows();
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.front().row(), 1);
}

TEST_F(ObjectsViewTest, TheMouseOverARowOutlinesTheObject)
{
    openParts();
    studio_testing::moveMouse(*table().viewport(), middleOf(0, ObjectsModel::BEVEL));
    ASSERT_NE(window->objects().hovered(), nullptr);
    EXPECT_EQ(window->objects().hovered()->name, QStringLiteral("Head"));
}

TEST_F(ObjectsViewTest, WhatIsEnteredGoesToAllSelectedRowsAsOneStep)
{
    openParts();
    enter(0, ObjectsModel::BEVEL, QStringLiteral("60"));
    EXPECT_EQ(valuesOf("Head").bevel, 60.0);
    EXPECT_EQ(valuesOf("Body").bevel, 24.0);
    EXPECT_EQ(document().commands().undoNames(), QStringList(QStringLiteral("Bevel of Head 24 \u2192 60")));
    window->objects().select(window->objects().all());
    ASSERT_TRUE(table().model()->setData(table().model()->index(1, ObjectsModel::ELEVATION), 2.5, Qt::EditRole));
    EXPECT_EQ(valuesOf("Head").elevation, 2.5);
    EXPECT_EQ(valuesOf("Body").elevation, 2.5);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Elevation of 2 objects 1 \u2192 2.5"));
    document().undo();
    EXPECT_EQ(valuesOf("Head").elevation, 1.0);
    EXPECT_EQ(valuesOf("Body").elevation, 1.0);
}

TEST_F(ObjectsViewTest, RimAndTiltAreEnteredAsTheOtherValuesAre)
{
    openParts();
    enter(0, ObjectsModel::RIM, QStringLiteral("4"));
    enter(0, ObjectsModel::TILT_RIGHT, QStringLiteral("12"));
    enter(0, ObjectsModel::TILT_UP, QStringLiteral("-80"));
    EXPECT_EQ(object("Head").rim, (ObjectRim{4.0, 1.0}));
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{12.0, -80.0}));
    EXPECT_EQ(object("Body").tilt, ObjectTilt());
    EXPECT_EQ(text(0, ObjectsModel::RIM), QStringLiteral("4"));
    EXPECT_EQ(text(0, ObjectsModel::TILT_RIGHT), QStringLiteral("12"));
    EXPECT_EQ(text(0, ObjectsModel::TILT_UP), QStringLiteral("-80"));
    EXPECT_EQ(text(1, ObjectsModel::TILT_UP), QStringLiteral("0"));
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Tilt up of Head 0 \u2192 -80"));
}

TEST_F(ObjectsViewTest, TheBoxOfARowHidesAndShowsTheObject)
{
    openParts();
    QAbstractItemModel& model = *table().model();
    ASSERT_TRUE(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(object("Head").isHidden);
    EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Hide Head"));
}

TEST_F(ObjectsViewTest, TheSearchLeavesWhatHasTheWordsAndTheSelectionAlone)
{
    openParts();
    click(kBody);
    QTest::keyClicks(&view().search(), QStringLiteral("hea"));
    ASSERT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(text(0, ObjectsModel::NAME), QStringLiteral("Head"));
    EXPECT_EQ(selected(), QStringList({"Body"}));
    view().search().clear();
    EXPECT_EQ(table().model()->rowCount(), 2);
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1);
}

TEST_F(ObjectsViewTest, NoColumnIsHiddenAndNoTitleClippedInTheNarrowestDock)
{
    openParts();
    auto* const dock = window->findChild<QDockWidget*>(QStringLiteral("ObjectsDock"));
    window->resizeDocks({dock}, {1}, Qt::Horizontal);
    QCoreApplication::processEvents();
    // Less than half of the smallest screen, 1024 wide.
    EXPECT_LE(view().minimumWidth(), 505);
    QHeaderView& header = *table().horizontalHeader();
    EXPECT_LE(header.length(), table().viewport()->width());
    for (int column = 0; column < ObjectsModel::COLUMN_COUNT; ++column)
        EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column)) << column;
    EXPECT_GE(header.sectionSize(ObjectsModel::NAME), 70);
}

TEST_F(ObjectsViewTest, TheMenuOfARowActsOnIt)
{
    openParts();
    clickRow(1);
    Q_EMIT table().customContextMenuRequested(middleOf(1, 0));
    auto* const menu = window->findChild<QMenu*>(QStringLiteral("objectsMenu"));
    ASSERT_NE(menu, nullptr);
    for (QAction* const action : menu->actions())
        if (action->text() == QStringLiteral("Carve"))
            action->trigger();
    menu->close();
    EXPECT_EQ(valuesOf("Body").elevation, -1.0);
}

} // namespace
