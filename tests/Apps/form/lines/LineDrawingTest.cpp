// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What becomes of drawings that have lines, but no filled areas.
#include "../FormDrawings.h"

using namespace form_drawings;
using testing::ElementsAre;
using testing::IsEmpty;
using enum ObjectRole;

namespace {

const char* const kHead = "M10 50a40 40 0 1 0 80 0a40 40 0 1 0 -80 0z";

bool paints(const DIO_Layer& layer, const QPointF& point)
{
    return std::ranges::any_of(layer.shapes, [&](const DIO_Shape& shape) { return shape.path.contains(point); });
}

} // namespace

TEST(LineDrawing, TheAreaInsideAClosedLineIsAWhiteBody)
{
    const ChosenObjects found = chosen(line(kHead));
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_EQ(found.objects[0].role, BODY);
    EXPECT_TRUE(paints(found.drawing.layers[0], {50, 50}));
    EXPECT_THAT(found.objects[0].colours, ElementsAre(QStringLiteral("#ffffff"), QStringLiteral("#111111")));
    // The disc with its line: its radius is 41 of 100.
    EXPECT_NEAR(found.objects[0].share, 3.1416 * 0.41 * 0.41, 0.01);
}

TEST(LineDrawing, TheFillStaysBeneathItsLine)
{
    for (const char* const path : {kHead, "M20 20h60v60h-60z", "M50 10l35 70h-70z"}) {
        const DIO_Drawing lines = read(line(path));
        QImage inside = painted(chosen(line(path)).drawing, 400);
        QPainter painter(&inside);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        // A pixel more than the line, for the antialiasing of its edge.
        for (const QPolygonF& loop : lines.layers[0].shapes[0].path.toSubpathPolygons(QTransform::fromScale(4, 4))) {
            QPainterPath filled;
            filled.addPolygon(loop);
            painter.fillPath(filled, Qt::black);
            painter.strokePath(filled, QPen(Qt::black, 2.0));
        }
        painter.end();
        int outside = 0;
        for (int y = 0; y < inside.height(); ++y)
            for (int x = 0; x < inside.width(); ++x)
                outside += qAlpha(inside.pixel(x, y)) > 8 ? 1 : 0;
        EXPECT_EQ(outside, 0) << path;
    }
}

TEST(LineDrawing, AreasThatShareALineAreBodiesOfTheirOwn)
{
    EXPECT_THAT(rolesOf(line("M10 20h80v60h-80z") + line("M50 20v60")), ElementsAre(BODY, BODY));
}

TEST(LineDrawing, ACompactAreaInsideAnotherIsABodyOnIt)
{
    EXPECT_THAT(rolesOf(line(kHead) + line("M30 40a6 6 0 1 0 12 0a6 6 0 1 0 -12 0z")), ElementsAre(BODY, BODY));
}

TEST(LineDrawing, ASmallGapInALineIsClosed)
{
    EXPECT_TRUE(paints(chosen(line("M50.5 10h29.5v80h-60v-80h29.5")).drawing.layers[0], {50, 50}));
}

TEST(LineDrawing, AWiderGapIsClosedInTheOutlineOfALargeArea)
{
    const char* const outline = "M53 10h27v80h-60v-80h27";
    EXPECT_TRUE(paints(chosen(line(outline)).drawing.layers[0], {50, 50}));
    // The same gap in the outline of a small area, beside a large one.
    const ChosenObjects found = chosen(line("M40 10h50v50h-50z") + line("M17 72h8v14h-22v-14h8"));
    EXPECT_TRUE(paints(found.drawing.layers[0], {65, 35}));
    for (const DIO_Layer& layer : found.drawing.layers)
        EXPECT_FALSE(paints(layer, {14, 79}));
}

TEST(LineDrawing, SeveralSmallAreasMayMakeUpTheDrawing)
{
    QByteArray boxes = line("M3 97h94");
    for (int i = 0; i < 4; ++i)
        boxes += line(QStringLiteral("M%1 40h16v16h-16z").arg(6 + 24 * i).toUtf8().constData());
    EXPECT_GE(countOf(boxes), 4U);
}

TEST(LineDrawing, AHeadIsABodyHoweverLongTheOpenLinesBesideIt)
{
    const QByteArray head = line("M38 25a12 12 0 1 0 24 0a12 12 0 1 0 -24 0z");
    const QByteArray limbs = line("M8 52h30M62 52h30M20 62v30M80 62v30M50 48v44M30 62v30M70 62v30");
    const ChosenObjects found = chosen(head + limbs);
    EXPECT_TRUE(std::ranges::any_of(found.drawing.layers, [](const DIO_Layer& layer) {
        return paints(layer, {50, 25});
    }));
}

TEST(LineDrawing, AThickRingIsARing)
{
    const ChosenObjects found = chosen(line("M35 50a15 15 0 1 0 30 0a15 15 0 1 0 -30 0z", "#111111", 6.0));
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_FALSE(paints(found.drawing.layers[0], {50, 50}));
}

TEST(LineDrawing, AnOpenLineEnclosesNothing)
{
    EXPECT_FALSE(paints(chosen(line("M20 20v60h60v-60")).drawing.layers[0], {50, 50}));
}

TEST(LineDrawing, TheBorderOfThePictureClosesABust)
{
    EXPECT_TRUE(paints(chosen(line("M20 100v-60a30 30 0 0 1 60 0v60")).drawing.layers[0], {50, 90}));
}

TEST(LineDrawing, LightPaperGivesTheFillItsColour)
{
    const QByteArray drawing = rect(0, 0, 100, 100, "#f4ead0") + line(kHead);
    const ChosenObjects found = chosen(drawing);
    ASSERT_THAT(rolesOf(drawing), ElementsAre(FLAT, BODY));
    EXPECT_EQ(found.objects[1].colours.front(), QStringLiteral("#f4ead0"));
    EXPECT_EQ(pixelsThatDiffer(painted(read(drawing), 400), painted(found.drawing, 400)), 0);
}

TEST(LineDrawing, ColouredLinesAreTubes)
{
    EXPECT_FALSE(paints(chosen(line(kHead, "#dd2222", 4.0)).drawing.layers[0], {50, 50}));
}

TEST(LineDrawing, AreasOfAPatternAreNotFilled)
{
    QByteArray net;
    for (int i = 0; i <= 40; ++i)
        net += line(QStringLiteral("M%1 10v80M10 %1h80").arg(10 + 2 * i).toUtf8().constData(), "#111111", 0.3);
    for (const DIO_Layer& layer : chosen(net).drawing.layers)
        EXPECT_FALSE(paints(layer, {51, 51}));
}

TEST(LineDrawing, OneFilledAreaMakesItAPaintedDrawing)
{
    const ChosenObjects found = chosen(line(kHead) + circle(50, 50, 10, "#ffcc4d"));
    for (const DIO_Layer& layer : found.drawing.layers)
        EXPECT_FALSE(paints(layer, {50, 30}));
}
