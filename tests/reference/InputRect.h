// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How far beyond the requested rectangle the node needs its inputs: as far as the widest bevel reaches.
#pragma once

#include "reference/Box.h"

#include <vector>

namespace reference {

/// The growth in pixels: ((width x blurScale) x m) / 720 + 0.5, truncated, where m is the largest of 0 and the finite
/// bevels. It is clamped to the range of int, not to any canvas.
int inputGrowth(const std::vector<double>& bevels, double blurScale, double width);

/// The rectangle grown on every side; unchanged when there are no bevels, and when it is empty.
RefBox inputRect(const RefBox& rect, const std::vector<double>& bevels, double blurScale, double width);

} // namespace reference
