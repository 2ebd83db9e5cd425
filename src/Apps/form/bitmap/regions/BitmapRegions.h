// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BitmapRegions: a bitmap cut into regions, so that every covered pixel lies in exactly one. A region is an area of one
// colour or smooth shading that is thick enough to be seen as an area, with the antialiased edges, thin lines and
// specks that are nearer to it than to another. Lines that lead away from all areas (an antenna, an arm of a stick
// figure) are regions of their own.
//
// Of painted pictures, whose pixels hardly anywhere form areas, each connected part is one region.
#pragma once

#include "form/bitmap/regions/ColourAreas.h"

/// A cut bitmap.
struct BitmapRegions
{
    PixelPlane<int> labels;       ///< index of the region; kNoLabel where nothing is covered
    std::vector<AreaSum> colours; ///< for each region, of the pixels that have its colour, without lines and edges
    bool hard = false;            ///< pixel art
    bool painted = false;         ///< cut into connected parts alone
};

/// Cuts a bitmap.
BitmapRegions bitmapRegionsOf(const PixelPlane<QRgb>& colours);
