// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Gradients that fade: their one colour covers as much as the gradient does, place by place, in steps of a sixteenth.
#include "Drawings.h"

#include <algorithm>
#include <cmath>

using namespace drawings;
using testing::ElementsAre;

namespace {

// Half a step.
constexpr double kNear = 1.0 / 32.0 + 1e-3;

const QByteArray kRedToNothing = "<stop stop-color='#f00'/><stop offset='1' stop-color='#f00' stop-opacity='0'/>";
const QByteArray kSquare = "<rect width='100' height='100' fill='url(#g)'/>";

} // namespace

TEST(SvgFades, AGlowIsRoundAndNotTheRectangleThatItIsPaintedOn)
{
    const DIO_Drawing drawing = read("<radialGradient id='g'>" + kRedToNothing + "</radialGradient>" + kSquare);
    for (int distance = 0; distance < 50; distance += 7)
        for (const double angle : {0.3, 1.7, 2.9, 4.4}) {
            const double x = 50.0 + distance * std::cos(angle);
            const double y = 50.0 + distance * std::sin(angle);
            EXPECT_NEAR(opacityAt(drawing, x, y), 1.0 - distance / 50.0, kNear) << x << ", " << y;
        }
    EXPECT_EQ(opacityAt(drawing, 50.0, 50.0), 1.0);
    EXPECT_EQ(opacityAt(drawing, 95.0, 95.0), 0.0);
    ASSERT_EQ(drawing.palette.size(), 1U);
    EXPECT_EQ(drawing.palette[0].colour, QColor(255, 0, 0));
    EXPECT_THAT(drawing.warnings, ElementsAre("gradients are painted in their average colour: Gradient g"));
}

// Each stop may become a strip of each shape.
TEST(SvgFades, StopsBeyondAThousandAreLeftOut)
{
    const QByteArray opaque = "<stop offset='0.5' stop-color='#f00'/>";
    const QByteArray nothing = "<stop offset='0.5' stop-color='#f00' stop-opacity='0'/>";
    const auto opacityBeyond = [&](int stops) {
        return opacityAt(
            read("<linearGradient id='g'>" + opaque.repeated(stops) + nothing + "</linearGradient>" + kSquare), 75.0,
            50.0);
    };
    EXPECT_EQ(opacityBeyond(999), 0.0);
    EXPECT_EQ(opacityBeyond(1000), 1.0);
}

TEST(SvgFades, ASlopeOfAThousandStopsFadesAsOneOfTwo)
{
    QByteArray stops;
    for (int i = 0; i < 1000; ++i)
        stops += "<stop offset='" + QByteArray::number(i / 999.0) + "' stop-color='#f00' stop-opacity='" +
                 QByteArray::number(1.0 - i / 999.0) + "'/>";
    const DIO_Drawing drawing = read("<linearGradient id='g'>" + stops + "</linearGradient>" + kSquare);
    for (const double x : {3.0, 20.0, 47.0, 81.0, 98.0})
        EXPECT_NEAR(opacityAt(drawing, x, 50.0), 1.0 - x / 100.0, kNear) << x;
}

// Strips and rings of fades are cut by what lies in front of them, which takes a time for each.
TEST(SvgFades, AGradientBecomesAFewStripsHoweverManyStopsItHas)
{
    QByteArray stops;
    for (int i = 0; i < 1000; ++i)
        stops += "<stop offset='" + QByteArray::number(i / 999.0) + "' stop-color='#f00' stop-opacity='" +
                 QByteArray::number(i % 2) + "'/>";
    for (const DIO_Shape& shape : shapesOf(read("<linearGradient id='g'>" + stops + "</linearGradient>" + kSquare)))
        EXPECT_LT(shape.path.elementCount(), 400) << "64 strips of five or six points";
}

// The areas of a fade lie within each other. To unite each with those below it would be too much for so many.
TEST(SvgFades, ManyFadesInRingsAreWorkedOut)
{
    QByteArray stops;
    for (int i = 0; i < 64; ++i)
        stops += "<stop offset='" + QByteArray::number(i / 63.0) + "' stop-opacity='" +
                 QByteArray::number(0.25 + 0.5 * (i % 2) + i / 256.0) + "'/>";
    const DIO_Drawing drawing = read("<radialGradient id='g'>" + stops + "</radialGradient>" + kSquare.repeated(60));
    EXPECT_THAT(drawing.warnings, ElementsAre("gradients are painted in their average colour: Gradient g"));
}

TEST(SvgFades, OpacitiesOfTheShapeAndItsFillMultiply)
{
    const DIO_Drawing drawing =
        read("<radialGradient id='g'>" + kRedToNothing +
             "</radialGradient><rect width='100' height='100' fill='url(#g)' fill-opacity='0.5' opacity='0.5'/>");
    EXPECT_NEAR(opacityAt(drawing, 50.0, 50.0), 0.25, 1e-3);
    EXPECT_NEAR(opacityAt(drawing, 75.0, 50.0), 0.125, kNear / 4.0);
}

TEST(SvgFades, AGradientsTransformTurnsItsFading)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='0' x2='100' gradientTransform='rotate(90)'>" +
             kRedToNothing + "</linearGradient>" + kSquare);
    for (const double x : {1.0, 50.0, 99.0})
        for (const double y : {1.0, 20.0, 45.0, 70.0, 99.0})
            EXPECT_NEAR(opacityAt(drawing, x, y), 1.0 - y / 100.0, kNear) << x << ", " << y;
}

