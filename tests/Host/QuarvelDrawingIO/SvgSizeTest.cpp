// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How large a drawing is, and which part of its plane it shows.
#include "Drawings.h"

using namespace drawings;

namespace {

DIO_Drawing sized(const char* attributes)
{
    return readDocument(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' ") + attributes +
                        "><rect x='10' y='20' width='30' height='40'/></svg>");
}

} // namespace

TEST(SvgSize, widthAndHeightAreInPixelsAndTheViewBoxInUserUnits)
{
    const DIO_Drawing drawing = sized("width='1in' height='48pt' viewBox='-10 -20 300 200'");
    EXPECT_EQ(drawing.size, QSizeF(96, 64));
    EXPECT_EQ(drawing.viewBox, QRectF(-10, -20, 300, 200));
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(10, 20, 30, 40));
}

TEST(SvgSize, aMissingPartFollowsFromTheOthers)
{
    EXPECT_EQ(sized("viewBox='0 0 300 200'").size, QSizeF(300, 200));
    EXPECT_EQ(sized("width='100%' height='100%' viewBox='0 0 300 200'").size, QSizeF(300, 200));
    EXPECT_EQ(sized("width='600' viewBox='0 0 300 200'").size, QSizeF(600, 400));
    EXPECT_EQ(sized("height='100' viewBox='0 0 300 200'").size, QSizeF(150, 100));
    EXPECT_EQ(sized("width='600' height='400'").viewBox, QRectF(0, 0, 600, 400));
}

TEST(SvgSize, withoutAnySizeTheShapesTellIt)
{
    const DIO_Drawing drawing = sized("");
    EXPECT_EQ(drawing.viewBox, QRectF(10, 20, 30, 40));
    EXPECT_EQ(drawing.size, QSizeF(30, 40));
}

TEST(SvgSize, zeroAndNonsenseAreIgnoredWithAWarning)
{
    const DIO_Drawing zero = sized("width='0' height='-5' viewBox='0 0 300 200'");
    EXPECT_EQ(zero.size, QSizeF(300, 200));
    EXPECT_EQ(zero.warnings.size(), 2);
    const DIO_Drawing nonsense = sized("width='1e999' height='x' viewBox='0 0 0 nan'");
    EXPECT_EQ(nonsense.size, QSizeF(30, 40));
    EXPECT_EQ(nonsense.warnings.size(), 1);
}

TEST(SvgSize, aViewBoxOfOtherProportionsIsWidenedAsAligned)
{
    EXPECT_EQ(sized("width='200' height='100' viewBox='0 0 100 100'").viewBox, QRectF(-50, 0, 200, 100));
    EXPECT_EQ(sized("width='200' height='100' viewBox='0 0 100 100' preserveAspectRatio='xMinYMid'").viewBox,
              QRectF(0, 0, 200, 100));
    EXPECT_EQ(sized("width='200' height='100' viewBox='0 0 100 100' preserveAspectRatio='xMidYMax slice'").viewBox,
              QRectF(0, 50, 100, 50));
}

TEST(SvgSize, aStretchedDrawingIsStretched)
{
    const DIO_Drawing drawing = sized("width='200' height='100' viewBox='0 0 100 100' preserveAspectRatio='none'");
    EXPECT_EQ(drawing.viewBox, QRectF(0, 0, 100, 50));
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(10, 10, 30, 20));
}
