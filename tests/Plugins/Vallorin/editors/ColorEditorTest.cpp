// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour table in the panel.
#include "Plugins/Vallorin/editors/EditorTesting.h"

namespace {

using testing::ElementsAre;

const char* const kFour = "00000000000000a1:10:A;00000000000000a2:20:B;00000000000000a3:30:C;00000000000000a4:40:D";

class ColorEditor : public EditorTest
{
protected:
    /// The names in the row headers.
    std::vector<std::string> rows() const
    {
        std::vector<std::string> names;
        for (int row = 0; row < colours()->rowCount(); ++row)
            names.push_back(colours()->verticalHeaderItem(row)->text().toStdString());
        return names;
    }

    QRgb swatch(int row) const
    {
        const QIcon icon = colours()->verticalHeaderItem(row)->icon();
        return icon.pixmap(8, 16).toImage().pixel(4, 8);
    }

    /// Drags a slider's handle, without letting go.
    void drag(int row, int position)
    {
        slider(row)->setSliderDown(true);
        slider(row)->setSliderPosition(position);
    }
    void letGo(int row) { slider(row)->setSliderDown(false); }
};

TEST_F(ColorEditor, IsAnObjectOfItsOwnWithTwoSlotsAndNoSignals)
{
    open();
    const QMetaObject* const meta = component("ColorInformationEditor")->metaObject();
    EXPECT_STREQ(meta->className(), "VolumetricColorEditor");
    ASSERT_EQ(meta->methodCount() - meta->methodOffset(), 2);
    EXPECT_EQ(meta->method(meta->methodOffset()).methodSignature(), "refreshMenu()");
    EXPECT_EQ(meta->method(meta->methodOffset() + 1).methodSignature(), "addColorTriggered(QAction*)");
}

TEST_F(ColorEditor, OfAnEmptyTableHasNoRowsOneColumnAndATitleInTheCorner)
{
    open();
    ASSERT_NE(colours(), nullptr);
    EXPECT_EQ(colours()->rowCount(), 0);
    ASSERT_EQ(colours()->columnCount(), 1);
    EXPECT_EQ(colours()->horizontalHeaderItem(0)->text(), QStringLiteral("Carving <------> Adding"));
    EXPECT_EQ(corner(colours()), QStringLiteral("Name"));
}

TEST_F(ColorEditor, ShowsPercentAndStoresThemTruncated)
{
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000a1:128:Skin"));
    open();
    EXPECT_EQ(slider(0)->value(), 50);
    EXPECT_EQ(spinBox(0)->value(), 50);
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000a1:128:Skin")) << "showing changes nothing";
    drag(0, 60);
    drag(0, 50);
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000a1:128:Skin")) << "dragging reports nothing";
    letGo(0);
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000a1:127:Skin"));
}

TEST_F(ColorEditor, OffersTheSolidColoursOfEachPaletteThatAreNotInTheTable)
{
    const auto body = addPalette("Body");
    addColour(*body, "Skin", 0xa1);
    addColour(*body, "Hair", 0xa2);
    addTexture(*body, "Cloth", 0xa3);
    const auto done = addPalette("Done");
    addColour(*done, "Grass", 0xb1);
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000a1:255:Skin;00000000000000b1:255:Grass"));
    open();
    const QMenu* const menu = openMenu("addColorButton");
    ASSERT_THAT(entries(menu), ElementsAre("Body", "-", "[Remove Selected Colours]"));
    EXPECT_THAT(entries(menu->actions().first()->menu()), ElementsAre("Hair"));
}

TEST_F(ColorEditor, PrintsThePalettesWhenTheMenuOpens)
{
    addPalette("Body");
    addPalette("Sky");
    open();
    testing::internal::CaptureStdout();
    openMenu("addColorButton");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "There are: 2 palettes\npalette : Body\npalette : Sky\n");
}

TEST_F(ColorEditor, AddsAColourAtTheAddingEnd)
{
    addColour(*addPalette("Body"), "Skin", 0xa1, {200, 100, 50, 255});
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000b1:7:Old"));
    open();
    const QString before = saved();
    choose("addColorButton", "Body", "Skin");
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000b1:7:Old;00000000000000a1:255:Skin"));
    EXPECT_THAT(rows(), ElementsAre("Old", "Skin"));
    EXPECT_EQ(slider(1)->value(), 100);
    EXPECT_EQ(swatch(0), qRgb(0, 0, 0)) << "a colour that no palette holds is black";
    EXPECT_EQ(swatch(1), qRgb(200, 100, 50));
    const QString after = saved();
    EXPECT_EQ(stack.undoNames(), QStringList(QStringLiteral("Change Colour Information")));
    stack.undo();
    settle();
    EXPECT_EQ(saved(), before);
    EXPECT_THAT(rows(), ElementsAre("Old"));
    stack.redo();
    settle();
    EXPECT_EQ(saved(), after);
    EXPECT_THAT(rows(), ElementsAre("Old", "Skin"));
}

TEST_F(ColorEditor, RemovesTheSelectedRowsAndKeepsTheOrderOfTheOthers)
{
    attr("ColorInformation")->setLocalValue(QString::fromLatin1(kFour));
    open();
    selectRow(colours(), 0);
    selectRow(colours(), 2, Qt::ControlModifier);
    choose("addColorButton", "Remove Selected Colours");
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000a2:20:B;00000000000000a4:40:D"));
    EXPECT_THAT(rows(), ElementsAre("B", "D"));
    stack.undo();
    settle();
    EXPECT_EQ(text("ColorInformation"), QString::fromLatin1(kFour));
    EXPECT_THAT(rows(), ElementsAre("A", "B", "C", "D"));
}

