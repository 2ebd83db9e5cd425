// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ambient occlusion of a height field: how much of the light from all sides reaches each pixel. Creases between objects
// and carved lines become dark; flat places and everything that bulges stay white.
//
// The measure is that of horizon-based ambient occlusion (L. Bavoil, M. Sainz, R. Dimitrov, "Image-space horizon-based
// ambient occlusion", SIGGRAPH 2008), with exact horizons instead of sampled ones: in 16 directions d the whole line of
// pixels up to the picture's border is looked at. If h is the elevation angle of the horizon and t that of the surface
// itself in the direction d, the pixel's occlusion is
//
//     sum over d of w(d) max(0, sin h - sin t)
//
// where w(d) is the share of the circle that is nearer to d than to other directions. Directions are steps of whole
// pixels (1 0, 2 1, 1 1, 1 2 and their mirror images), so that no height is interpolated. The slope of the surface is
// the flatter of the slopes to the pixels before and behind, and 0 if they have different signs; so the foot of a step
// is dark up to the step, and nothing that bulges occludes itself.
//
// All horizons of a line are found in one walk along it, by the upper convex hull of the pixels passed so far (V.
// Timonen, J. Westerholm, "Scalable height field self-shadowing", Eurographics 2010). The time does not depend on the
// heights.
#pragma once

#include "QuarvelNormalMap/NM_HeightField.h"

/// One of the directions in which horizons are looked for, in steps of whole pixels.
struct NM_OcclusionDirection
{
    int x;
    int y;
    double share; ///< of the circle; all shares together are 1
};

/// All directions, in the order in which they are added up.
QUARVELNORMALMAP_EXPORT std::span<const NM_OcclusionDirection> NM_occlusionDirections();

/// Computes the light that reaches each pixel: 1 where nothing is in the way. Slopes are computed in double precision,
/// sums in single precision, always in the same order, so the result is the same on every machine and for any number of
/// threads.
///
/// @return a field of the same size with values from 0 to 1, or an error if it does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<NM_HeightField> NM_openness(const NM_HeightField& heights);

/// Makes a picture of values from 0 to 1 in the channel Y. Uncovered pixels get the value of the nearest covered one up
/// to a distance, and are white beyond it, because what a program sees near an edge is mixed from both sides. Metadata:
/// "Software", and "Layout" with the value "occlusion".
///
/// @param openness of NM_openness()
/// @param rect     the rectangle of the field, in the pixmap's coordinates
/// @param coverage colours with coverage (RGBA, 16 bits or float), for instance the node's output
/// @param frame    the rectangle that the picture shows; inside rect
/// @param pad      the distance in pixels
/// @return an error if a picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture>
NM_occlusionPicture(const NM_HeightField& openness, const Math::Box2di& rect, const CEL_PixmapArea& coverage,
                    const Math::Box2di& frame, IIO_SampleType samples, int pad);
