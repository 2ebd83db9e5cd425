// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What areas are painted with: the palette, and what gradients and patterns come down to.
#include "Drawings.h"

using namespace drawings;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

DIO_Paint onlyPaint(const DIO_Drawing& drawing)
{
    EXPECT_EQ(drawing.palette.size(), 1U);
    return drawing.palette.empty() ? DIO_Paint() : drawing.palette.front();
}

QString allWarnings(const DIO_Drawing& drawing)
{
    return drawing.warnings.join(u'\n');
}

} // namespace

TEST(SvgPaints, everyColourIsInThePaletteOnce)
{
    const DIO_Drawing drawing = read("<rect width='10' height='10' fill='red'/><rect width='5' height='5' fill='#00f'/>"
                                     "<rect width='2' height='2' fill='#ff0000' opacity='0.5'/>");
    ASSERT_EQ(drawing.palette.size(), 2U);
    EXPECT_EQ(drawing.palette[0], (DIO_Paint{DIO_Paint::Kind::SOLID, QColor(255, 0, 0), "#ff0000"}));
    EXPECT_EQ(drawing.palette[1], (DIO_Paint{DIO_Paint::Kind::SOLID, QColor(0, 0, 255), "#0000ff"}));
    EXPECT_EQ(shapesOf(drawing)[2].paint, 0);
    EXPECT_TRUE(drawing.warnings.empty());
}

TEST(SvgPaints, aGradientIsItsAverageWithAWarning)
{
    // Black for the first half, then up to white: 0 and 1/2 on average over the halves.
    const DIO_Drawing drawing =
        read("<linearGradient id='g'><stop offset='0.5' stop-color='#000'/><stop offset='1' stop-color='#fff'/>"
             "</linearGradient><rect width='10' height='10' fill='url(#g)'/>");
    const DIO_Paint paint = onlyPaint(drawing);
    EXPECT_EQ(paint.kind, DIO_Paint::Kind::GRADIENT);
    EXPECT_EQ(paint.name, "Gradient g");
    EXPECT_NEAR(paint.colour.red(), 64, 1);
    EXPECT_EQ(shapesOf(drawing).at(0).opacity, 1.0);
    EXPECT_THAT(drawing.warnings, ElementsAre("gradients are painted in their average colour: Gradient g"));
}

TEST(SvgPaints, aGradientOfOneColourIsThatColour)
{
    const DIO_Drawing drawing = read("<linearGradient id='swatch'><stop stop-color='#123456'/></linearGradient>"
                                     "<rect width='10' height='10' fill='url(#swatch)'/>");
    EXPECT_EQ(onlyPaint(drawing), (DIO_Paint{DIO_Paint::Kind::SOLID, QColor(0x12, 0x34, 0x56), "#123456"}));
    EXPECT_TRUE(drawing.warnings.empty());
}

TEST(SvgPaints, stopsComeFromTheLinkedGradientWhereverItStands)
{
    const DIO_Drawing drawing =
        read("<rect width='10' height='10' fill='url(#b)'/><linearGradient id='b' xlink:href='#a'/>"
             "<linearGradient id='a'><stop style='stop-color:#ff0000'/><stop offset='1' stop-color='#0000ff'/>"
             "</linearGradient>");
    EXPECT_EQ(onlyPaint(drawing).kind, DIO_Paint::Kind::GRADIENT);
    EXPECT_NEAR(onlyPaint(drawing).colour.blue(), 128, 1);
}

TEST(SvgPaints, gradientsThatLinkInACirclePaintNothing)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='a' href='#b'/><linearGradient id='b' href='#a'/>"
             "<rect width='10' height='10' fill='url(#a)'/><rect y='20' width='9' height='9'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
}

