// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals of a depth picture, and how a picture stores them. A normal is a unit vector, x to the right, y down, z to
// the viewer, in double precision; the zero vector means that none could be computed. A picture of normals holds x and
// y mapped from [-1, 1] to the channel range in R and G, the normalised elevation in B, full in A; empty pixels are (0,
// 0, full, 0).
#pragma once

#include "reference/Image.h"

#include <cstdint>
#include <optional>

namespace reference {

/// A vector in double precision.
struct RefVector
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    bool operator==(const RefVector&) const = default;
};

/// a x b.
RefVector crossProduct(const RefVector& a, const RefVector& b);

/// Divided by its length; the zero vector stays zero.
RefVector normalised(const RefVector& v);

/// The normal at a pixel. Quality 0 uses the four axis neighbours; any other quality also the four diagonal ones where
/// all of them are present and not black. Zero where an axis neighbour is missing or black.
RefVector depthNormal(const RefDepth& depth, int x, int y, int quality);

/// A component in a channel: 16-bit to the nearest integer, halves away from zero, within -32767 ... 32767; float
/// unclamped.
std::int16_t encodeNormal16(double component);
float encodeNormalFloat(double component);

/// The unit vector that a pixel stores; z is negative where the pixel's B is.
RefVector decodeNormal16(const RefPixel16& pixel);
RefVector decodeNormalFloat(const RefPixelFloat& pixel);

/// The normal stored at a pixel; none where the pixel is missing or its alpha is 0.
std::optional<RefVector> storedNormal16(const RefImage16& normals, int x, int y);
std::optional<RefVector> storedNormalFloat(const RefImageFloat& normals, int x, int y);

/// The picture of normals without smoothing, over the depth's allocated rectangle; B from `blurred` (0 where that has
/// no pixel).
RefImage16 plainNormals16(const RefDepth& depth, const RefImage16& blurred, int quality);
RefImageFloat plainNormalsFloat(const RefDepth& depth, const RefImageFloat& blurred, int quality);

/// R and G of every pixel, empty ones included, replaced by the weighted mean of the nine stored normals around it; a
/// pixel with none of them stays unchanged.
RefImage16 smoothedNormals16(const RefImage16& normals);
RefImageFloat smoothedNormalsFloat(const RefImageFloat& normals);

/// The picture of normals: plain ones, smoothed when the quality is exactly 2.
RefImage16 makeNormals16(const RefDepth& depth, const RefImage16& blurred, int quality);
RefImageFloat makeNormalsFloat(const RefDepth& depth, const RefImageFloat& blurred, int quality);

} // namespace reference
