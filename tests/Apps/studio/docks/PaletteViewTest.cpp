// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The palette view: names and colours are typed into its rows.
#include "Apps/studio/docks/DocksTesting.h"
#include "studio/docks/scene/ColourSwatch.h"

#include <QColorDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include <map>

namespace {

class PaletteViewTest : public docks::DocksTest
{
protected:
    QTreeWidget& tree() const { return view<PaletteView>().tree(); }
    QTreeWidgetItem* colorRow(int index) const { return tree().topLevelItem(0)->child(index); }
    const CM_Palette& palette() const { return *document.scene().palettes().front(); }
    void typeInto(QTreeWidgetItem* item, int column, const QString& text)
    {
        tree().window()->activateWindow();
        tree().setCurrentItem(item, column);
        tree().editItem(item, column);
        auto* field = tree().findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        docks::settle();
    }
};

TEST_F(PaletteViewTest, ShowsPalettesWithTheirColours)
{
    ASSERT_EQ(tree().topLevelItemCount(), 1);
    EXPECT_EQ(tree().topLevelItem(0)->text(0), QStringLiteral("Hero"));
    EXPECT_EQ(colorRow(0)->text(0), QStringLiteral("Skin"));
    EXPECT_EQ(colorRow(0)->text(1), QStringLiteral("#E6B496"));
    EXPECT_EQ(colorRow(1)->text(1), QStringLiteral("#2850C8"));
    EXPECT_FALSE(colorRow(0)->icon(0).isNull());
}

TEST_F(PaletteViewTest, AColourIsChangedByTypingItsValue)
{
    const auto drawing = element("Hero").drawings().at(QStringLiteral("1"));
    typeInto(colorRow(1), 1, QStringLiteral("#ff8000"));
    EXPECT_EQ(palette().findColor(docks::kCloth)->GetNominalColor(), (CM_Rgba{255, 128, 0, 255}));
    EXPECT_EQ(palette().findColor(docks::kSkin)->GetNominalColor(), (CM_Rgba{230, 180, 150, 255}));
    EXPECT_EQ(colorRow(1)->text(1), QStringLiteral("#FF8000"));
    // The drawings show the new colour; what a render in the background holds has not changed.
    EXPECT_EQ(element("Hero").drawings().at(QStringLiteral("1"))->palette().get(), &palette());
    EXPECT_EQ(drawing->palette()->findColor(docks::kCloth)->GetNominalColor(), (CM_Rgba{40, 80, 200, 255}));
    expectOneChange(QStringLiteral("Change Colour \"Cloth\""));
}

TEST_F(PaletteViewTest, UndoBringsBackTheVeryDrawings)
{
    const auto drawing = element("Hero").drawings().at(QStringLiteral("2"));
    view<PaletteView>().recolor(document.scene().palettes().front(), docks::kSkin, QColor(1, 2, 3, 4));
    EXPECT_EQ(palette().findColor(docks::kSkin)->GetNominalColor(), (CM_Rgba{1, 2, 3, 4}));
    EXPECT_NE(element("Hero").drawings().at(QStringLiteral("2")), drawing);
    EXPECT_TRUE(std::ranges::equal(element("Hero").drawings().at(QStringLiteral("2"))->shapes(GR_Art::COLOUR),
                                   drawing->shapes(GR_Art::COLOUR)));
    document.undo();
    EXPECT_EQ(element("Hero").drawings().at(QStringLiteral("2")), drawing);
    EXPECT_EQ(state(), before);
}

TEST_F(PaletteViewTest, WhatIsNoColourIsRefusedInWordsAndTheOldValueStays)
{
    QStringList told;
    QObject::connect(&view<PaletteView>(), &PaletteView::refused, &window, [&](const QString& why) { told << why; });
    typeInto(colorRow(0), 1, QStringLiteral("reddish"));
    EXPECT_EQ(told, QStringList{QStringLiteral("\"reddish\" is not a colour; write it as #RRGGBB or #RRGGBBAA")});
    EXPECT_EQ(colorRow(0)->text(1), QStringLiteral("#E6B496"));
    expectNoChange();
}

TEST_F(PaletteViewTest, AColourIsRenamed)
{
    typeInto(colorRow(0), 0, QStringLiteral("Face"));
    EXPECT_EQ(palette().findColor(docks::kSkin)->GetColorName(), UT_String("Face"));
    expectOneChange(QStringLiteral("Rename Colour \"Skin\""));
}

TEST_F(PaletteViewTest, APaletteIsRenamed)
{
    typeInto(tree().topLevelItem(0), 0, QStringLiteral("Night"));
    EXPECT_EQ(palette().GetName(), UT_String("Night"));
    EXPECT_EQ(palette().GetId(), UT_Id(0x50));
    expectOneChange(QStringLiteral("Rename Palette \"Hero\""));
}

TEST_F(PaletteViewTest, APaletteKeepsItsPlaceAmongTheOthers)
{
    document.scene().addPalette(UT_makeShared<CM_Palette>(UT_String("Second"), UT_Id(0x60)));
    docks::settle();
    before = state();
    typeInto(tree().topLevelItem(0), 0, QStringLiteral("Night"));
    ASSERT_EQ(document.scene().palettes().size(), 2u);
    EXPECT_EQ(document.scene().palettes()[1]->GetName(), UT_String("Second"));
    expectOneChange(QStringLiteral("Rename Palette \"Hero\""));
}

TEST(ColorTextTest, IsWrittenAndReadWithAndWithoutOpacity)
{
    EXPECT_EQ(PaletteView::colorText({1, 171, 255, 255}), QStringLiteral("#01ABFF"));
    EXPECT_EQ(PaletteView::colorText({1, 171, 255, 16}), QStringLiteral("#01ABFF10"));
    EXPECT_EQ(PaletteView::parseColor(QStringLiteral("01abff")), QColor(1, 171, 255));
    EXPECT_EQ(PaletteView::parseColor(QStringLiteral(" #01ABFF10 ")), QColor(1, 171, 255, 16));
    for (const char* wrong : {"", "#12345", "#1234567", "#12345G", "blue"})
        EXPECT_FALSE(PaletteView::parseColor(QLatin1String(wrong)).isValid()) << wrong;
}

TEST_F(PaletteViewTest, ASwatchThatIsClickedTwiceAsksForAnotherColour)
{
    const QRect row = tree().visualItemRect(colorRow(1));
    const QPoint swatch(row.left() + kColourSwatch / 2 + 2, row.center().y());
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    docks::settle();
    auto* const dialog = view<PaletteView>().findChild<QColorDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(tree().findChild<QLineEdit*>(), nullptr) << "nothing is typed";
    EXPECT_EQ(dialog->currentColor(), QColor(40, 80, 200));
    dialog->setCurrentColor(QColor(1, 2, 3));
    dialog->accept();
    docks::settle();
    EXPECT_EQ(palette().findColor(docks::kCloth)->GetNominalColor(), (CM_Rgba{1, 2, 3, 255}));
}

TEST_F(PaletteViewTest, ANameIsStillClickedTwiceToBeTyped)
{
    const QRect row = tree().visualItemRect(colorRow(1));
    const QPoint name(row.left() + kColourSwatch + 20, row.center().y());
    tree().window()->activateWindow();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, name);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, name);
    docks::settle();
    EXPECT_EQ(view<PaletteView>().findChild<QColorDialog*>(), nullptr);
    EXPECT_NE(tree().findChild<QLineEdit*>(), nullptr);
}

