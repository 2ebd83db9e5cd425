// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Outlines.h"

#include <gtest/gtest.h>

namespace {

DIO_Shape clippedSquare(const QPainterPath& clip)
{
    QPainterPath square;
    square.addRect(0.0, 0.0, 100.0, 100.0);
    return {square, clip, 1.0, 0, {}};
}

// A comb of teeth one unit wide, two units apart.
QPainterPath comb(int teeth)
{
    QPainterPath path;
    for (int i = 0; i < teeth; ++i)
        path.addRect(2.0 * i, 50.0, 1.0, 200.0);
    return path;
}

TEST(Outlines, EndWhereTheClipEnds)
{
    EXPECT_EQ(outlineOf(clippedSquare(comb(3))).boundingRect(), QRectF(0.0, 50.0, 5.0, 50.0));
}

TEST(Outlines, LeaveOutAClipThatIsTooDetailedToCutWith)
{
    EXPECT_EQ(outlineOf(clippedSquare(comb(2000))).boundingRect(), QRectF(0.0, 0.0, 100.0, 100.0));
}

} // namespace
