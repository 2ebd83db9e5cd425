// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which objects lie over which in a bitmap, which regions are one body, and how the picture's border matters.
#include "Bitmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

const QColor kRed(208, 48, 48);
const QColor kCream(242, 230, 208);

// The bounding rectangle of the object's pixels.
QRect placeOf(const ChosenObjects& chosen, std::size_t object)
{
    return chosen.drawing.layers[object].shapes.front().path.boundingRect().toRect();
}

// The number of pixels that an object is measured on.
int measuredPixels(const ChosenObjects& chosen, std::size_t object)
{
    const auto& measured = chosen.objects[object].measured;
    const QImage mask = measured.empty() ? layerOf(chosen, object) : measured.front().picture;
    int count = 0;
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            count += qAlpha(mask.pixel(x, y)) > 127 ? 1 : 0;
    return count;
}

} // namespace

TEST(BitmapStacking, anEdgeThatGoesStraightOnLiesOnTop)
{
    const QImage image = painted({160, 160}, [](QPainter& painter) {
        painter.setBrush(kCream);
        painter.drawRect(QRectF(62.5, 70, 35, 80));
        painter.setBrush(kRed);
        painter.drawPie(QRectF(15, 15, 130, 130), 0, 180 * 16);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(objectAt(chosen, 80, 120), 0) << "the stem below";
    EXPECT_GT(layerOf(chosen, 0).pixelColor(80, 60).alpha(), 0) << "the stem goes on beneath the cap";
}

TEST(BitmapStacking, twoBallsOfAlmostOneColourAreTwoWhereTheyMakeANotch)
{
    const QImage image = painted({160, 200}, [](QPainter& painter) {
        painter.setBrush(QColor(225, 232, 240));
        painter.drawEllipse(QPointF(80, 135), 55, 55);
        painter.setBrush(QColor(246, 249, 252));
        painter.drawEllipse(QPointF(80, 60), 40, 40);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(objectAt(chosen, 80, 92), 1) << "the smaller one is whole, so it lies on top";
}

TEST(BitmapStacking, aStripeAcrossABodyIsPaint)
{
    const QImage image = painted({120, 160}, [](QPainter& painter) {
        painter.setBrush(QColor(60, 110, 190));
        painter.drawRoundedRect(20, 10, 80, 140, 20, 20);
        painter.setBrush(QColor(250, 250, 245));
        painter.drawRect(20, 70, 80, 22);
    });
    EXPECT_EQ(objectsOf(image).objects.size(), 1U);
}

TEST(BitmapStacking, aWideStripeWhoseEndsContinueTheOutlineIsPaint)
{
    const QImage balloon = painted({160, 200}, [](QPainter& painter) {
        painter.setBrush(kRed);
        painter.drawEllipse(QPointF(80, 70), 60, 60);
        painter.drawPolygon(QPolygonF({{32, 106}, {128, 106}, {96, 170}, {64, 170}}));
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.setBrush(kCream);
        painter.drawRect(60, 0, 40, 200);
    });
    EXPECT_EQ(objectsOf(balloon).objects.size(), 1U);
}

TEST(BitmapStacking, aBallBetweenTwoOfOneColourIsNoStripe)
{
    const QImage balls = painted({200, 120}, [](QPainter& painter) {
        painter.setBrush(kRed);
        painter.drawEllipse(QPointF(55, 60), 40, 40);
        painter.drawEllipse(QPointF(145, 60), 40, 40);
        painter.setBrush(kCream);
        painter.drawEllipse(QPointF(100, 60), 40, 40);
    });
    EXPECT_EQ(objectsOf(balls).objects.size(), 3U);
}

TEST(BitmapStacking, hairOnBothSidesOfAFaceIsOneObjectMeasuredAsAWhole)
{
    const QImage image = painted({160, 170}, [](QPainter& painter) {
        painter.setBrush(QColor(110, 60, 30));
        painter.drawEllipse(QPointF(80, 80), 62, 66);
        painter.setBrush(QColor(240, 190, 150));
        painter.drawRect(52, 100, 56, 60);
        painter.drawEllipse(QPointF(80, 88), 46, 56);
        painter.setBrush(QColor(150, 90, 200));
        painter.drawRoundedRect(14, 8, 132, 40, 12, 12);
    });
    const ChosenObjects chosen = objectsOf(image);
    const int hair = objectAt(chosen, 24, 90);
    EXPECT_EQ(hair, objectAt(chosen, 136, 90));
    ASSERT_GE(hair, 0);
    // The two strips have about 2,500 pixels, the face between them 8,000.
    EXPECT_GT(measuredPixels(chosen, static_cast<std::size_t>(hair)), 7000);
}

TEST(BitmapFrame, whatTheBorderCutsGoesOnBeyondIt)
{
    const QImage bust = painted({160, 120}, [](QPainter& painter) {
        painter.setBrush(QColor(60, 130, 100));
        painter.drawEllipse(QPointF(80, 120), 66, 60);
    });
    const ChosenObjects chosen = objectsOf(bust);
    ASSERT_EQ(chosen.objects.size(), 1U);
    EXPECT_GT(placeOf(chosen, 0).bottom(), 140);
    EXPECT_GE(placeOf(chosen, 0).left(), 0);
    EXPECT_EQ(paintedAgain(chosen.drawing), paintedAgain(bitmapDrawing(bust)));
}

TEST(BitmapFrame, whatMerelyTouchesTheBorderEndsThere)
{
    const QImage ball = painted({120, 120}, [](QPainter& painter) {
        painter.setBrush(kRed);
        painter.drawEllipse(QRectF(0, 0, 120, 120));
    });
    const ChosenObjects chosen = objectsOf(ball);
    ASSERT_EQ(chosen.objects.size(), 1U);
    EXPECT_EQ(placeOf(chosen, 0), QRect(0, 0, 120, 120));
    ASSERT_EQ(chosen.objects[0].measured.size(), 1U);
    const QImage& mask = chosen.objects[0].measured.front().picture;
    EXPECT_EQ(qAlpha(mask.pixel(60, 0)), 0) << "an outline is seen at the border";
    EXPECT_EQ(qAlpha(mask.pixel(60, 3)), 255);
}

TEST(BitmapFrame, aRoundedSquareThatTouchesTheBorderEndsThere)
{
    const QImage button = painted({120, 120}, [](QPainter& painter) {
        painter.setBrush(kRed);
        painter.drawRoundedRect(0, 0, 120, 120, 30, 30);
    });
    EXPECT_EQ(placeOf(objectsOf(button), 0), QRect(0, 0, 120, 120));
}

TEST(BitmapFrame, onePlainColourToAllBordersIsFlat)
{
    QImage image(90, 60, QImage::Format_ARGB32);
    image.fill(QColor(20, 90, 160));
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 1U);
    EXPECT_EQ(chosen.objects[0].role, ObjectRole::FLAT);
}

TEST(BitmapStacking, aRoundHeadBehindAScarfGoesOnAsADisc)
{
    const QImage image = painted({200, 200}, [](QPainter& painter) {
        painter.setBrush(kCream);
        painter.drawEllipse(QPointF(100, 80), 60, 60);
        painter.setBrush(kRed);
        painter.drawRoundedRect(QRectF(20, 110, 160, 70), 10, 10);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(objectAt(chosen, 100, 150), 1) << "the scarf on top";
    EXPECT_NEAR(measuredPixels(chosen, 0), 3.1416 * 60 * 60, 0.02 * 3.1416 * 60 * 60) << "measured as a whole disc";
    EXPECT_EQ(layerOf(chosen, 0).pixelColor(100, 137).alpha(), 255) << "inside the disc, hidden";
    EXPECT_EQ(layerOf(chosen, 0).pixelColor(100, 145).alpha(), 0) << "outside the disc";
}

TEST(BitmapStacking, aDiscWhoseOutlineIsTheSeamLiesOnTop)
{
    const QImage image = painted({240, 200}, [](QPainter& painter) {
        painter.setBrush(kRed);
        painter.drawRoundedRect(QRectF(10, 90, 220, 100), 45, 45);
        painter.setBrush(kCream);
        painter.drawEllipse(QPointF(60, 70), 52, 52);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(objectAt(chosen, 60, 110), 1);
    EXPECT_EQ(layerOf(chosen, 0).pixelColor(60, 110).alpha(), 255) << "the body goes on beneath the head";
}
