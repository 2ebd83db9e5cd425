// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_PictureMask: a mask that has pictures in it. What it lets through differs from pixel to pixel, so it is kept as
// pixels, in 8 bits, on the grid of the finest of its pictures; what it cuts becomes a picture, too.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <span>

class DIO_PictureMask
{
public:
    /// @param shapes     what the mask paints, in the order of painting; one of them is a picture
    /// @param palette    of these shapes
    /// @param byCoverage the mask lets through where it is painted; else where it is painted brightly
    /// @param pixelBudget how many pixels of pictures may be made; lessened by the mask's. When it runs out, masks
    /// become
    ///                   coarser
    DIO_PictureMask(std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> palette, bool byCoverage,
                    qint64& pixelBudget);

    /// Whether any of the shapes is a picture.
    static bool isNeededFor(std::span<const DIO_Shape> shapes);

    /// Cuts shapes down to what the mask lets through. A picture keeps its pixels, with less coverage; a plain shape
    /// becomes a picture of the mask in its colour, clipped by its outline.
    ///
    /// @param palette     of the shapes
    /// @param pixelBudget how many pixels of pictures may be made; lessened by those that are
    /// @return how many shapes are left whole because the budget has run out
    int cut(std::vector<DIO_Shape>& shapes, std::span<const DIO_Paint> palette, qint64& pixelBudget) const;

private:
    QRect touchedPixels(const QRectF& area) const;
    double coverageAt(const QPointF& place) const;
    DIO_Shape cutPicture(const DIO_Shape& shape) const;
    DIO_Shape cutPlain(const DIO_Shape& shape, const QRect& pixels, const QColor& colour) const;

    QRectF _area;     ///< of the grid, in the drawing
    QSizeF _pixel;    ///< in the drawing
    QImage _coverage; ///< Grayscale8; null where nothing is let through
};
