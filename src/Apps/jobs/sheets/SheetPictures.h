// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sprites out of a page, and what was made of them into a page of the same layout.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "jobs/sheets/Sheet.h"

#include <QImage>

/// The sprite of a region as it was before it was packed: turned back, with the borders that were cut away.
///
/// @param page in one of the formats ARGB32 and RGBA64
QImage spriteOf(const QImage& page, const SheetRegion& region);

/// Whether nothing of an image shows.
bool isTransparent(const QImage& image);

/// A page of 16-bit samples with the channels and the metadata of a picture, every pixel the same.
///
/// @param pixel as many samples as the picture has channels
UT_Result<IIO_Picture> emptyPage(const IIO_Picture& like, const QSize& size, std::span<const std::uint16_t> pixel);

/// Lays the picture of a sprite onto the page as the sprite lies there: cut and turned. Vectors are not turned
/// (NM_turnVectors).
void layOntoPage(const IIO_Picture& sprite, const SheetRegion& region, IIO_Picture& page);
