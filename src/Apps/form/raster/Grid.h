// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grid: the cells on which a drawing is looked at. A few hundred of them along its longer side are enough to tell what
// lies inside, beside or on what, and make that cheap. Cells are square; the grid covers the picture's frame exactly.
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

    /// The grid with a number of cells along the longer side of a frame that is not empty.
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

    /// From the drawing's units to cells.
    QTransform toCells() const
    {
        QTransform transform;
        transform.scale(width / frame.width(), height / frame.height());
        transform.translate(-frame.left(), -frame.top());
        return transform;
    }

    /// The breadth of a cell in units of which the picture is 720 wide.
    double sceneUnitsPerCell() const { return 720.0 / width; }
};
