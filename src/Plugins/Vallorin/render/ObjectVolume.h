// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pipeline of one object, from its accumulator to what the composition shows of it: mask, blur, clip, elevation,
// normals.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <utility>

/// An object's result.
struct ObjectVolume
{
    UT_SharedPtr<CEL_PixmapArea> pixels; ///< null: there is none
    /// The rectangle of the whole result. Where the pixels do not fill it, the object has no coverage, so nobody sees
    /// that the elevation is 0 there.
    Math::Box2di rect;
};

/// Builds an object's result.
///
/// @param reference       the picture that the result must cover; gives nothing else
/// @param bevel           in units of which the picture is 720 wide; no blur and no clipping at 0 and below
/// @param resolutionX     the picture's width in pixels
/// @param generateNormals false: the result is the blurred mask itself, its elevation in R
/// @param elevation       1.0 rises 37.5 of 720 units of the canvas's width
/// @param objectPixmap    the accumulator; it is not changed
/// @param range           receives offset and scale that bring R to 0 .. 1 when normals are off, and (0, 1) when they
///                        are on; untouched when there is no result
/// @param quality         a value of eNormalQuality
/// @param smoothness      the exponent of the profile is its inverse
/// @param clip            whether the blur is taken back where there is no drawing near
/// @param covered         where inputs cover the object beyond the accumulator's rectangle: an input of zero width or
///                        height covers although nothing of it is accumulated
/// @return none when a pixmap is missing, when their formats are not the same colour format, when the accumulator holds
/// no pixels, or when there is no memory for the blur
ObjectVolume buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel, int resolutionX,
                               bool generateNormals, double elevation, const UT_SharedPtr<CEL_PixmapArea>& objectPixmap,
                               std::pair<float, float>& range, int quality, double smoothness, bool clip,
                               const Math::Box2di& covered = {});