TEST_F(PaletteViewTest, ThePixelsOfBitmapsKeepTheirColours)
{
    // All drawings become a bitmap that the skin's colour stands for, and a shape in the cloth's colour.
    auto scene = docks::smallScene();
    scene->root().forEachModule([&](MO_Module& module) {
        auto* const element = dynamic_cast<MO_ElementModule*>(&module);
        if (!element)
            return;
        for (const auto& [name, drawing] : std::map(element->drawings().begin(), element->drawings().end())) {
            auto bitmap = UT_makeShared<CELVEC_Kvd>(drawing->palette());
            CELVEC_Shape pixels = docks::rectangle(QRectF(0, 0, 8, 8), docks::kSkin);
            pixels.picture = QImage(8, 8, QImage::Format_ARGB32_Premultiplied);
            pixels.picture.fill(Qt::red);
            bitmap->addShape(GR_Art::COLOUR, pixels);
            bitmap->addShape(GR_Art::COLOUR, docks::rectangle(QRectF(0, 0, 8, 8), docks::kCloth));
            element->setDrawing(name, bitmap);
        }
    });
    document.replaceScene(std::move(scene), {}, false);
    docks::settle();
    const auto& button = *view<PaletteView>().findChild<QPushButton*>(QStringLiteral("PickColor"));
    tree().setCurrentItem(colorRow(1), 1);
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(colorRow(1)->toolTip(1), QString());
    tree().setCurrentItem(colorRow(0), 1);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_NE(colorRow(0)->toolTip(1), QString());
    tree().editItem(colorRow(0), 1);
    EXPECT_EQ(tree().findChild<QLineEdit*>(), nullptr);
    typeInto(colorRow(0), 0, QStringLiteral("Fur"));
    EXPECT_EQ(colorRow(0)->text(0), QStringLiteral("Fur"));
}

} // namespace
