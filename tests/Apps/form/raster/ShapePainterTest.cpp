// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/raster/ShapePainter.h"

#include <gtest/gtest.h>

namespace {

constexpr int kSide = 100;

Grid hundredCells()
{
    return Grid{QRectF(0.0, 0.0, kSide, kSide), kSide, kSide};
}

DIO_Shape everywhere(const QPainterPath& clip)
{
    QPainterPath square;
    square.addRect(0.0, 0.0, kSide, kSide);
    return {square, clip, 1.0, 0, {}};
}

// A square whose upper edge has two corners for each cell; at a notch, one of them lies in the middle of the square.
QPainterPath squareWithNotch(int notch)
{
    QPainterPath path(QPointF(0.0, kSide));
    for (int corner = 0; corner <= 2 * kSide; ++corner)
        path.lineTo(corner / 2.0, corner == 2 * notch + 1 ? kSide / 2.0 : 0.0);
    path.lineTo(kSide, kSide);
    path.closeSubpath();
    return path;
}

TEST(ShapePainter, TellsDetailedClipsApartThatDifferInOneCorner)
{
    ShapePainter painter(hundredCells());
    for (int notch = 0; notch < kSide; ++notch) {
        const std::vector<DIO_Shape> shape{everywhere(squareWithNotch(notch))};
        const CellMask mask = painter.mask(shape);
        for (int x = 0; x < kSide; ++x)
            EXPECT_EQ(mask.at(x, 1), x != notch) << "cell " << x << ", notch " << notch;
    }
}

} // namespace
