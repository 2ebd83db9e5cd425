// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which areas the shapes of an SVG drawing become: fills, strokes, transforms, copies, texts.
#include "Drawings.h"

using namespace drawings;

TEST(SvgShapes, fillsArePaintedInTheirOrder)
{
    const DIO_Drawing drawing = read("<rect x='10' y='10' width='40' height='40' fill='#ff0000'/>"
                                     "<rect x='30' y='10' width='40' height='40' fill='#0000ff'/>");
    EXPECT_EQ(paintAt(drawing, 20, 20), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 40, 20), "#0000ff");
    EXPECT_EQ(paintAt(drawing, 60, 20), "#0000ff");
    EXPECT_EQ(paintAt(drawing, 80, 20), "");
}

TEST(SvgShapes, everyBasicShapeIsFilledWhereItLies)
{
    const DIO_Drawing drawing = read("<circle cx='10' cy='10' r='5' fill='#000001'/>"
                                     "<ellipse cx='30' cy='10' rx='8' ry='4' fill='#000002'/>"
                                     "<polygon points='50,5 60,5 60,15 50,15' fill='#000003'/>"
                                     "<polyline points='70,5 80,5 80,15 70,15' fill='#000004'/>"
                                     "<path d='M10 30h10v10h-10z' fill='#000005'/>"
                                     "<rect x='30' y='30' width='20' height='10' rx='5' fill='#000006'/>");
    EXPECT_EQ(paintAt(drawing, 14, 10), "#000001");
    EXPECT_EQ(paintAt(drawing, 14, 14), "") << "the corner of the circle's box";
    EXPECT_EQ(paintAt(drawing, 37, 10), "#000002");
    EXPECT_EQ(paintAt(drawing, 30, 15), "");
    EXPECT_EQ(paintAt(drawing, 55, 10), "#000003");
    EXPECT_EQ(paintAt(drawing, 75, 10), "#000004");
    EXPECT_EQ(paintAt(drawing, 15, 35), "#000005");
    EXPECT_EQ(paintAt(drawing, 31, 35), "#000006");
    EXPECT_EQ(paintAt(drawing, 30.5, 30.5), "") << "a round corner";
}

TEST(SvgShapes, theFillRuleDecidesAboutHoles)
{
    const QByteArray nested = "M0 0h60v60h-60z M20 20h20v20h-20z";
    const DIO_Drawing nonzero = read("<path d='" + nested + "'/>");
    EXPECT_EQ(paintAt(nonzero, 30, 30), "#000000");
    const DIO_Drawing evenOdd = read("<path fill-rule='evenodd' d='" + nested + "'/>");
    EXPECT_EQ(paintAt(evenOdd, 30, 30), "");
    EXPECT_EQ(paintAt(evenOdd, 10, 10), "#000000");
}

TEST(SvgShapes, aStrokeIsAnAreaAsWideAsThePenOnTopOfTheFill)
{
    const DIO_Drawing drawing =
        read("<rect x='20' y='20' width='40' height='40' fill='#00ff00' stroke='#ff0000' stroke-width='4'/>");
    ASSERT_EQ(shapesOf(drawing).size(), 2U);
    EXPECT_EQ(paintAt(drawing, 40, 40), "#00ff00");
    EXPECT_EQ(paintAt(drawing, 21.9, 40), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 18.1, 40), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 22.1, 40), "#00ff00");
    EXPECT_EQ(paintAt(drawing, 17.9, 40), "");
    EXPECT_EQ(paintAt(drawing, 18.1, 18.1), "#ff0000") << "the miter join";
}

TEST(SvgShapes, capsAndJoinsShapeTheStroke)
{
    const DIO_Drawing butt = read("<path d='M20 50h40' stroke='#ff0000' stroke-width='10'/>");
    EXPECT_EQ(paintAt(butt, 18, 50), "");
    const DIO_Drawing square = read("<path d='M20 50h40' stroke='#ff0000' stroke-width='10' stroke-linecap='square'/>");
    EXPECT_EQ(paintAt(square, 15.2, 45.2), "#ff0000");
    const DIO_Drawing round = read("<path d='M20 50h40' stroke='#ff0000' stroke-width='10' stroke-linecap='round'/>");
    EXPECT_EQ(paintAt(round, 15.2, 50), "#ff0000");
    EXPECT_EQ(paintAt(round, 15.2, 45.2), "");
    const DIO_Drawing bevel = read("<path d='M20 60v-40h40' fill='none' stroke='#ff0000' stroke-width='10' "
                                   "stroke-linejoin='bevel'/>");
    EXPECT_EQ(paintAt(bevel, 15.5, 15.5), "");
    EXPECT_EQ(paintAt(bevel, 18.5, 18.5), "#ff0000");
}

