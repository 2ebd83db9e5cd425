// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is done to several shapes together: groups that fade, masks, and clips in the units of what they cut.
#include "Drawings.h"

using namespace drawings;

TEST(SvgGroups, aGroupFadesAsOnePicture)
{
    const DIO_Drawing drawing = read("<g opacity='0.5'><circle cx='40' cy='50' r='20' fill='#ff0000'/>"
                                     "<circle cx='60' cy='50' r='20' fill='#0000ff'/></g>");
    EXPECT_NEAR(opacityAt(drawing, 30, 50), 0.5, 1e-9);
    EXPECT_NEAR(opacityAt(drawing, 50, 50), 0.5, 1e-9) << "two shapes by themselves would make 0.75";
    EXPECT_EQ(paintAt(drawing, 50, 50), "#0000ff") << "what lies below does not shine through";
    EXPECT_NEAR(opacityAt(drawing, 70, 50), 0.5, 1e-9);
}

TEST(SvgGroups, fillAndStrokeFadeTogether)
{
    const DIO_Drawing drawing = read("<rect x='20' y='20' width='60' height='60' fill='#ff0000' stroke='#0000ff' "
                                     "stroke-width='10' opacity='0.5'/>");
    EXPECT_NEAR(opacityAt(drawing, 23, 50), 0.5, 1e-9) << "where the stroke lies over the fill";
    EXPECT_EQ(paintAt(drawing, 23, 50), "#0000ff");
    EXPECT_NEAR(opacityAt(drawing, 50, 50), 0.5, 1e-9);
}

TEST(SvgGroups, whatIsFaintInAGroupStaysFaint)
{
    // Over the square the circle makes 1 - 0.5 * 0.2 = 0.9, of which the group leaves half.
    const DIO_Drawing drawing = read("<g opacity='0.5'><rect width='50' height='100' opacity='0.8'/>"
                                     "<circle cx='50' cy='50' r='20' fill-opacity='0.5'/></g>");
    EXPECT_NEAR(opacityAt(drawing, 10, 50), 0.4, 1e-6);
    EXPECT_NEAR(opacityAt(drawing, 40, 50), 0.45, 1e-6);
    EXPECT_NEAR(opacityAt(drawing, 60, 50), 0.25, 1e-6);
}

TEST(SvgGroups, groupsInGroupsFadeTwice)
{
    const DIO_Drawing drawing =
        read("<g opacity='0.5'><rect width='50' height='50'/><g opacity='0.5'>"
             "<rect x='25' width='50' height='50'/><rect x='35' width='50' height='50'/></g></g>");
    EXPECT_NEAR(opacityAt(drawing, 10, 10), 0.5, 1e-6);
    EXPECT_NEAR(opacityAt(drawing, 40, 10), 0.5, 1e-6) << "over what is opaque in the group";
    EXPECT_NEAR(opacityAt(drawing, 60, 10), 0.25, 1e-6);
}

TEST(SvgGroups, aMaskLetsThroughWhereItIsBright)
{
    const DIO_Drawing drawing = read(
        "<mask id='m'><rect width='50' height='100' fill='white'/><rect width='100' height='20' fill='black'/></mask>"
        "<rect width='100' height='100' fill='#ff0000' mask='url(#m)'/>");
    EXPECT_NEAR(opacityAt(drawing, 25, 50), 1.0, 1e-9);
    EXPECT_EQ(paintAt(drawing, 75, 50), "") << "where nothing is painted in the mask";
    EXPECT_EQ(paintAt(drawing, 25, 10), "") << "where it is black";
    ASSERT_EQ(drawing.palette.size(), 1U) << "the mask's colours are not the drawing's";
    EXPECT_TRUE(drawing.warnings.empty());
}

TEST(SvgGroups, greyMasksFade)
{
    // Brightness: 0.7154 for pure green, half of it where the mask is half there.
    const DIO_Drawing drawing = read("<mask id='m'><rect width='50' height='100' fill='#00ff00'/>"
                                     "<rect x='50' width='50' height='100' fill='#00ff00' opacity='0.5'/></mask>"
                                     "<rect width='100' height='100' mask='url(#m)'/>");
    EXPECT_NEAR(opacityAt(drawing, 25, 50), 0.7154, 1e-3);
    EXPECT_NEAR(opacityAt(drawing, 75, 50), 0.3577, 1e-3);
}