// The strips of its steps end at the sides of the shape, whose corners rounding leaves nearly equal.
TEST(SvgFades, ASlantedGradientCoversAllOfItsShape)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='383' x2='399' y1='667' y2='980'>"
             "<stop stop-color='#f00'/><stop offset='1' stop-color='#f00' stop-opacity='0.29'/></linearGradient>"
             "<rect x='90' y='670' width='600' height='280' fill='url(#g)' transform='translate(-63 -140)'/>");
    for (const double x : {91.0, 300.0, 500.0, 689.0})
        for (const double y : {671.0, 740.0, 810.0, 880.0, 949.0}) {
            const double along = ((x - 383.0) * 16.0 + (y - 667.0) * 313.0) / (16.0 * 16.0 + 313.0 * 313.0);
            EXPECT_NEAR(opacityAt(drawing, x - 63.0, y - 140.0), std::clamp(1.0 - 0.71 * along, 0.29, 1.0), kNear)
                << x << ", " << y;
        }
}

TEST(SvgFades, BeyondItsEndsAGradientStaysAsItsEnds)
{
    const DIO_Drawing drawing = read("<linearGradient id='g' x1='0.4' x2='0.6'>" + kRedToNothing + "</linearGradient>" +
                                     "<g transform='translate(50 0) scale(0.5)'>" + kSquare + "</g>");
    EXPECT_EQ(opacityAt(drawing, 51.0, 25.0), 1.0);
    EXPECT_EQ(opacityAt(drawing, 69.0, 25.0), 1.0);
    EXPECT_NEAR(opacityAt(drawing, 75.0, 25.0), 0.5, kNear);
    EXPECT_EQ(opacityAt(drawing, 81.0, 25.0), 0.0);
    EXPECT_EQ(opacityAt(drawing, 99.0, 25.0), 0.0);
}

TEST(SvgFades, OpacityMayRiseAndFallAgain)
{
    const DIO_Drawing ring = read("<radialGradient id='g'><stop offset='0.2' stop-opacity='0'/><stop offset='0.6'/>"
                                  "<stop offset='0.9' stop-opacity='0'/></radialGradient>" +
                                  kSquare);
    EXPECT_EQ(opacityAt(ring, 50.0, 50.0), 0.0);
    EXPECT_NEAR(opacityAt(ring, 70.0, 50.0), 0.5, kNear);
    EXPECT_EQ(opacityAt(ring, 80.0, 50.0), 1.0);
    EXPECT_EQ(opacityAt(ring, 97.0, 50.0), 0.0);
}

// The circle of a half has its centre half way between the focal point and the centre, at 37.5, and the radius 25.
TEST(SvgFades, AGradientFadesFromItsFocalPoint)
{
    const DIO_Drawing drawing =
        read("<radialGradient id='g' fx='0.25'>" + kRedToNothing + "</radialGradient>" + kSquare);
    EXPECT_EQ(opacityAt(drawing, 25.0, 50.0), 1.0);
    for (const QPointF& half : {QPointF(62.5, 50.0), QPointF(12.5, 50.0), QPointF(37.5, 75.0)})
        EXPECT_NEAR(opacityAt(drawing, half.x(), half.y()), 0.5, kNear) << half.x();
}

TEST(SvgFades, AStrokeAroundAFadingFillDoesNotFade)
{
    const DIO_Drawing drawing = read("<linearGradient id='g'>" + kRedToNothing +
                                     "</linearGradient><rect x='10' y='10' width='80' height='80' fill='url(#g)' "
                                     "stroke='#000' stroke-width='4'/>");
    EXPECT_EQ(opacityAt(drawing, 91.0, 50.0), 1.0);
    EXPECT_NEAR(opacityAt(drawing, 50.0, 50.0), 0.5, kNear);
    EXPECT_EQ(paintAt(drawing, 91.0, 50.0), "#000000");
}

TEST(SvgFades, WhatAGradientDoesNotSayComesFromTheOneThatItLinksTo)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='a' gradientUnits='userSpaceOnUse' x1='20%' x2='80%'>" + kRedToNothing +
             "</linearGradient><linearGradient id='g' xlink:href='#a'/>" + kSquare);
    EXPECT_EQ(opacityAt(drawing, 15.0, 50.0), 1.0);
    EXPECT_NEAR(opacityAt(drawing, 50.0, 50.0), 0.5, kNear);
    EXPECT_EQ(opacityAt(drawing, 85.0, 50.0), 0.0);
}

TEST(SvgFades, ARepeatedGradientHasItsAverageOpacity)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='g' x2='0.1' spreadMethod='repeat'>" + kRedToNothing + "</linearGradient>" + kSquare);
    EXPECT_NEAR(opacityAt(drawing, 3.0, 50.0), 0.5, 1e-3);
    EXPECT_NEAR(opacityAt(drawing, 97.0, 50.0), 0.5, 1e-3);
}

// No extent: the last colour everywhere, for which the average stands here.
TEST(SvgFades, AGradientWithoutExtentDoesNotFade)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='g' x1='0.5' x2='0.5'>" + kRedToNothing + "</linearGradient>" + kSquare);
    EXPECT_EQ(opacityAt(drawing, 10.0, 50.0), opacityAt(drawing, 90.0, 50.0));
}

TEST(SvgFades, AClipIsAsLargeAsItsShapeWhateverThatIsFilledWith)
{
    const DIO_Drawing drawing = read("<linearGradient id='g'>" + kRedToNothing +
                                     "</linearGradient><clipPath id='c'><rect width='50' height='100' fill='url(#g)'/>"
                                     "</clipPath><rect width='100' height='100' clip-path='url(#c)'/>");
    EXPECT_EQ(opacityAt(drawing, 45.0, 50.0), 1.0);
    EXPECT_EQ(opacityAt(drawing, 55.0, 50.0), 0.0);
}
