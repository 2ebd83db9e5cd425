// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Clips: what they cut off, and what they leave alone.
#include "Drawings.h"

using namespace drawings;

TEST(SvgClips, nothingIsPaintedOutsideOfAClip)
{
    const DIO_Drawing drawing = read("<clipPath id='c'><circle cx='50' cy='50' r='20'/></clipPath>"
                                     "<rect width='100' height='100' clip-path='url(#c)'/>");
    EXPECT_EQ(paintAt(drawing, 50, 50), "#000000");
    EXPECT_EQ(paintAt(drawing, 50, 31), "#000000");
    EXPECT_EQ(paintAt(drawing, 50, 29), "");
}

TEST(SvgClips, aClipEndsWithItsElement)
{
    const DIO_Drawing drawing =
        read("<clipPath id='c'><rect width='10' height='10'/></clipPath>"
             "<g clip-path='url(#c)'><rect width='100' height='100'/></g><rect x='50' width='50' height='50'/>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#000000");
    EXPECT_EQ(paintAt(drawing, 20, 5), "");
    EXPECT_EQ(paintAt(drawing, 75, 25), "#000000");
}

TEST(SvgClips, aClipMovesWithTheElementThatAsksForIt)
{
    const DIO_Drawing drawing =
        read("<clipPath id='c'><rect width='10' height='10'/></clipPath>"
             "<rect width='100' height='100' transform='translate(40 40)' clip-path='url(#c)'/>");
    EXPECT_EQ(paintAt(drawing, 45, 45), "#000000");
    EXPECT_EQ(paintAt(drawing, 55, 45), "");
    EXPECT_EQ(paintAt(drawing, 5, 5), "");
}

TEST(SvgClips, theShapesOfAClipAreUnited)
{
    const DIO_Drawing drawing =
        read("<clipPath id='c'><rect width='20' height='20'/><rect x='10' width='40' height='20' "
             "fill='none'/></clipPath><rect width='100' height='100' clip-path='url(#c)'/>");
    EXPECT_EQ(paintAt(drawing, 5, 10), "#000000");
    EXPECT_EQ(paintAt(drawing, 15, 10), "#000000") << "where both lie";
    EXPECT_EQ(paintAt(drawing, 45, 10), "#000000") << "a clip's own fill does not matter";
    EXPECT_EQ(paintAt(drawing, 55, 10), "");
}

TEST(SvgClips, clipsWithinClipsCutBoth)
{
    const DIO_Drawing drawing =
        read("<clipPath id='left'><circle cx='40' cy='50' r='20'/></clipPath>"
             "<clipPath id='right'><circle cx='60' cy='50' r='20'/></clipPath>"
             "<g clip-path='url(#left)'><rect width='100' height='100' clip-path='url(#right)'/></g>");
    EXPECT_EQ(paintAt(drawing, 50, 50), "#000000");
    EXPECT_EQ(paintAt(drawing, 30, 50), "");
    EXPECT_EQ(paintAt(drawing, 70, 50), "");
}

TEST(SvgClips, aClipMayItselfBeClipped)
{
    const DIO_Drawing drawing = read("<clipPath id='a'><rect width='50' height='100'/></clipPath>"
                                     "<clipPath id='b' clip-path='url(#a)'><rect width='100' height='50'/></clipPath>"
                                     "<rect width='100' height='100' clip-path='url(#b)'/>");
    EXPECT_EQ(paintAt(drawing, 25, 25), "#000000");
    EXPECT_EQ(paintAt(drawing, 75, 25), "");
    EXPECT_EQ(paintAt(drawing, 25, 75), "");
}

TEST(SvgClips, aClipRuleMakesHoles)
{
    const DIO_Drawing drawing =
        read("<clipPath id='c'><path clip-rule='evenodd' d='M0 0h60v60h-60z M20 20h20v20h-20z'/></clipPath>"
             "<rect width='100' height='100' clip-path='url(#c)'/>");
    EXPECT_EQ(paintAt(drawing, 10, 10), "#000000");
    EXPECT_EQ(paintAt(drawing, 30, 30), "");
}

TEST(SvgClips, anEmptyClipLeavesNothing)
{
    const DIO_Drawing drawing = read("<clipPath id='c'/><rect width='50' height='50' clip-path='url(#c)'/>"
                                     "<rect x='60' width='20' height='20'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
}

TEST(SvgClips, aRectangleThatCutsNothingOffIsForgotten)
{
    const DIO_Drawing drawing = read("<clipPath id='c'><rect width='100' height='100'/></clipPath>"
                                     "<circle cx='50' cy='50' r='20' clip-path='url(#c)'/>");
    EXPECT_FALSE(shapesOf(drawing).at(0).clip.has_value());
}
