// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BitmapRegions: a bitmap divided into regions, so that every covered pixel lies in exactly one. A region is an area of
// one colour or of smooth shading that is thick enough to be seen as an area, together with the antialiased edges, thin
// lines and specks that are nearer to it than to another area. Lines that lead away from all areas (an antenna, an arm
// of a stick figure) are regions of their own.
//
// In painted pictures, whose pixels hardly form areas, each connected part is one region.
#pragma once

#include "form/bitmap/regions/ColourAreas.h"

/// A bitmap divided into regions.
struct BitmapRegions
{
    PixelPlane<int> labels; ///< index of the region; kNoLabel for uncovered pixels
    std::vector<AreaSum>
        colours;          ///< for each region, the sum over its core: the pixels of its colour, without lines and edges
    bool hard = false;    ///< the bitmap is pixel art
    bool painted = false; ///< the regions are the connected parts
};

/// Divides a bitmap into regions.
BitmapRegions bitmapRegionsOf(const PixelPlane<QRgb>& colours);
