// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pipeline of one object, from its accumulator to the pixels that are composed: mask, blur, clip, elevation,
// normals.
#pragma once

#include "render/AccumulatedRows.h"
#include "render/NormalMap.h"

#include <functional>
#include <optional>
#include <utility>

/// An object's result.
struct ObjectVolume
{
    UT_SharedPtr<CEL_PixmapArea> pixels; ///< null: there is no result, nothing of it is shown, or it comes in bands
    /// Makes the pixels in bands of rows, from the top, and gives each away before the next is made; may be empty.
    std::function<void(const TakeBand&)> bands;
    /// The rectangle of the whole result. Where the pixels do not fill it, the object has no coverage, so the elevation
    /// of 0 there is invisible; or nobody looks.
    Math::Box2di rect;
};

/// Builds an object's result.
///
/// @param reference       the result covers at least its allocated rectangle, and has its format
/// @param bevel           in units of a 720th of the picture's width; no blur and no clipping at 0 and below
/// @param resolutionX     the picture's width in pixels
/// @param generateNormals false: the result is the blurred mask itself, its elevation in R
/// @param elevation       1.0 rises by 37.5 of 720 units of the canvas's width
/// @param object          the accumulator; unchanged, and released as soon as its mask is made: who moves it in gives
/// its memory to the rest of the work
/// @param range           receives offset and scale that map R to 0 .. 1 when normals are off, and (0, 1) when they are
/// on; unchanged when there is no result
/// @param quality         a value of eNormalQuality
/// @param smoothness      the exponent of the profile is its inverse
/// @param clip            whether the blur is clipped where there is no drawing near
/// @param covered         a rectangle that holds all coverage of the inputs. It may exceed the accumulator's: an input
/// of zero width or height is not accumulated although it has coverage
/// @param shown           normals elsewhere may be missing; without a value, all are made
/// @param inBands         whether normals may come in bands, which is for who reads them once
/// @return none when a pixmap is missing, when their formats are not the same colour format, when the accumulator holds
/// no pixels, or when the blur would be larger than it can be
/// @throws std::bad_alloc when there is no memory for it, which ends the render
ObjectVolume buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel, int resolutionX,
                               bool generateNormals, double elevation, AccumulatedObject object,
                               std::pair<float, float>& range, int quality, double smoothness, bool clip,
                               const Math::Box2di& covered = {}, const std::optional<Math::Box2di>& shown = {},
                               bool inBands = false);

/// The same for an accumulator into which all inputs are merged.
ObjectVolume buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel, int resolutionX,
                               bool generateNormals, double elevation, UT_SharedPtr<CEL_PixmapArea> objectPixmap,
                               std::pair<float, float>& range, int quality, double smoothness, bool clip,
                               const Math::Box2di& covered = {});
