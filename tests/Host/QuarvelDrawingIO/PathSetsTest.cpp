// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Areas that are combined draw on what may be worked out for one drawing.
#include "QuarvelDrawingIO/DIO_PathSets.h"

#include <gtest/gtest.h>

namespace {

// Five elements: a start and four lines.
QPainterPath diamond(double x)
{
    QPainterPath path(QPointF(x, 10));
    for (const QPointF& corner : {QPointF(x + 10, 0), QPointF(x + 20, 10), QPointF(x + 10, 20), QPointF(x, 10)})
        path.lineTo(corner);
    return path;
}

// Bars of half the width of the gaps between them.
QPainterPath bars(int count, bool areUpright)
{
    QPainterPath path;
    for (int i = 0; i < count; ++i)
        path.addRect(areUpright ? QRectF(3.0 * i, -5.0, 1.0, 3.0 * count + 10.0)
                                : QRectF(-5.0, 3.0 * i, 3.0 * count + 10.0, 1.0));
    return path;
}

} // namespace

// Ten elements, and the two places where the outlines cross.
TEST(PathSets, anOperationTakesTheElementsOfBothAreasAndTheirCrossings)
{
    DIO_PathWork work(29);
    EXPECT_TRUE(DIO_united(diamond(0), diamond(5), &work));
    EXPECT_TRUE(DIO_intersected(diamond(0), diamond(5), &work));
    EXPECT_FALSE(work.take(6));
    EXPECT_TRUE(work.take(5));
}

TEST(PathSets, nothingIsCombinedWhenTheWorkIsUsedUp)
{
    DIO_PathWork work(9);
    EXPECT_FALSE(DIO_united(diamond(0), diamond(5), &work));
    EXPECT_FALSE(DIO_intersected(diamond(0), diamond(5), &work));
    EXPECT_FALSE(DIO_subtracted(diamond(0), diamond(5), &work));
    EXPECT_TRUE(DIO_united(diamond(0), diamond(5)));
}

TEST(PathSets, whatTakesNoWorkIsAlwaysCombined)
{
    DIO_PathWork none(0);
    EXPECT_EQ(DIO_united(diamond(0), diamond(0), &none), diamond(0));
    EXPECT_EQ(DIO_intersected(diamond(0), DIO_rectangle({-1, -1, 30, 30}), &none), diamond(0));
    EXPECT_EQ(DIO_subtracted(diamond(0), diamond(50), &none), diamond(0));
}

// Side by side, both still cover what they covered.
TEST(PathSets, manyAreasStayWholeWithoutWork)
{
    DIO_PathWork none(0);
    const QPainterPath both = DIO_united({diamond(0), diamond(5)}, &none);
    EXPECT_TRUE(both.contains(QPointF(2, 10)));
    EXPECT_TRUE(both.contains(QPointF(12, 10)));
    EXPECT_TRUE(both.contains(QPointF(23, 10)));
}

// Each crossing takes time, and a thousand elements can make a quarter of a million of them.
TEST(PathSets, areasWhoseOutlinesCrossTenThousandTimesAreTooDetailed)
{
    // 100 sides across 100 others.
    EXPECT_TRUE(DIO_intersected(bars(50, true), bars(50, false)));
    EXPECT_FALSE(DIO_intersected(bars(51, true), bars(50, false)));
    EXPECT_FALSE(DIO_united(bars(51, true), bars(50, false)));
    EXPECT_FALSE(DIO_subtracted(bars(51, true), bars(50, false)));
}

// Per operation, 200 elements take 200 + 156, and 1,600 crossings 1,600 + 2,500.
TEST(PathSets, manyCrossingsTakeMoreWork)
{
    DIO_PathWork work(4456);
    EXPECT_TRUE(DIO_intersected(bars(20, true), bars(20, false), &work));
    EXPECT_FALSE(work.take(1));
}
