// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lowest and the highest positive value of a blurred mask: between them lies the elevation.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <utility>

/// What positive values a pixmap holds in R. Without any, lowest is above highest.
struct PositiveSpan
{
    float lowest = 32767.0F;
    float highest = -32767.0F;
};

template<typename Pixel>
PositiveSpan findPositiveSpan(const CEL_PixmapOf<Pixel>& pixmap);

/// Offset and scale that bring the values of a span to 0 .. 1, in single precision: (lowest, 1 / (highest - lowest)),
/// and (lowest, 1) when there is one value only. A span without values gives what the formula gives.
std::pair<float, float> elevationRange(const PositiveSpan& span);
