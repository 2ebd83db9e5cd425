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

} // namespace

TEST(PathSets, anOperationTakesTheElementsOfBothAreas)
{
    DIO_PathWork work(25);
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
