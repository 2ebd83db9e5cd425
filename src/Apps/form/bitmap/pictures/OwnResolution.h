// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The resolution at which regions are looked for in a bitmap. Pixel art is often stored enlarged, so that every drawn
// pixel is a square of equal pixels; it is reduced to the drawn pixels. Pictures that are still larger than
// kLargestSide are reduced further.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <QImage>

/// Divides a picture's pixels into squares; each square is one cell. The first square of a row or column may be
/// incomplete.
struct PixelCells
{
    int size = 1;    ///< pixels along a square's edge, at least 1
    int offsetX = 0; ///< how many columns the first square lacks, less than size
    int offsetY = 0; ///< how many rows it lacks

    int cellX(int x) const { return (x + offsetX) / size; }
    int cellY(int y) const { return (y + offsetY) / size; }
    int columns(int width) const { return cellX(width - 1) + 1; }
    int rows(int height) const { return cellY(height - 1) + 1; }

    friend bool operator==(const PixelCells&, const PixelCells&) = default;
};

/// Finds the largest squares, on one grid over the whole picture, whose pixels are all equal; size 1 if there are none.
///
/// @param image ARGB32 or RGBA64; not null
PixelCells drawnPixelsOf(const QImage& image);

/// A bitmap at its own resolution.
struct OwnPicture
{
    PixelCells cells;
    bool reduced = false;     ///< a cell may stand for pixels that differ
    PixelPlane<QRgb> colours; ///< not multiplied by alpha; alpha is above 0 if a pixel of the cell is covered
};

/// Reduces a picture to its drawn pixels; if these are more than kLargestSide along a side, to averages of squares of
/// them.
OwnPicture ownPictureOf(const QImage& image);

/// The largest side of an OwnPicture, in cells.
inline constexpr int kLargestSide = 720;
