// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LineDepths: how far the cells between lines lie from them. What depthsInside() measures in areas of many labels, it
// measures on one, in numbers of 16 bits, of which a processor compares several at a time.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <cstdint>

/// The longest side of a plane that depthsBetween() takes, in cells.
inline constexpr int kLongestSide = 2048;

/// The distance of each cell to the nearest cell of a line, as lengths of paths over neighbours (PixelDistances.h); 0
/// on lines, half of the plane's longer side at the most.
///
/// @param lines nonzero for the cells of lines; no side longer than kLongestSide
PixelPlane<std::int16_t> depthsBetween(const PixelPlane<char>& lines);
