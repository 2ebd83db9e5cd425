// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How style sheets, style attributes and presentation attributes come together, and which notations values may have.
#include "Drawings.h"

using namespace drawings;

namespace {

// The paint of a square with an id and a class in a group, under a style sheet.
QString styled(const char* sheet, const char* attributes = "")
{
    const QByteArray content = QByteArray("<style>") + sheet + "</style><g class='outer'><rect id='one' class='a b' " +
                               attributes + " width='10' height='10'/></g>";
    return paintAt(read(content), 5, 5);
}

QString painted(const char* fill)
{
    return paintAt(read("<rect width='10' height='10' fill='" + QByteArray(fill) + "'/>"), 5, 5);
}

} // namespace

TEST(SvgStyle, selectorsFindTheirElements)
{
    EXPECT_EQ(styled("rect { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled(".a { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("#one { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("* { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("rect.a.b { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled(".outer rect { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("g > .a { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("circle, .b { fill: #ff0000 }"), "#ff0000");
    EXPECT_EQ(styled("circle { fill: #ff0000 }"), "#000000");
    EXPECT_EQ(styled("svg > .a { fill: #ff0000 }"), "#000000");
    EXPECT_EQ(styled(".a.c { fill: #ff0000 }"), "#000000");
}

TEST(SvgStyle, theMoreSpecificRuleWinsThenTheLater)
{
    EXPECT_EQ(styled("#one { fill: #ff0000 } .a { fill: #00ff00 } rect { fill: #0000ff }"), "#ff0000");
    EXPECT_EQ(styled(".a { fill: #ff0000 } .b { fill: #00ff00 }"), "#00ff00");
    EXPECT_EQ(styled(".a { fill: #ff0000 !important } #one { fill: #00ff00 }"), "#ff0000");
}

TEST(SvgStyle, styleAttributesBeatSheetsAndSheetsBeatAttributes)
{
    EXPECT_EQ(styled(".a { fill: #ff0000 }", "fill='#00ff00'"), "#ff0000");
    EXPECT_EQ(styled(".a { fill: #ff0000 }", "style='fill: #00ff00'"), "#00ff00");
    EXPECT_EQ(styled(".a { fill: #ff0000 !important }", "style='fill: #00ff00'"), "#ff0000");
}

TEST(SvgStyle, atRulesAndCommentsHaveNoEffect)
{
    EXPECT_EQ(styled("@import url(other.css); @media print { .a { fill: #00ff00 } } /* .a { fill: #0000ff } */ "
                     ".a { fill: #ff0000 }"),
              "#ff0000");
}

TEST(SvgStyle, coloursMayBeWrittenInManyWays)
{
    EXPECT_EQ(painted("#f80"), "#ff8800");
    EXPECT_EQ(painted("rgb(255, 128, 0)"), "#ff8000");
    EXPECT_EQ(painted("rgb(100%, 0%, 100%)"), "#ff00ff");
    EXPECT_EQ(painted("hsl(120, 100%, 50%)"), "#00ff00");
    EXPECT_EQ(painted("DarkOrange"), "#ff8c00");
    EXPECT_EQ(painted("#123456 icc-color(profile, 1, 2, 3)"), "#123456");
}

TEST(SvgStyle, currentColorIsTheInheritedColour)
{
    const DIO_Drawing drawing = read("<g color='#ff0000'><rect width='10' height='10' fill='currentColor'/></g>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
}

TEST(SvgStyle, anUnknownValueLeavesWhatIsInherited)
{
    const DIO_Drawing drawing = read("<g fill='#ff0000'><rect width='10' height='10' fill='no such colour'/></g>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
}

TEST(SvgStyle, strokesInheritTheirWidthInUserUnits)
{
    const DIO_Drawing drawing = read("<g stroke='#ff0000' stroke-width='1mm'><path d='M0 50h100'/></g>");
    EXPECT_NEAR(shapesOf(drawing).at(0).path.boundingRect().height(), 96 / 25.4, 1e-6);
}

TEST(SvgStyle, stylesMayTransform)
{
    const DIO_Drawing drawing = read("<rect width='10' height='10' style='transform:translate(20px, 10%)'/>"
                                     "<rect x='60' y='20' width='20' height='10' style='transform:rotate(0.25turn);"
                                     "transform-origin:60px 20px'/>"
                                     "<rect x='60' y='60' width='20' height='20' style='transform:scale(0.5);"
                                     "transform-box:fill-box;transform-origin:center' transform='translate(500 0)'/>");
    EXPECT_EQ(paintAt(drawing, 25, 15), "#000000");
    EXPECT_EQ(paintAt(drawing, 5, 5), "");
    EXPECT_EQ(paintAt(drawing, 55, 35), "#000000") << "turned to the right about its corner, it reaches down and left";
    EXPECT_EQ(paintAt(drawing, 75, 25), "");
    EXPECT_EQ(paintAt(drawing, 70, 70), "#000000") << "the style counts, not the attribute";
    EXPECT_EQ(paintAt(drawing, 62, 62), "");
}

TEST(SvgStyle, anAttributesTransformHasAnOriginToo)
{
    const DIO_Drawing drawing =
        read("<rect x='40' y='40' width='20' height='20' transform='scale(2)' style='transform-origin:50px 50px'/>");
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(30, 30, 40, 40));
}