TEST(SvgPaints, aMissingGradientLeavesTheFallbackColour)
{
    const DIO_Drawing drawing = read("<rect width='10' height='10' fill='url(#none) #ff0000'/>"
                                     "<rect y='20' width='10' height='10' fill='url(#none)'/>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
    EXPECT_EQ(paintAt(drawing, 5, 25), "");
}

TEST(SvgPaints, strokesMayHaveGradientsToo)
{
    const DIO_Drawing drawing =
        read("<linearGradient id='g'><stop stop-color='#000'/><stop offset='1' stop-color='#fff'/></linearGradient>"
             "<path d='M0 50h100' stroke='url(#g)' stroke-width='4'/>");
    EXPECT_EQ(paintAt(drawing, 50, 50), "Gradient g");
}

TEST(SvgPaints, aPatternIsTheAverageOfItsColours)
{
    const DIO_Drawing drawing = read(
        "<pattern id='p' width='4' height='4' patternUnits='userSpaceOnUse'><rect width='2' height='2' fill='#ff0000'/>"
        "<rect x='2' width='2' height='2' fill='#0000ff'/></pattern><rect width='10' height='10' fill='url(#p)'/>");
    const DIO_Paint paint = onlyPaint(drawing);
    EXPECT_EQ(paint.kind, DIO_Paint::Kind::PATTERN);
    EXPECT_NEAR(paint.colour.red(), 128, 1);
    EXPECT_NEAR(paint.colour.blue(), 128, 1);
    EXPECT_THAT(drawing.warnings, ElementsAre("patterns are painted in the average of their colours: Pattern p"));
}

TEST(SvgPaints, aDrawingEmbeddedAsAPictureIsNotRead)
{
    const QByteArray inner = document("<rect width='100' height='100' fill='#ff0000'/>").toBase64();
    const DIO_Drawing drawing = read("<rect width='5' height='5'/><image width='50' height='50' "
                                     "href='data:image/png;base64," +
                                     inner + "'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_THAT(allWarnings(drawing).toStdString(), HasSubstr("picture that cannot be decoded (1)"));
}

TEST(SvgPaints, whatIsNotUnderstoodIsSaid)
{
    const DIO_Drawing drawing = read("<filter id='f'/><rect width='10' height='10' filter='url(#f)' mask='url(#m)' "
                                     "style='mix-blend-mode:multiply'/>");
    EXPECT_THAT(drawing.warnings, ElementsAre("left out: blend mode (1), filter (1), mask (1)"));
}

TEST(SvgPaints, aPatternCoversWhatItsTileCovers)
{
    // A quarter of the tile is red, an eighth of it is blue: 0.375 in all, two thirds of it red.
    const DIO_Drawing drawing =
        read("<pattern id='p' width='8' height='8' patternUnits='userSpaceOnUse'><rect width='4' height='4' "
             "fill='#ff0000'/><rect x='4' width='4' height='2' fill='#0000ff'/></pattern>"
             "<rect width='50' height='50' fill='url(#p)'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U) << "it is one area";
    EXPECT_NEAR(opacityAt(drawing, 18, 18), 1.0, 0.01) << "red";
    EXPECT_NEAR(opacityAt(drawing, 22, 17), 1.0, 0.01) << "blue";
    EXPECT_EQ(opacityAt(drawing, 22, 19), 0.0);
    EXPECT_EQ(opacityAt(drawing, 18, 22), 0.0);
    EXPECT_EQ(opacityAt(drawing, 50.5, 18), 0.0) << "the shape cuts it";
    EXPECT_NEAR(drawing.palette.at(0).colour.red(), 170, 2);
    EXPECT_NEAR(drawing.palette.at(0).colour.blue(), 85, 2);
}

TEST(SvgPaints, aPatternFadesAsItsTileFades)
{
    const DIO_Drawing drawing =
        read("<pattern id='p' width='8' height='8' patternUnits='userSpaceOnUse'><rect width='4' height='8' "
             "fill-opacity='0.5'/></pattern><rect width='50' height='50' fill='url(#p)' fill-opacity='0.5'/>");
    EXPECT_NEAR(opacityAt(drawing, 18, 18), 0.25, 0.005);
    EXPECT_EQ(opacityAt(drawing, 22, 18), 0.0);
}

TEST(SvgPaints, aPatternStandsWhereItsTilesStand)
{
    const char* const bar = "<rect width='2' height='10'/></pattern>";
    const DIO_Drawing moved =
        read(QByteArray("<pattern id='p' x='5' width='10' height='10' patternUnits='userSpaceOnUse'>") + bar +
             "<rect width='50' height='50' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(moved, 16, 16), 1.0, 0.01);
    EXPECT_EQ(opacityAt(moved, 11, 16), 0.0);
    const DIO_Drawing inBox = read(QByteArray("<pattern id='p' x='0.1' width='0.2' height='1'>") + bar +
                                   "<rect x='20' width='50' height='10' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(inBox, 26, 5), 1.0, 0.01) << "a tenth of the box from its left side";
    EXPECT_EQ(opacityAt(inBox, 28, 5), 0.0);
    EXPECT_NEAR(opacityAt(inBox, 36, 5), 1.0, 0.01);
    const DIO_Drawing turned = read(QByteArray("<pattern id='p' width='10' height='10' patternUnits='userSpaceOnUse' "
                                               "patternTransform='rotate(90)'>") +
                                    bar + "<rect width='50' height='50' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(turned, 25, 21), 1.0, 0.01) << "bars lie";
    EXPECT_EQ(opacityAt(turned, 21, 25), 0.0);
}

TEST(SvgPaints, aPatternsViewBoxIsFittedIntoItsTile)
{
    const DIO_Drawing drawing =
        read("<pattern id='p' width='10' height='10' patternUnits='userSpaceOnUse' viewBox='0 0 2 2'>"
             "<rect width='1' height='2'/></pattern><rect width='50' height='50' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(drawing, 24, 16), 1.0, 0.01);
    EXPECT_EQ(opacityAt(drawing, 26, 16), 0.0);
}

TEST(SvgPaints, aPatternThatIsTooFineHasItsAverageCoverage)
{
    const DIO_Drawing drawing = read(
        "<pattern id='p' width='.1' height='.1' patternUnits='userSpaceOnUse'><rect width='.05' height='.1'/></pattern>"
        "<rect width='50' height='50' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(drawing, 20, 20), 0.5, 0.01);
}

TEST(SvgPaints, aPatternWhoseTileIsAPartOfAShapesBoxCoversWhatItCoversThere)
{
    // The tile is a tenth of each box: 5 x 5 of which 2 x 5 are covered, and 2 x 4 of which all is.
    const DIO_Drawing drawing =
        read("<pattern id='p' width='0.1' height='10%'><rect width='2' height='50' fill='#f00'/>"
             "</pattern><rect width='50' height='50' fill='url(#p)'/>"
             "<rect x='60' width='20' height='40' fill='url(#p)'/>");
    EXPECT_NEAR(opacityAt(drawing, 21, 20), 1.0, 0.01);
    EXPECT_EQ(opacityAt(drawing, 23, 20), 0.0);
    EXPECT_NEAR(opacityAt(drawing, 70, 20), 1.0, 0.01);
    EXPECT_THAT(drawing.warnings, ElementsAre("patterns are painted in the average of their colours: Pattern p"));
}

TEST(SvgPaints, aPatternInPartsOfABoxPaintedWithItselfPaintsNothing)
{
    const DIO_Drawing drawing =
        read("<pattern id='p' width='.1' height='.1'><rect width='4' height='4' fill='url(#p)'/>"
             "<rect width='2' height='2' fill='url(#p)'/></pattern>"
             "<rect width='50' height='50' fill='url(#p)'/><rect width='5' height='5'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
}

TEST(SvgPaints, aPatternPaintedWithItselfPaintsNothing)
{
    const DIO_Drawing drawing = read("<pattern id='p' width='8' height='8' patternUnits='userSpaceOnUse'>"
                                     "<rect width='4' height='4' fill='url(#p)'/></pattern>"
                                     "<rect width='50' height='50' fill='url(#p)'/><rect width='5' height='5'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
}
