// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sheet: a picture with many sprites, and the place of each of them. Packers cut off transparent borders (trim) and
// turn sprites to save room; a region stores what was done to its sprite.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QHash>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

/// A sprite's place on a page.
struct SheetRegion
{
    QString name;
    QRect place;          ///< on the page, after trimming and turning
    int quarterTurns = 0; ///< 0 to 3, clockwise, by which the packer turned the sprite
    QSize whole;          ///< the size of the sprite before trimming, not turned
    QPoint offset;        ///< the place of the trimmed sprite in the whole one
    QString animation;    ///< the name that all frames of an animation share; empty for a single sprite

    /// The size of the trimmed sprite, not turned.
    QSize trimmed() const { return quarterTurns % 2 == 0 ? place.size() : place.size().transposed(); }
    /// The place on the page of a pixel of the trimmed sprite, not turned.
    QPoint onPage(int x, int y) const;
};

/// The largest place and size, in pixels, that an atlas may say. Sums of several of them are integers still.
inline constexpr int kMostSheetPixels = 1'000'000;

/// The error for a region with words where a number of pixels should be.
UT_Error notPixels(const QString& region, const QString& words);

/// A page with its sprites.
struct Sheet
{
    QString page; ///< the picture's file
    std::vector<SheetRegion> regions;
};

/// Other names for the pages of an atlas, by the names that it gives them.
using PageNames = QHash<QString, QString>;

/// Cells of one size in rows.
struct CellGrid
{
    QSize cell;
    int margin = 0;  ///< around all cells, in pixels
    int spacing = 0; ///< between two cells, in pixels
};

/// The cells that fit on a page, row by row, named 0, 1 and so on.
///
/// @return an error if no cell fits
UT_Result<std::vector<SheetRegion>> cellsOf(const QSize& page, const CellGrid& grid);

/// Checks that all regions lie on the page, have pixels, fit into their sprites, and do not overlap. Two regions at
/// exactly the same place are one sprite with two names and do not count as overlapping.
UT_Result<void> checkRegions(const std::vector<SheetRegion>& regions, const QSize& page);
