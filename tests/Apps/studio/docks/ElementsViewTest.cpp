// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The elements view: drawings, their thumbnails and exposures.
#include "Apps/studio/docks/DocksTesting.h"
#include "studio/docks/scene/DrawingThumbnail.h"

#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>

namespace {

class ElementsViewTest : public docks::DocksTest
{
protected:
    QTreeWidget& tree() const { return view<ElementsView>().tree(); }
    QTreeWidgetItem* hero() const { return tree().topLevelItem(0); }
    QPushButton& button(const char* name) const
    {
        return *view<ElementsView>().findChild<QPushButton*>(QLatin1String(name));
    }
};

TEST_F(ElementsViewTest, ShowsElementsWithDrawingsAndFrames)
{
    ASSERT_EQ(tree().topLevelItemCount(), 2);
    EXPECT_EQ(hero()->text(0), QStringLiteral("Hero"));
    ASSERT_EQ(hero()->childCount(), 2);
    EXPECT_EQ(hero()->child(0)->text(1), QStringLiteral("1\u20138"));
    EXPECT_EQ(hero()->child(1)->text(1), QStringLiteral("9\u201324"));
    EXPECT_FALSE(hero()->child(0)->data(0, Qt::DecorationRole).value<QPixmap>().isNull());
}

TEST_F(ElementsViewTest, TheButtonShowsADrawingFromTheCurrentFrameOn)
{
    document.setCurrentFrame(4);
    tree().setCurrentItem(hero()->child(1));
    EXPECT_EQ(button("ExposeDrawing").text(), QStringLiteral("Show at Frame 4"));
    QTest::mouseClick(&button("ExposeDrawing"), Qt::LeftButton);
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(4), QStringLiteral("2"));
    EXPECT_EQ(hero()->child(0)->text(1), QStringLiteral("1\u20133"));
    EXPECT_TRUE(state().contains(QStringLiteral("<exposure drawing=\"2\" frame=\"4\"/>")));
    expectOneChange(QStringLiteral("Change Drawing"));
}

TEST_F(ElementsViewTest, TheOtherButtonShowsNothing)
{
    document.setCurrentFrame(4);
    tree().setCurrentItem(hero());
    EXPECT_FALSE(button("ExposeDrawing").isEnabled());
    QTest::mouseClick(&button("ExposeNothing"), Qt::LeftButton);
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(5), QString());
    expectOneChange(QStringLiteral("Change Drawing"));
}

TEST_F(ElementsViewTest, SelectionIsSharedWithTheOtherViews)
{
    tree().setCurrentItem(hero()->child(0));
    EXPECT_EQ(document.currentModule(), &module("Hero"));
    EXPECT_TRUE(nodes().item(module("Hero"))->isSelected());
    document.setSelection({&module("Hat")});
    EXPECT_EQ(tree().currentItem(), tree().topLevelItem(1));
}

TEST(FramesTextTest, NamesRunsSingleFramesAndWhatLiesOutside)
{
    AT_ExposureSheet sheet;
    sheet.setExposure(-5, QStringLiteral("a"));
    sheet.setExposure(5, QStringLiteral("b"));
    sheet.setExposure(6, QStringLiteral("a"));
    sheet.setExposure(8, QStringLiteral("a"));
    sheet.setExposure(9, QString());
    sheet.setExposure(30, QStringLiteral("b"));
    EXPECT_EQ(ElementsView::framesOf(sheet, QStringLiteral("a"), 1, 24), QStringLiteral("1\u20134, 6\u20138"));
    EXPECT_EQ(ElementsView::framesOf(sheet, QStringLiteral("b"), 1, 24), QStringLiteral("5"));
    EXPECT_EQ(ElementsView::framesOf(sheet, QStringLiteral("c"), 1, 24), QString());
}

TEST(ThumbnailTest, ShowsTheShapesInTheirColoursFittedIntoTheSquare)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("p"), UT_Id(1));
    palette->addColor(docks::color("red", docks::kSkin, {255, 0, 0, 255}));
    CELVEC_Kvd drawing(palette);
    drawing.addShape(GR_Art::COLOUR, docks::rectangle(QRectF(1000, 500, 400, 200), docks::kSkin));
    const QImage image = drawingThumbnail(drawing, 40, 2.0).toImage();
    EXPECT_EQ(image.size(), QSize(80, 80));
    EXPECT_EQ(image.pixelColor(40, 40), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(8, 40), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(40, 10).alpha(), 0);
    EXPECT_TRUE(drawingThumbnail(CELVEC_Kvd(), 40, 1.0).toImage().pixelColor(20, 20).alpha() == 0);
}

TEST(ThumbnailTest, ShowsWhatIsAsThinAsALine)
{
    QImage picture(400, 5, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(255, 0, 0));
    for (const QRectF& place : {QRectF(0, 0, 4000, 5), QRectF(0, 0, 5, 4000)}) {
        CELVEC_Shape shape = docks::rectangle(place, docks::kSkin);
        shape.picture = picture;
        CELVEC_Kvd drawing;
        drawing.addShape(GR_Art::COLOUR, shape);
        EXPECT_EQ(drawingThumbnail(drawing, 40, 1.0).toImage().pixelColor(20, 20), QColor(255, 0, 0))
            << place.width() << " wide";
    }
}

TEST(ThumbnailTest, ShowsABitmapAsFarAsItCoversSomething)
{
    // Red from a quarter to a half of a bitmap that is smaller, and of one that is larger, than what is looked through.
    for (const int side : {40, 1000}) {
        QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter(&picture).fillRect(side / 4, side / 4, side / 4, side / 4, QColor(255, 0, 0));
        CELVEC_Shape shape = docks::rectangle(QRectF(1000, 500, 400, 400), docks::kSkin);
        shape.picture = picture;
        CELVEC_Kvd drawing;
        drawing.addShape(GR_Art::COLOUR, shape);
        const QImage image = drawingThumbnail(drawing, 40, 1.0).toImage();
        for (const QPoint& place : {QPoint(5, 5), QPoint(34, 5), QPoint(5, 34), QPoint(34, 34)})
            EXPECT_EQ(image.pixelColor(place), QColor(255, 0, 0)) << side << ": " << place.x() << ", " << place.y();
    }
}

TEST(ThumbnailTest, LeavesOutWhatGoesOnOutsideOfTheFrame)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("p"), UT_Id(1));
    palette->addColor(docks::color("red", docks::kSkin, {255, 0, 0, 255}));
    CELVEC_Kvd drawing(palette);
    drawing.addShape(GR_Art::COLOUR, docks::rectangle(QRectF(80, 40, 20, 20), docks::kSkin));
    drawing.addShape(GR_Art::COLOUR, docks::rectangle(QRectF(100, 40, 500, 20), docks::kSkin));
    const auto seen = [&](const QRectF& frame) {
        return drawingThumbnail(drawing, 40, 1.0, frame).toImage().pixelColor(20, 8) == QColor(255, 0, 0);
    };
    EXPECT_TRUE(seen(QRectF(0, 0, 100, 100))) << "a square fills the square";
    EXPECT_FALSE(seen(QRectF(0, 0, 110, 100))) << "the second shape begins in the frame";
    EXPECT_FALSE(seen(QRectF(0, 0, 50, 100))) << "all shapes are outside";
    EXPECT_FALSE(seen(QRectF()));
}

} // namespace
