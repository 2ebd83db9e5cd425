// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bitmaps on paper: what stands in front of a plain backdrop, and line drawings.
#include "Bitmaps.h"

#include "form/bitmap/pictures/Backdrop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

// A head in front of a body, as flat colours.
void paintFigure(QPainter& painter)
{
    painter.setBrush(QColor(40, 110, 180));
    painter.drawRoundedRect(30, 60, 60, 60, 20, 20);
    painter.setBrush(QColor(240, 190, 150));
    painter.drawEllipse(QPointF(60, 45), 28, 28);
}

void paintRing(QPainter& painter)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(20, 20, 20), 3));
    painter.drawEllipse(QPointF(60, 65), 40, 40);
}

QImage onPaper(const Paint& paint, const QColor& paper)
{
    return painted({120, 130}, [&](QPainter& painter) {
        painter.fillRect(0, 0, 120, 130, paper);
        paint(painter);
    });
}

} // namespace

TEST(Backdrop, ADrawingOnPaperHasTheObjectsOfTheDrawingWithoutPaper)
{
    const ChosenObjects clear = objectsOf(painted({120, 130}, paintFigure));
    const ChosenObjects found = objectsOf(onPaper(paintFigure, Qt::white));
    ASSERT_EQ(clear.objects.size(), 2U);
    ASSERT_EQ(found.objects.size(), 3U);
    EXPECT_EQ(found.objects[0].role, ObjectRole::FLAT);
    EXPECT_EQ(found.objects[0].reason, QStringLiteral("the backdrop"));
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(found.objects[i + 1].role, ObjectRole::BODY);
        EXPECT_NEAR(found.objects[i + 1].share, clear.objects[i].share, 0.01);
    }
}

TEST(Backdrop, TheObjectsShowTheBitmapUnchanged)
{
    for (const QColor& paper : {QColor(Qt::white), QColor(250, 240, 220), QColor(40, 60, 90)})
        for (const Paint& paint : {Paint(paintFigure), Paint(paintRing)}) {
            const QImage image = onPaper(paint, paper);
            EXPECT_EQ(paintedAgain(objectsOf(image).drawing), image) << paper.name().toStdString();
        }
}

TEST(Backdrop, AlphaSaysHowMuchOfAnOutlinesPixelIsCovered)
{
    const QImage clear = painted({120, 130}, paintFigure);
    const std::optional<CutOut> cut = cutFromBackdrop(onPaper(paintFigure, Qt::white));
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->backdrop, qRgb(255, 255, 255));
    int off = 0;
    for (int y = 0; y < clear.height(); ++y)
        for (int x = 0; x < clear.width(); ++x)
            off += std::abs(qAlpha(cut->foreground.pixel(x, y)) - qAlpha(clear.pixel(x, y))) > 40 ? 1 : 0;
    EXPECT_LE(off, 12) << "of about 400 pixels at outlines";
}

TEST(Backdrop, WhatHasItsColourInsideTheDrawingStays)
{
    const QImage image = onPaper(
        [](QPainter& painter) {
            painter.setBrush(QColor(40, 110, 180));
            painter.drawEllipse(QPointF(60, 65), 40, 40);
            painter.setBrush(Qt::white);
            painter.drawEllipse(QPointF(60, 65), 15, 15);
        },
        Qt::white);
    const std::optional<CutOut> cut = cutFromBackdrop(image);
    ASSERT_TRUE(cut);
    EXPECT_EQ(qAlpha(cut->foreground.pixel(60, 65)), 255);
    EXPECT_EQ(qAlpha(cut->foreground.pixel(5, 5)), 0);
}

TEST(Backdrop, PaperMayHaveTheNoiseOfACompressedPhotograph)
{
    std::mt19937 random(3);
    QImage image = onPaper(paintFigure, Qt::white);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == qRgb(255, 255, 255)) {
                const int shade = 245 + static_cast<int>(random() % 11);
                image.setPixel(x, y, qRgb(shade, shade, shade));
            }
    ASSERT_TRUE(cutFromBackdrop(image));
    EXPECT_EQ(objectsOf(image).objects.size(), 3U);
}

TEST(Backdrop, ThereIsNoneWithoutAPlainBorder)
{
    EXPECT_FALSE(cutFromBackdrop(painted({120, 130}, paintFigure)));
    QImage sky(90, 90, QImage::Format_ARGB32);
    for (int y = 0; y < 90; ++y)
        for (int x = 0; x < 90; ++x)
            sky.setPixel(x, y, qRgb(2 * x, 2 * y, 250 - 2 * x));
    EXPECT_FALSE(cutFromBackdrop(sky));
    EXPECT_FALSE(cutFromBackdrop(onPaper([](QPainter&) {}, Qt::white))) << "nothing stands in front of it";
}

TEST(Backdrop, AnOpaquePictureWithoutOneSaysThatNothingHasAnOutline)
{
    DIO_Drawing plain = bitmapDrawing(onPaper([](QPainter&) {}, Qt::white));
    plain.opaqueEdge = true;
    EXPECT_FALSE(chooseBitmapObjects(plain, plain.viewBox).warning().isEmpty());
    DIO_Drawing figure = bitmapDrawing(onPaper(paintFigure, Qt::white));
    figure.opaqueEdge = true;
    EXPECT_TRUE(chooseBitmapObjects(figure, figure.viewBox).warning().isEmpty());
}

TEST(LineArt, TheAreaInsideADrawnLineIsABody)
{
    const ChosenObjects clear = objectsOf(painted({120, 130}, paintRing));
    ASSERT_EQ(clear.objects.size(), 1U);
    EXPECT_EQ(layerOf(clear, 0).pixel(60, 65), qRgb(255, 255, 255));
    EXPECT_EQ(objectAt(clear, 5, 5), -1);
    const ChosenObjects paper = objectsOf(onPaper(paintRing, QColor(250, 240, 220)));
    ASSERT_EQ(paper.objects.size(), 2U);
    EXPECT_EQ(paper.objects[1].role, ObjectRole::BODY);
    EXPECT_EQ(layerOf(paper, 1).pixel(60, 65), qRgb(250, 240, 220));
}

TEST(LineArt, AreasPaintedGreyMakeItAPaintedDrawing)
{
    const ChosenObjects found = objectsOf(painted({120, 130}, [](QPainter& painter) {
        paintRing(painter);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(150, 150, 150));
        painter.drawEllipse(QPointF(60, 65), 15, 15);
    }));
    EXPECT_EQ(objectAt(found, 60, 40), -1) << "between the ring and what is painted in its middle";
}