TEST(SvgShapes, aSharpCornerBeyondTheMiterLimitIsCutOff)
{
    // The two legs meet at an angle of 2 atan(5 / 40): a miter is 8.06 pen widths long.
    const char* const corner = "<path d='M45 90L50 50L55 90' fill='none' stroke='#ff0000' stroke-width='4' "
                               "stroke-miterlimit='%1'/>";
    const QString cut = QString::fromLatin1(corner).arg(4);
    const QString sharp = QString::fromLatin1(corner).arg(20);
    EXPECT_EQ(paintAt(read(cut.toLatin1()), 50, 40), "");
    EXPECT_EQ(paintAt(read(sharp.toLatin1()), 50, 40), "#ff0000");
}

TEST(SvgShapes, dashesLeaveGaps)
{
    const DIO_Drawing drawing = read("<path d='M0 50h100' stroke='#ff0000' stroke-width='4' stroke-dasharray='10 5' "
                                     "stroke-dashoffset='5'/>");
    EXPECT_EQ(paintAt(drawing, 2, 50), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 7, 50), "");
    EXPECT_EQ(paintAt(drawing, 15, 50), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 22, 50), "");
}

TEST(SvgShapes, transformsAreAppliedFromTheInsideOut)
{
    const DIO_Drawing drawing = read("<g transform='translate(50 0)'><g transform='scale(2)'>"
                                     "<rect width='10' height='10' transform='translate(5 5)'/></g></g>");
    const QRectF bounds = shapesOf(drawing).at(0).path.boundingRect();
    EXPECT_EQ(bounds, QRectF(60, 10, 20, 20));
}

TEST(SvgShapes, aTransformSkewsThePenToo)
{
    const DIO_Drawing drawing = read("<path transform='scale(1 4)' d='M20 10h40' stroke='#ff0000' stroke-width='2'/>"
                                     "<path transform='scale(1 4)' d='M20 20h40' stroke='#0000ff' stroke-width='2' "
                                     "vector-effect='non-scaling-stroke'/>");
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(20, 36, 40, 8));
    EXPECT_EQ(shapesOf(drawing).at(1).path.boundingRect(), QRectF(20, 79, 40, 2));
}

TEST(SvgShapes, widenedCurvesStayTrue)
{
    const DIO_Drawing drawing = read("<circle cx='50' cy='50' r='30' fill='none' stroke='#000000' stroke-width='10'/>");
    const DIO_Shape ring = shapesOf(drawing).at(0);
    for (int degrees = 0; degrees < 360; ++degrees) {
        const QLineF ray = QLineF::fromPolar(1, degrees);
        const auto at = [&](double radius) { return covers(ring, 50 + radius * ray.dx(), 50 + radius * ray.dy()); };
        ASSERT_TRUE(at(34.95) && at(25.05)) << degrees;
        ASSERT_FALSE(at(35.05) || at(24.95)) << degrees;
    }
}

TEST(SvgShapes, opacitiesOfGroupElementFillAndColourMultiply)
{
    const DIO_Drawing drawing = read("<g opacity='0.5'><rect width='10' height='10' opacity='0.5' fill-opacity='0.5' "
                                     "fill='rgba(255, 0, 0, 0.5)'/></g>");
    const DIO_Shape shape = shapesOf(drawing).at(0);
    EXPECT_NEAR(shape.opacity, 0.0625, 1e-4);
    EXPECT_EQ(drawing.palette.at(0).name, "#ff0000");
    EXPECT_EQ(drawing.palette.at(0).colour, QColor(255, 0, 0));
}