TEST(SvgGroups, aMaskMayGoByCoverage)
{
    const DIO_Drawing drawing = read("<mask id='m' style='mask-type:alpha'><circle cx='50' cy='50' r='20'/></mask>"
                                     "<rect width='100' height='100' mask='url(#m)'/>");
    EXPECT_NEAR(opacityAt(drawing, 50, 50), 1.0, 1e-9);
    EXPECT_EQ(paintAt(drawing, 10, 50), "");
}

TEST(SvgGroups, aMaskCutsAllOfItsGroupAndNothingElse)
{
    const DIO_Drawing drawing =
        read("<mask id='m'><rect width='50' height='100' fill='white'/></mask>"
             "<g mask='url(#m)'><rect width='100' height='20'/><rect y='40' width='100' height='20'/></g>"
             "<rect y='80' width='100' height='20'/>");
    EXPECT_EQ(paintAt(drawing, 25, 10), "#000000");
    EXPECT_EQ(paintAt(drawing, 75, 10), "");
    EXPECT_EQ(paintAt(drawing, 75, 50), "");
    EXPECT_EQ(paintAt(drawing, 75, 90), "#000000");
}

TEST(SvgGroups, aMaskEndsAtItsRegion)
{
    const DIO_Drawing drawing =
        read("<mask id='m' maskUnits='userSpaceOnUse' x='0' y='0' width='30' height='30'>"
             "<rect width='100' height='100' fill='white'/></mask><rect width='60' height='60' mask='url(#m)'/>");
    EXPECT_EQ(paintAt(drawing, 20, 20), "#000000");
    EXPECT_EQ(paintAt(drawing, 40, 20), "");
}

TEST(SvgGroups, masksAndClipsMayBeMeasuredByWhatTheyCut)
{
    const DIO_Drawing drawing = read(
        "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='0.5' height='1'/></clipPath>"
        "<mask id='m' maskContentUnits='objectBoundingBox'><rect y='0.5' width='1' height='0.5' fill='white'/></mask>"
        "<g clip-path='url(#c)'><rect x='20' y='20' width='40' height='20' stroke='red' stroke-width='8'/></g>"
        "<rect x='20' y='60' width='40' height='20' mask='url(#m)' transform='translate(10 0)'/>");
    EXPECT_EQ(paintAt(drawing, 30, 30), "#000000");
    EXPECT_EQ(paintAt(drawing, 50, 30), "") << "the box is that of the area, without the stroke";
    EXPECT_EQ(paintAt(drawing, 35, 75), "#000000");
    EXPECT_EQ(paintAt(drawing, 65, 75), "#000000");
    EXPECT_EQ(paintAt(drawing, 35, 65), "");
}

TEST(SvgGroups, aMaskThatContainsItselfIsLeftOut)
{
    const DIO_Drawing drawing = read("<mask id='m'><rect width='50' height='50' fill='white' mask='url(#m)'/></mask>"
                                     "<rect width='100' height='100' mask='url(#m)'/>");
    EXPECT_EQ(paintAt(drawing, 25, 25), "#000000");
    EXPECT_EQ(paintAt(drawing, 75, 75), "");
    EXPECT_EQ(drawing.warnings, QStringList{"left out: mask (1)"});
}

TEST(SvgGroups, layersInAFadedGroupStayLayers)
{
    const DIO_Drawing drawing =
        read("<g opacity='0.5'><g inkscape:groupmode='layer' inkscape:label='A'><rect width='50' height='50'/></g>"
             "<g inkscape:groupmode='layer' inkscape:label='B'><rect y='60' width='50' height='20'/></g></g>");
    EXPECT_EQ(layerNames(drawing), QStringList({"A", "B"}));
    EXPECT_NEAR(opacityAt(drawing, 25, 25), 0.5, 1e-9);
}
