// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The resolution at which a bitmap is understood. Pixel art is often stored enlarged, every drawn pixel a square of
// equal ones; it is understood in drawn pixels. Large pictures are understood at a reduced size.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <QImage>

/// Squares of a picture's pixels, each of which is one cell. The first square in a row or column may be incomplete.
struct PixelCells
{
    int size = 1;    ///< pixels along a square's edge, at least 1
    int offsetX = 0; ///< how many columns the first square lacks, below size
    int offsetY = 0; ///< how many rows it lacks

    int cellX(int x) const { return (x + offsetX) / size; }
    int cellY(int y) const { return (y + offsetY) / size; }
    int columns(int width) const { return cellX(width - 1) + 1; }
    int rows(int height) const { return cellY(height - 1) + 1; }

    friend bool operator==(const PixelCells&, const PixelCells&) = default;
};

/// The largest squares whose pixels are all equal, on one grid over the whole picture; size 1 where there are none.
///
/// @param image ARGB32 or RGBA64; not null
PixelCells drawnPixelsOf(const QImage& image);

/// A bitmap at the resolution at which it is understood.
struct OwnPicture
{
    PixelCells cells;
    bool reduced = false;     ///< a cell stands for pixels that differ
    PixelPlane<QRgb> colours; ///< not multiplied by alpha; alpha is above 0 wherever a pixel of the cell is covered
};

/// Takes the picture in its drawn pixels, or in averages of squares where those are more than kLargestSide each way.
OwnPicture ownPictureOf(const QImage& image);

/// Larger pictures are understood at a reduced size.
inline constexpr int kLargestSide = 720;
