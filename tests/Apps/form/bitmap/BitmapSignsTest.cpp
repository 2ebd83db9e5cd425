// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Round signs and clocks in bitmaps, and what is none of them.
#include "Bitmaps.h"

#include <gtest/gtest.h>

using enum ObjectRole;

namespace {

const QColor kGrey(204, 214, 221);
const QColor kDark(60, 70, 80);
const QColor kRed(210, 30, 40);
const QColor kSkin(250, 205, 80);

ObjectRole lowestRole(const Paint& paint)
{
    return objectsOf(painted({160, 160}, paint)).objects.front().role;
}

void disc(QPainter& painter, const QPointF& middle, double radius, const QColor& colour)
{
    painter.setBrush(colour);
    painter.drawEllipse(middle, radius, radius);
}

void hands(QPainter& painter)
{
    painter.fillRect(QRectF(75, 32, 10, 53), kDark);
    painter.fillRect(QRectF(75, 75, 40, 10), kDark);
}

} // namespace

TEST(BitmapSigns, AClockIsFlatInsideItsRim)
{
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kGrey);
                  hands(painter);
              }),
              SLAB);
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, QColor(150, 160, 170));
                  disc(painter, {80, 80}, 56, kGrey);
                  hands(painter);
              }),
              SLAB);
}

// Lines so thin are ink, no regions of their own.
TEST(BitmapSigns, AClockWithThinHandsIsFlatInsideItsRim)
{
    const auto inkedDisc = [](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 4));
        disc(painter, {80, 80}, 70, Qt::white);
    };
    EXPECT_EQ(lowestRole([&](QPainter& painter) {
                  inkedDisc(painter);
                  painter.drawLine(80, 40, 80, 80);
                  painter.drawLine(80, 80, 106, 95);
              }),
              SLAB);
    EXPECT_EQ(lowestRole(inkedDisc), BODY) << "the line around it alone";
    // Two closed eyes and a mouth
    EXPECT_EQ(lowestRole([&](QPainter& painter) {
                  inkedDisc(painter);
                  painter.drawLine(44, 66, 62, 66);
                  painter.drawLine(98, 66, 116, 66);
                  painter.drawLine(60, 104, 100, 104);
              }),
              BODY);
    // A highlight's edge
    EXPECT_EQ(lowestRole([&](QPainter& painter) {
                  inkedDisc(painter);
                  painter.drawLine(44, 50, 58, 36);
              }),
              BODY);
}

TEST(BitmapSigns, ABarAcrossADiscMakesASign)
{
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kRed);
                  painter.fillRect(QRectF(35, 70, 90, 20), Qt::white);
              }),
              SLAB);
}

TEST(BitmapSigns, BallsAndFacesStayRound)
{
    EXPECT_EQ(lowestRole([](QPainter& painter) { disc(painter, {80, 80}, 70, kRed); }), BODY);
    // A highlight
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kRed);
                  disc(painter, {58, 52}, 12, Qt::white);
              }),
              BODY);
    // A stripe from rim to rim
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kRed);
                  painter.setClipRect(QRectF(0, 68, 160, 24));
                  disc(painter, {80, 80}, 70, Qt::white);
              }),
              BODY);
    // Eyes and a mouth
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kSkin);
                  disc(painter, {56, 62}, 9, kDark);
                  disc(painter, {104, 62}, 9, kDark);
                  painter.fillRect(QRectF(50, 104, 60, 9), kDark);
              }),
              BODY);
}

TEST(BitmapSigns, ABallOfManyPatchesStaysRound)
{
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  disc(painter, {80, 80}, 70, kRed);
                  for (int i = 0; i < 9; ++i)
                      painter.fillRect(QRectF(40 + 10 * (i % 2), 36 + 10 * i, 60, 6), Qt::white);
              }),
              BODY);
}

TEST(BitmapSigns, ADiscThatIsASmallPartIsNoSign)
{
    EXPECT_EQ(lowestRole([](QPainter& painter) {
                  painter.setBrush(QColor(60, 120, 70));
                  painter.drawRoundedRect(QRectF(10, 70, 140, 80), 30, 30);
                  disc(painter, {80, 50}, 36, kGrey);
                  painter.fillRect(QRectF(62, 46, 36, 9), kDark);
              }),
              BODY);
}

TEST(BitmapSigns, ARingWithABarAcrossItIsFlat)
{
    const auto sign = [](int barLength) {
        return [barLength](QPainter& painter) {
            disc(painter, {80, 80}, 74, kRed);
            disc(painter, {80, 80}, 58, Qt::white);
            painter.fillRect(QRectF(16, 70, barLength, 20), kRed);
        };
    };
    const ChosenObjects found = objectsOf(painted({160, 160}, sign(128)));
    ASSERT_EQ(found.objects.size(), 3U) << "the ring and two fields";
    EXPECT_EQ(found.objects[0].role, SLAB);
    EXPECT_EQ(found.objects[1].role, FLAT);
    EXPECT_EQ(found.objects[2].role, FLAT);
    EXPECT_EQ(lowestRole(sign(44)), BODY) << "the bar ends before the middle";
}
