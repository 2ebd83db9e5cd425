// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flags, cards and tiles in bitmaps.
#include "Bitmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using enum ObjectRole;

namespace {

const QColor kRed(210, 30, 40);
const QColor kWhite(240, 240, 240);
const QColor kBlue(30, 60, 160);
const QColor kYellow(250, 210, 40);
const QColor kGreen(40, 160, 80);

std::vector<ObjectRole> rolesOf(const QImage& image)
{
    std::vector<ObjectRole> roles;
    for (const ChosenObject& object : objectsOf(image).objects)
        roles.push_back(object.role);
    return roles;
}

std::vector<ObjectRole> rolesOf(const Paint& paint)
{
    return rolesOf(painted({160, 130}, paint));
}

void fill(QPainter& painter, const QRectF& place, const QColor& colour)
{
    painter.fillRect(place, colour);
}

// 140 wide, 96 high
void paintStripes(QPainter& painter)
{
    fill(painter, {10, 10, 140, 32}, kRed);
    fill(painter, {10, 42, 140, 32}, kWhite);
    fill(painter, {10, 74, 140, 32}, kBlue);
}

void paintDisc(QPainter& painter, double radius = 12)
{
    painter.setBrush(kYellow);
    painter.drawEllipse(QPointF(80, 58), radius, radius);
}

void paintInk(QPainter& painter, const QRectF& place)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 4));
    painter.drawRect(place);
    painter.setPen(Qt::NoPen);
}

void paintFlag(QPainter& painter)
{
    paintStripes(painter);
    paintDisc(painter);
}

void paintTile(QPainter& painter)
{
    painter.setBrush(kBlue);
    painter.drawRoundedRect(20, 5, 120, 120, 12, 12);
    painter.setBrush(kGreen);
    painter.drawEllipse(QPointF(64, 50), 25, 25);
}

} // namespace

TEST(BitmapBoards, AFlagIsOneSlabWithAllThatIsPrintedOnIt)
{
    EXPECT_THAT(rolesOf(paintStripes), ElementsAre(SLAB));
    EXPECT_THAT(rolesOf(paintFlag), ElementsAre(SLAB));
}

TEST(BitmapBoards, AMirroredFlagIsCalledTheSame)
{
    const QImage flag = painted({160, 130}, paintStripes);
    const ChosenObjects found = objectsOf(flag);
    const ChosenObjects mirrored = objectsOf(flag.mirrored());
    ASSERT_EQ(mirrored.objects.size(), 1U);
    EXPECT_EQ(mirrored.objects.front().colours, found.objects.front().colours);
    EXPECT_EQ(mirrored.drawing.layers.front().name, found.drawing.layers.front().name);
}

TEST(BitmapBoards, ALineMayLieAroundAFlag)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    paintFlag(painter);
                    paintInk(painter, {10, 10, 140, 96});
                }),
                ElementsAre(SLAB));
}

TEST(BitmapBoards, AStripeMayEndBeneathATriangle)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    paintStripes(painter);
                    painter.setBrush(kYellow);
                    painter.drawPolygon(QPolygonF({{10, 10}, {80, 58}, {10, 106}}));
                }),
                ElementsAre(SLAB));
}

TEST(BitmapBoards, WhatLiesOnATileStaysAnObject)
{
    EXPECT_THAT(rolesOf(paintTile), ElementsAre(SLAB, BODY));
}

TEST(BitmapBoards, ATileThatFillsThePictureButForItsCornersHasARim)
{
    EXPECT_THAT(rolesOf(painted({120, 120},
                                [](QPainter& painter) {
                                    painter.translate(-20, -5);
                                    paintTile(painter);
                                })),
                ElementsAre(SLAB, BODY));
}

TEST(BitmapBoards, ARectangleOfOneColourIsRound)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) { fill(painter, {10, 10, 140, 96}, kRed); }), ElementsAre(BODY));
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    fill(painter, {10, 10, 140, 96}, kRed);
                    paintInk(painter, {10, 10, 140, 96});
                }),
                ElementsAre(BODY));
}

TEST(BitmapBoards, ThickLinesAroundAreasOfOneColourMakeNoBoard)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    fill(painter, {10, 10, 140, 96}, kWhite);
                    painter.setPen(QPen(Qt::black, 9));
                    painter.drawLine(QPointF(57, 10), QPointF(57, 106));
                    painter.drawLine(QPointF(104, 10), QPointF(104, 106));
                }),
                testing::Not(testing::Contains(SLAB)));
}

TEST(BitmapBoards, ARodInTwoColoursIsRound)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    fill(painter, {10.5, 50.5, 70, 30}, kRed);
                    fill(painter, {80.5, 50.5, 69, 30}, kBlue);
                }),
                testing::Each(BODY));
}

TEST(BitmapBoards, ALineBetweenAreasPartsThings)
{
    EXPECT_THAT(rolesOf([](QPainter& painter) {
                    fill(painter, {10, 10, 140, 48}, kRed);
                    fill(painter, {10, 58, 140, 48}, kYellow);
                    paintInk(painter, {10, 10, 140, 48});
                    paintInk(painter, {10, 58, 140, 48});
                }),
                ElementsAre(BODY, BODY));
}

TEST(BitmapBoards, WhatFillsThePictureToItsCornersIsNone)
{
    const QImage stripes = painted({160, 130}, paintStripes).copy(10, 10, 140, 96);
    EXPECT_THAT(rolesOf(stripes), testing::Not(testing::Contains(SLAB)));
}

TEST(BitmapBoards, AnEdgeWithoutAntialiasingIsNoBackdrop)
{
    // Its hard pixels end at a transparent margin.
    const QImage tile = painted(
        {48, 48},
        [](QPainter& painter) {
            fill(painter, {5, 5, 37, 37}, kBlue);
            fill(painter, {9, 11, 12, 9}, kRed);
            fill(painter, {27, 26, 11, 13}, kGreen);
        },
        false);
    const ChosenObjects found = objectsOf(tile);
    ASSERT_FALSE(found.objects.empty());
    EXPECT_EQ(found.objects.front().role, SLAB) << found.objects.front().reason.toStdString();
    EXPECT_EQ(paintedAgain(found.drawing), tile);
}

TEST(BitmapBoards, TheObjectsShowTheBitmapUnchanged)
{
    for (const Paint& paint : {Paint(paintFlag), Paint(paintTile)}) {
        const QImage image = painted({160, 130}, paint);
        EXPECT_EQ(paintedAgain(objectsOf(image).drawing), image);
    }
}