TEST(SvgShapes, whatCannotBeSeenIsNoShape)
{
    const DIO_Drawing drawing = read("<rect width='10' height='10' fill='none'/>"
                                     "<rect width='10' height='10' opacity='0'/>"
                                     "<rect width='10' height='10' display='none'/>"
                                     "<rect width='10' height='10' visibility='hidden'/>"
                                     "<rect width='0' height='10'/>"
                                     "<defs><rect width='10' height='10'/></defs>"
                                     "<rect x='50' width='10' height='10'/>");
    ASSERT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_EQ(paintAt(drawing, 55, 5), "#000000");
}

TEST(SvgShapes, copiesStandWhereTheirUseSays)
{
    const DIO_Drawing drawing =
        read("<defs><rect id='r' width='10' height='10'/></defs>"
             "<use href='#r' x='20' y='30' fill='#ff0000'/><use xlink:href='#r' transform='scale(2)' x='30'/>");
    EXPECT_EQ(paintAt(drawing, 25, 35), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 70, 15), "#000000");
    EXPECT_EQ(paintAt(drawing, 5, 5), "");
}

TEST(SvgShapes, aSymbolIsFittedIntoItsUse)
{
    const DIO_Drawing drawing = read("<symbol id='s' viewBox='0 0 10 10'><rect width='20' height='5'/></symbol>"
                                     "<use href='#s' x='40' y='40' width='50' height='50'/>");
    EXPECT_EQ(paintAt(drawing, 89, 64), "#000000");
    EXPECT_EQ(paintAt(drawing, 91, 64), "") << "beyond the symbol's frame";
    EXPECT_EQ(paintAt(drawing, 60, 66), "");
}

TEST(SvgShapes, anInnerDrawingHasItsOwnUnits)
{
    const DIO_Drawing drawing = read("<svg x='50' y='50' width='50' height='50' viewBox='0 0 1 1'>"
                                     "<rect width='50%' height='0.5'/></svg>");
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(50, 50, 25, 25));
}

TEST(SvgShapes, aSwitchShowsItsFirstPossibleBranch)
{
    const DIO_Drawing drawing = read(
        "<switch><foreignObject width='10' height='10'/>"
        "<rect requiredExtensions='urn:x' width='10' height='10' fill='#ff0000'/>"
        "<g><rect width='10' height='10' fill='#00ff00'/></g><rect width='10' height='10' fill='#0000ff'/></switch>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#00ff00");
}

TEST(SvgShapes, lengthsMayHaveUnits)
{
    const DIO_Drawing drawing = read("<rect x='1in' width='3pt' height='50%'/>");
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(96, 0, 4, 50));
}

TEST(SvgShapes, textBecomesOutlines)
{
    const DIO_Drawing drawing =
        read("<text x='10' y='40' font-size='20' fill='#ff0000'>I<tspan x='10' y='80' fill='#0000ff'>I</tspan></text>");
    QRectF upper;
    QRectF lower;
    for (const DIO_Shape& shape : shapesOf(drawing))
        (drawing.palette[static_cast<std::size_t>(shape.paint)].name == "#ff0000" ? upper : lower) |=
            shape.path.boundingRect();
    EXPECT_GT(upper.height(), 10);
    EXPECT_LT(upper.height(), 25);
    EXPECT_NEAR(upper.bottom(), 40, 2);
    EXPECT_NEAR(lower.bottom(), 80, 2);
}

TEST(SvgShapes, packedDrawingsAreRead)
{
    // A page of 100 x 100 with a square of 9, by gzip -9.
    const QByteArray packed = QByteArray::fromBase64(
        "H4sIAAAAAAACAx2LSQ6AIAwAv9L0AbbqSQMc/"
        "IoSIFEx2FCe73KYZA4z5q4B2rGft8Uocs1Eqtrp2OUSaGBmeguEmrwuuVlkYOj5B50pfhXQtEm0OCFEn0KUT8mZb3QP+y58OWAAAAA=");
    EXPECT_EQ(shapesOf(readDocument(packed)).size(), 1U);
    EXPECT_THAT(refusal(packed.left(packed.size() / 2)).toStdString(), testing::HasSubstr("damaged or incomplete"));
}
