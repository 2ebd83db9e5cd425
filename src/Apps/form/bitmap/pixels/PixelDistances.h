// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Distances between the pixels of a picture, as lengths of paths over neighbours: a step to the side counts 3, a
// diagonal step 4 (Borgefors, "Distance transformations in digital images", 1986). They are within 6 per cent of three
// times the Euclidean distance, and integers, so mirrored pictures have mirrored distances.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

/// The length of a step to the side.
inline constexpr int kPixelStep = 3;

/// The length of a diagonal step.
inline constexpr int kDiagonalStep = 4;

/// How deep each pixel lies in its area: the distance to the nearest pixel of another label, kPixelStep for a pixel at
/// the area's border; 0 where the label is negative. The picture's border does not count as an area's border; depths
/// are clamped to half of the picture's longer side.
PixelPlane<int> depthsInside(const PixelPlane<int>& labels);

/// The nearest area of each pixel, and its distance.
struct NearestAreas
{
    PixelPlane<int> labels;    ///< of two equally near areas, the lower label; kNoLabel where no area can be reached
    PixelPlane<int> distances; ///< 0 inside the areas
};

/// Grows all areas at the same speed over the open pixels.
///
/// @param labels the areas' labels; pixels with negative labels belong to no area
/// @param open   nonzero for the pixels to grow over
NearestAreas grown(const PixelPlane<int>& labels, const PixelPlane<char>& open);
