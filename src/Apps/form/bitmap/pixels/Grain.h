// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grain: how uneven a bitmap's colours are from place to place. Photographs have texture at every scale; what was drawn
// has flat colours and even shading, and what was scanned has noise on top, which goes when pixels are averaged.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <QRgb>

/// The share of three opaque pixels in a row or column whose middle one differs by at least two levels of 255, in red,
/// green or blue, from the mean of the others. Where it differs by more than twenty, there is an edge, which counts
/// neither way. A few pixels say nothing: with fewer than `least` such threes the share is 0.
double grainOf(const PixelPlane<QRgb>& colours, int least);

/// The average colours of squares of pixels, the last row and column of which may be left out. Squares that are not all
/// opaque are transparent.
PixelPlane<QRgb> averagesOf(const PixelPlane<QRgb>& colours, int side);