TEST_F(ColorEditor, OffersAColourInEveryPaletteThatHoldsItAndShowsTheLaterOne)
{
    addColour(*addPalette("First"), "Skin", 0xa1, {10, 20, 30, 255});
    addColour(*addPalette("Second"), "Skin 2", 0xa1, {90, 80, 70, 255});
    open();
    const QMenu* const menu = openMenu("addColorButton");
    ASSERT_THAT(entries(menu), ElementsAre("First", "Second", "-", "[Remove Selected Colours]"));
    EXPECT_THAT(entries(menu->actions().at(0)->menu()), ElementsAre("Skin"));
    EXPECT_THAT(entries(menu->actions().at(1)->menu()), ElementsAre("Skin 2"));
    button("addColorButton")->menu()->close();
    choose("addColorButton", "First", "Skin");
    EXPECT_THAT(rows(), ElementsAre("Skin"));
    EXPECT_EQ(swatch(0), qRgb(90, 80, 70));
}

TEST_F(ColorEditor, FollowsTheDisplaysDensityOnlyFromTheSecondBuildOn)
{
    UT_DPI_setFactor(2.0);
    panel->setModule(&node);
    EXPECT_EQ(cornerMargin(colours()), 8);
    EXPECT_EQ(colours()->horizontalHeaderItem(0)->sizeHint(), QSize(200, 20));
    EXPECT_EQ(colours()->verticalHeader()->maximumWidth(), 200);
    EXPECT_EQ(colours()->minimumWidth(), 1000);
    EXPECT_EQ(colours()->minimumHeight(), 350);
    component("ColorInformationEditor")->synchronize();
    EXPECT_EQ(cornerMargin(colours()), 16);
    EXPECT_EQ(colours()->horizontalHeaderItem(0)->sizeHint(), QSize(400, 40));
    EXPECT_EQ(colours()->verticalHeader()->maximumWidth(), 400);
}

TEST_F(ColorEditor, HasRowsOfAFixedHeightAndIconsOfAFixedSize)
{
    const auto body = addPalette("Body");
    addColour(*body, "Skin", 0xa1);
    addColour(*body, "Hair", 0xa2);
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000a1:255:Skin"));
    open();
    EXPECT_EQ(colours()->verticalHeader()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    EXPECT_EQ(colours()->cellWidget(0, 0)->height(), 36);
    EXPECT_EQ(colours()->cellWidget(0, 0)->minimumHeight(), 36);
    EXPECT_EQ(colours()->cellWidget(0, 0)->maximumHeight(), 36);
    EXPECT_THAT(colours()->verticalHeaderItem(0)->icon().availableSizes(), ElementsAre(QSize(8, 16)));
    const QMenu* const menu = openMenu("addColorButton");
    const QAction* const hair = action(menu->actions().first()->menu(), QStringLiteral("Hair"));
    ASSERT_NE(hair, nullptr);
    EXPECT_THAT(hair->icon().availableSizes(), ElementsAre(QSize(16, 16)));
}

TEST_F(ColorEditor, StoresWhatIsTypedIntoASpinBoxAsOneChange)
{
    attr("ColorInformation")->setLocalValue(QString::fromLatin1(kFour));
    open();
    spinBox(1)->setFocus();
    spinBox(1)->selectAll();
    QTest::keyClicks(spinBox(1), QStringLiteral("80"));
    // 80 percent are 204 of 255.
    EXPECT_EQ(
        text("ColorInformation"),
        QStringLiteral("00000000000000a1:10:A;00000000000000a2:204:B;00000000000000a3:30:C;00000000000000a4:40:D"));
    EXPECT_EQ(slider(1)->value(), 80);
    settle();
    EXPECT_TRUE(spinBox(1)->hasFocus()) << "the table is not rebuilt under the typing";
    EXPECT_EQ(stack.undoNames().size(), 1);
    stack.undo();
    settle();
    EXPECT_EQ(text("ColorInformation"), QString::fromLatin1(kFour));
    EXPECT_EQ(spinBox(1)->value(), 7) << "20 of 255 are 7 percent";
}

TEST_F(ColorEditor, PickingAColourThatIsThereAlreadyChangesAndReportsNothing)
{
    addColour(*addPalette("Body"), "Skin", 0xa1);
    open();
    QMenu* const menu = openMenu("addColorButton");
    QAction* const skin = menu->actions().first()->menu()->actions().first();
    menu->close();
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000a1"));
    Q_EMIT menu->triggered(skin);
    settle();
    EXPECT_EQ(text("ColorInformation"), QStringLiteral("00000000000000a1")) << "not even written anew";
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(ColorEditor, TakesASwatchFromAPaletteThatComesLater)
{
    attr("ColorInformation")->setLocalValue(QStringLiteral("00000000000000a1:10:A"));
    open();
    EXPECT_EQ(swatch(0), qRgb(0, 0, 0));
    addColour(*addPalette("Late"), "A", 0xa1, {1, 2, 3, 255});
    settle();
    component("ColorInformationEditor")->synchronize();
    EXPECT_EQ(swatch(0), qRgb(1, 2, 3));
}

} // namespace
