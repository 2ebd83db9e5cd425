// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blurred mask in its final form: rounded to the render's format and clipped to the drawing, with the span of its
// values, found in the same pass.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "render/ColumnSpan.h"
#include "render/PositiveSpan.h"

#include <vector>

/// The plane that elevations are computed from.
struct ElevationPlane
{
    UT_SharedPtr<CEL_PixmapAreaZ> values;
    /// The part of the allocated rectangle outside which all values count as 0, whatever is stored there.
    Math::Box2di inside;
    PositiveSpan span;
    /// For each row, from the top, the columns from the first to the last positive value, counted from the left of the
    /// allocated rectangle.
    std::vector<ColumnSpan> elevated;
};

/// Rounds and clips blurred values in place. In 16 bits each is rounded to the nearest integer, halves away from zero,
/// and clamped to +-32767. Then values are set to 0 where the geometry has no positive value within 2 pixels sideways
/// and up and down.
///
/// @param geometry the unblurred mask; null: nothing is clipped
template<typename Pixel>
ElevationPlane roundAndClip(const UT_SharedPtr<CEL_PixmapAreaZ>& blurred, const CEL_PixmapAreaZ* geometry);

/// The same record for values that are neither rounded nor clipped.
ElevationPlane measure(const UT_SharedPtr<CEL_PixmapAreaZ>& values);
