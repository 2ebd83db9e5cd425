// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blurred mask in its final form: rounded to the render's format, clipped to the drawing, with what is known about
// it from one pass over its rows.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "render/ColumnSpan.h"
#include "render/PositiveSpan.h"

#include <vector>

/// The plane that elevations are made of.
struct ElevationPlane
{
    UT_SharedPtr<CEL_PixmapAreaZ> values;
    /// The part of the allocated rectangle outside of which all values count as 0, whatever is stored there.
    Math::Box2di inside;
    PositiveSpan span;
    /// For each row, from the top, the columns from the first to the last positive value, counted from the left of the
    /// allocated rectangle.
    std::vector<ColumnSpan> elevated;
};

/// Rounds and clips blurred values, in their place: in 16 bits rounds each to the nearest integer, halves away from
/// zero, within
/// +-32767; then drops what has no positive value of the geometry within 2 pixels sideways and up and down.
///
/// @param geometry the unblurred mask; null: nothing is clipped
template<typename Pixel>
ElevationPlane roundAndClip(const UT_SharedPtr<CEL_PixmapAreaZ>& blurred, const CEL_PixmapAreaZ* geometry);

/// What is known of values that stay as they are.
ElevationPlane measure(const UT_SharedPtr<CEL_PixmapAreaZ>& values);
