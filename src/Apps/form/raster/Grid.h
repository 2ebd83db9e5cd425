// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grid: the cells on which a drawing is analysed. A few hundred cells along the longer side are enough to tell which
// shapes lie inside, beside or on each other, and cost little time. Cells are square, up to the rounding of the shorter
// side to whole cells; the grid covers the picture's frame exactly.
#pragma once

#include <QRect>
#include <QRectF>
#include <QTransform>

#include <algorithm>
#include <cmath>

struct Grid
{
    QRectF frame; ///< in the drawing's units
    int width = 0;
    int height = 0;

    /// The grid with `longSide` cells along the longer side of a frame, which must not be empty.
    static Grid over(const QRectF& frame, int longSide)
    {
        const double cells = longSide / std::max(frame.width(), frame.height());
        const auto whole = [cells](double length) {
            return std::max(1, static_cast<int>(std::lround(length * cells)));
        };
        return {frame, whole(frame.width()), whole(frame.height())};
    }

    QRect bounds() const { return {0, 0, width, height}; }
    int longSide() const { return std::max(width, height); }

    /// How many cells there are along a unit of the drawing, along x and y.
    QPointF cellsPerUnit() const { return {width / frame.width(), height / frame.height()}; }

    /// From the drawing's units to cells.
    QTransform toCells() const
    {
        QTransform transform;
        const QPointF cells = cellsPerUnit();
        transform.scale(cells.x(), cells.y());
        transform.translate(-frame.left(), -frame.top());
        return transform;
    }

    /// The width of a cell in scene units; the picture is 720 scene units wide.
    double sceneUnitsPerCell() const { return 720.0 / width; }
};
