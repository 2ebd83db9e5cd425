// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns the rendered drawing of an object into an input of the render handler: two layers, the object's own level and
// the levels of its colours (VolumeModel.h).
#pragma once

#include "QuarvelCelCore/CELVEC_AlphaPlane.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Merges, on every pixel of the target: A stays the drawing's coverage and R becomes the object's level where it is
/// positive, both 0 elsewhere; G and B become the colours' grey and its coverage where the source covers, otherwise B
/// is a small default (1024 of 32767 in 16-bit, 0.5 in float) where the drawing covers, and 0 elsewhere. In float, grey
/// and coverage are truncated to whole numbers.
///
/// @param target          the drawing, rendered in its own colours
/// @param source          the drawing, rendered in greys
/// @param level           the object's, on the channel's scale
/// @param scaleByCoverage whether grey and coverage of the colours are multiplied by the drawing's coverage
template<typename Pixel>
void mergeLevel(CEL_PixmapOf<Pixel>& target, const CEL_PixmapOf<Pixel>& source,
                typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage);

/// The same for a drawing and its greys of which only the alpha was painted, because all greys are white.
///
/// @param target its pixels are replaced
template<typename Pixel>
void placeLevel(const CELVEC_AlphaPlane& alpha, typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage,
                CEL_PixmapOf<Pixel>& target);
