// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Distances over the pixels of a picture, by way of neighbours: 3 for a step to the side and 4 for a diagonal one
// (Borgefors, "Distance transformations in digital images", 1986), which is within 6 per cent of the Euclidean
// distance. Whole numbers, so mirrored pictures have mirrored distances.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

/// What a step to the side counts.
inline constexpr int kPixelStep = 3;

/// How deep each pixel lies in its area: the distance to the nearest pixel of another label, kPixelStep for one at the
/// area's border; 0 where the label is negative. The picture's border is no border of an area;
/// nothing lies deeper than half of the picture's longer side.
PixelPlane<int> depthsInside(const PixelPlane<int>& labels);

/// Which area is nearest, and how far it is.
struct NearestAreas
{
    PixelPlane<int> labels;    ///< of two areas that are as near, the lower label; kNoLabel where none can be reached
    PixelPlane<int> distances; ///< 0 inside the areas
};

/// Grows the areas over open ground, all at one speed; paths lead over open pixels alone.
///
/// @param labels the areas where at least 0
/// @param open   nonzero for the pixels to grow over
NearestAreas grown(const PixelPlane<int>& labels, const PixelPlane<char>& open);
