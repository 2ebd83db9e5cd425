// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From an object's accumulator to the mask that is blurred: R becomes value x coverage, and the picture is cropped to
// the pixels that had a positive value and two pixels around them.
#pragma once

#include "reference/Image.h"

#include <optional>

namespace reference {

/// Weighs every pixel in place: R = R x coverage, G = B = 0, A = full. Returns the smallest rectangle around the pixels
/// whose R was positive before (empty when there is none).
RefBox weighByCoverage16(RefImage16& mask);
RefBox weighByCoverageFloat(RefImageFloat& mask);

/// The whole step on a copy: none when the accumulator has no pixels; otherwise weighed and cropped to the rectangle
/// enlarged by 2. Without any positive R the mask exists but has no pixels. Pixels that the enlargement adds are zero
/// in all channels, A included.
std::optional<RefImage16> makeMask16(const RefImage16& accumulator);
std::optional<RefImageFloat> makeMaskFloat(const RefImageFloat& accumulator);

} // namespace reference
