// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies sprites out of a page, and the pictures made of them into a page with the same layout.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "jobs/sheets/Sheet.h"

#include <QImage>

/// The sprite of a region as it was before packing: turned back, with its trimmed borders.
///
/// @param page in the format ARGB32 or RGBA64
QImage spriteOf(const QImage& page, const SheetRegion& region);

/// A sprite in the middle of nine places of its size, with the pixels of its border continued straight outwards, so
/// that it has no edge where a neighbour may touch it.
///
/// @param sprite in the format ARGB32 or RGBA64
QImage continuedSprite(const QImage& sprite);

/// Whether all pixels of an image are transparent.
bool isTransparent(const QImage& image);

/// Whether a page shows something that lies in no region, as it does where cells have the wrong size. An opaque page
/// shows its backdrop everywhere and does not count.
///
/// @param page in the format ARGB32 or RGBA64
bool showsBetween(const QImage& page, const std::vector<SheetRegion>& regions);

/// Makes a page with the type, the channels and the metadata of a picture and equal pixels.
///
/// @param pixel the samples of each pixel, as many as the picture has channels; 0 .. 65535 stands for 0.0 .. 1.0
UT_Result<IIO_Picture> emptyPage(const IIO_Picture& like, const QSize& size, std::span<const std::uint16_t> pixel);

/// Copies the picture of a sprite to the sprite's place on the page, trimmed and turned. Does not turn vectors
/// (NM_turnVectors).
void layOntoPage(const IIO_Picture& sprite, const SheetRegion& region, IIO_Picture& page);
