// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grain: how uneven a bitmap's colours are from pixel to pixel. Photographs have grain and texture everywhere; what was
// drawn has flat colours and even shading.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <QRgb>

/// The share of three opaque pixels in a row or column whose middle one differs by at least two levels of 255, in red,
/// green or blue, from the mean of the others. Where it differs by more than twenty, there is an edge, which counts
/// neither way. A few pixels say nothing: with fewer than 2,000 such threes the share is 0.
double grainOf(const PixelPlane<QRgb>& colours);
