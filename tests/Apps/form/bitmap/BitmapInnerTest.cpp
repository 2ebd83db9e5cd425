// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What becomes of the regions of a bitmap that lie inside or across others: the same as in vector drawings.
#include "Bitmaps.h"

#include <gtest/gtest.h>

namespace {

const QColor kBone(236, 228, 210);
const QColor kDark(59, 48, 50);
const QColor kWall(241, 222, 184);
const QColor kGlass(169, 212, 234);
const QColor kSkin(154, 108, 192);

ObjectRole roleAt(const ChosenObjects& chosen, int x, int y)
{
    return chosen.objects[static_cast<std::size_t>(objectAt(chosen, x, y))].role;
}

} // namespace

TEST(BitmapInner, theSocketsOfASkullSink)
{
    const QImage image = painted({200, 200}, [](QPainter& painter) {
        painter.setBrush(kBone);
        painter.drawEllipse(QPointF(100, 100), 90, 90);
        painter.setBrush(kDark);
        painter.drawEllipse(QPointF(65, 100), 24, 26);
        painter.drawEllipse(QPointF(135, 100), 24, 26);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    EXPECT_EQ(roleAt(chosen, 65, 100), ObjectRole::OPENING);
    EXPECT_EQ(roleAt(chosen, 135, 100), ObjectRole::OPENING);
    EXPECT_EQ(roleAt(chosen, 100, 40), ObjectRole::BODY);
}

TEST(BitmapInner, theWindowsOfAHouseSink)
{
    const QImage image = painted({200, 200}, [](QPainter& painter) {
        painter.setBrush(kWall);
        painter.drawRect(QRectF(40, 80, 120, 100));
        painter.setBrush(QColor(196, 80, 60));
        painter.drawPolygon(QPolygonF({{20, 80}, {180, 80}, {100, 20}}));
        painter.setBrush(kGlass);
        painter.drawRect(QRectF(55, 105, 30, 35));
        painter.drawRect(QRectF(115, 105, 30, 35));
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 4U);
    EXPECT_EQ(roleAt(chosen, 70, 120), ObjectRole::OPENING);
    EXPECT_EQ(roleAt(chosen, 130, 120), ObjectRole::OPENING);
}

TEST(BitmapInner, aPupilThatTouchesTheOutlineOfItsEyeIsAPartOfTheEye)
{
    const QImage image = painted({256, 256}, [](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 5));
        painter.setBrush(kSkin);
        painter.drawEllipse(QPointF(128, 128), 110, 115);
        for (const int x : {90, 166}) {
            painter.setPen(QPen(Qt::black, 5));
            painter.setBrush(Qt::white);
            painter.drawEllipse(QPointF(x, 120), 26, 26);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::black);
            painter.drawEllipse(QPointF(x + 10, 120), 15, 15);
        }
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    for (const int x : {90, 166}) {
        EXPECT_EQ(objectAt(chosen, x - 18, 120), objectAt(chosen, x + 10, 120)) << "white and pupil";
        EXPECT_EQ(roleAt(chosen, x, 120), ObjectRole::BODY);
    }
    EXPECT_NE(objectAt(chosen, 90, 120), objectAt(chosen, 166, 120));
}

TEST(BitmapInner, aBandAcrossABottleIsPaintedOntoIt)
{
    const QImage image = painted({120, 240}, [](QPainter& painter) {
        painter.setBrush(QColor(63, 138, 90));
        painter.drawRoundedRect(QRectF(20, 80, 80, 150), 10, 10);
        painter.drawRect(QRectF(45, 10, 30, 80));
        painter.setBrush(kBone);
        painter.drawRect(QRectF(20, 130, 80, 50));
    });
    EXPECT_EQ(objectsOf(image).objects.size(), 1U);
}
