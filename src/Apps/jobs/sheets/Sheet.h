// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sheet: a picture with many sprites on it, and where each of them lies. Packers cut away transparent borders (trim)
// and turn sprites to save room; a region knows what was done to its sprite.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

/// A sprite's place on a page.
struct SheetRegion
{
    QString name;
    QRect place;          ///< on the page, as it lies there
    int quarterTurns = 0; ///< 0 to 3, clockwise, by which the sprite was turned before it was laid there
    QSize whole;          ///< the sprite before anything was cut away, not turned
    QPoint offset;        ///< of what is left of it, in whole
    QString animation;    ///< frames of one animation share it; empty: the sprite stands alone

    /// The size of what is left, not turned.
    QSize trimmed() const { return quarterTurns % 2 == 0 ? place.size() : place.size().transposed(); }
    /// Where a pixel of what is left, not turned, lies on the page.
    QPoint onPage(int x, int y) const;
};

/// A page with its sprites.
struct Sheet
{
    QString page; ///< the picture's file
    std::vector<SheetRegion> regions;
};

/// Cells of one size in rows.
struct CellGrid
{
    QSize cell;
    int margin = 0;  ///< around all of them, in pixels
    int spacing = 0; ///< between two
};

/// The cells that fit on a page, row by row, named 0, 1 and so on.
///
/// @return an error when not one fits
UT_Result<std::vector<SheetRegion>> cellsOf(const QSize& page, const CellGrid& grid);

/// Whether all regions lie on the page, hold a pixel, have room in their sprites, and do not overlap. Two regions at
/// the very same place are one sprite under two names, and no overlap.
UT_Result<void> checkRegions(const std::vector<SheetRegion>& regions, const QSize& page);
