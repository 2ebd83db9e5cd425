// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blend of one object's normal into an output pixel: mixed by coverage over the output, or replacing it where the
// output is empty or the coverage is full.
#pragma once

#include "reference/Pixels.h"

#include <cstdint>

namespace reference {

/// Blends the object's pixel with coverage 0 < a <= 1 into `out`, whose B becomes `blue`. With a <= 0 nothing changes.
void blendNormal16(RefPixel16& out, const RefPixel16& object, double a, std::int16_t blue);

/// The float variant; a blended alpha is cut to 0.0 or 1.0.
void blendNormalFloat(RefPixelFloat& out, const RefPixelFloat& object, double a, float blue);

} // namespace reference
