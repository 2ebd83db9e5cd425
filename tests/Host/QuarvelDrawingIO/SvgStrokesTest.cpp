// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a line brings along: dots where it has no length, markers at its vertices.
#include "Drawings.h"

using namespace drawings;

namespace {

constexpr const char* kTriangle =
    "<marker id='m' viewBox='0 0 10 10' refX='10' refY='5' markerWidth='4' markerHeight='4' "
    "orient='auto'><path d='M0 0L10 5L0 10z' fill='#ff0000'/></marker>";

} // namespace

TEST(SvgStrokes, aLineWithoutLengthIsADot)
{
    for (const char* line :
         {"<path d='M50 50h0' %1/>", "<line x1='50' y1='50' x2='50' y2='50' %1/>", "<path d='M50 50z' %1/>",
          "<path d='m50,50 0,0' %1/>", "<polyline points='50,50 50,50' %1/>"}) {
        const auto with = [&](const char* cap) {
            return read(QByteArray(line).replace(
                "%1", QByteArray("stroke='#0000ff' stroke-width='20' stroke-linecap='") + cap + "'"));
        };
        const DIO_Drawing round = with("round");
        EXPECT_EQ(paintAt(round, 41, 50), "#0000ff") << line;
        EXPECT_EQ(paintAt(round, 50, 59), "#0000ff") << line;
        EXPECT_EQ(paintAt(round, 42, 42), "") << line << ": a circle, not a square";
        const DIO_Drawing square = with("square");
        EXPECT_EQ(paintAt(square, 41, 41), "#0000ff") << line;
        EXPECT_EQ(paintAt(square, 39, 50), "") << line;
    }
}

TEST(SvgStrokes, aLineWithoutLengthAndCapsIsNothing)
{
    const DIO_Drawing drawing = read("<path d='M50 50h0' stroke='red' stroke-width='20'/>"
                                     "<path d='M50 50' stroke='red' stroke-width='20' stroke-linecap='round'/>"
                                     "<rect width='5' height='5'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
}

TEST(SvgStrokes, dashesWithoutLengthAreDots)
{
    const DIO_Drawing drawing = read("<path d='M10 50H90' stroke='#0000ff' stroke-width='8' stroke-linecap='round' "
                                     "stroke-dasharray='0 20'/>");
    for (const double x : {10.0, 30.0, 50.0, 70.0}) {
        EXPECT_EQ(paintAt(drawing, x, 53), "#0000ff") << x;
        EXPECT_EQ(paintAt(drawing, x + 10, 50), "") << x;
    }
}

TEST(SvgStrokes, markersStandAtTheEndsAndTurnWithTheLine)
{
    // The tip is at the end of the line; the marker is 4 line widths long, 8 units, and as high.
    const DIO_Drawing drawing =
        read(QByteArray(kTriangle) + "<path d='M20 50H60' stroke='#000' stroke-width='2' marker-end='url(#m)'/>"
                                     "<path d='M80 20V60' stroke='#000' stroke-width='2' style='marker-end:url(#m)'/>");
    EXPECT_EQ(paintAt(drawing, 53, 47.5), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 59, 47.5), "") << "beside the tip";
    EXPECT_EQ(paintAt(drawing, 24, 47.5), "") << "there is none at the start";
    EXPECT_EQ(paintAt(drawing, 82.5, 53), "#ff0000");
    EXPECT_TRUE(drawing.warnings.empty());
}

TEST(SvgStrokes, markersStandAtEveryVertexAndAreInherited)
{
    const DIO_Drawing drawing =
        read("<marker id='dot' markerUnits='userSpaceOnUse' markerWidth='10' markerHeight='10' refX='5' refY='5'>"
             "<rect width='10' height='10' fill='#00ff00'/></marker>"
             "<g style='marker:url(#dot)'><polyline points='20,20 50,20 50,60' fill='none'/></g>");
    for (const QPointF& at : {QPointF(16, 16), QPointF(46, 24), QPointF(54, 64)})
        EXPECT_EQ(paintAt(drawing, at.x(), at.y()), "#00ff00") << at.x();
    EXPECT_EQ(shapesOf(drawing).size(), 3U);
}

TEST(SvgStrokes, aMarkerAtTheStartMayTurnAround)
{
    const DIO_Drawing drawing = read(QByteArray(kTriangle).replace("'auto'", "'auto-start-reverse'") +
                                     "<path d='M20 50H60' stroke='#000' stroke-width='2' marker-start='url(#m)'/>");
    EXPECT_EQ(paintAt(drawing, 27, 47.5), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 21, 47.5), "");
}

TEST(SvgStrokes, aMarkerTakesThePaintOfItsLine)
{
    const DIO_Drawing drawing = read(QByteArray(kTriangle).replace("#ff0000", "context-stroke") +
                                     "<path d='M20 50H60' stroke='#0000ff' stroke-width='2' marker-end='url(#m)'/>");
    EXPECT_EQ(paintAt(drawing, 53, 47.5), "#0000ff");
}

TEST(SvgStrokes, aMarkerThatHasItselfIsPaintedOnce)
{
    const DIO_Drawing drawing =
        read("<marker id='m' markerWidth='10' markerHeight='10'><path d='M0 0H5V5z' marker-end='url(#m)'/></marker>"
             "<path d='M20 50H60' stroke='#000' marker-end='url(#m)'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 2U);
}
