// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The direction that a pixel of the node's output stores, as a vector of unit length. Every use of the normals
// (pictures, light) starts here, so that all agree on what a pixel without direction means.
#pragma once

#include "MultiStageKvd/NormalParser.h"

/// The direction of a surface that faces the viewer.
inline constexpr Math::Vector3d NM_kFacingViewer{0.0, 0.0, 1.0};

/// A vector whose x and y are both closer to zero than this counts as facing the viewer: its 16-bit samples differ by
/// at most one step from those of a vector that faces the viewer exactly. Rounding errors on flat places of float
/// pictures are smaller.
inline constexpr float NM_kFaces = 1.0F / 65536.0F;

/// The pixel's direction as a unit vector in picture coordinates: x right, y down, z towards the viewer.
///
/// The direction of a pixel without one faces the viewer. A pixel has no direction if red and green are both zero,
/// which is how the node marks pixels (covered or not) to which it could give none, or if red and green decode to NaN
/// or to a vector longer than 1.
///
/// A component of exactly zero lies halfway between two codes of a 16-bit channel and is stored as the upper one,
/// 16384. This function reads 16384 as zero, so that flat places stay exactly flat.
template<typename Pixel>
Math::Vector3d NM_directionOf(const Pixel& pixel)
{
    // A shortcut for most pixels of most pictures; the test of the length below would find them as well.
    if (pixel.r == 0 && pixel.g == 0)
        return NM_kFacingViewer;
    Math::Vector3d normal = NormalParser_decode(pixel);
    // Rounding to channels can make a vector in the picture's plane longer than 1, but not longer than this. NaN fails
    // the comparison too.
    constexpr double kLongest = 1.001;
    if (!(normal.x * normal.x + normal.y * normal.y <= kLongest))
        return NM_kFacingViewer;
    if constexpr (std::is_integral_v<typename CEL_PixelTraits<Pixel>::Channel>) {
        constexpr int kZeroCode = 16384;
        normal.x = pixel.r == kZeroCode ? 0.0 : normal.x;
        normal.y = pixel.g == kZeroCode ? 0.0 : normal.y;
    }
    normal.normalize();
    return normal;
}

/// Whether a float pixel faces the viewer, or has no direction.
inline bool NM_facesViewer(const CEL_PixelRGBAFloat& pixel)
{
    const Math::Vector3d normal = NM_directionOf(pixel);
    const auto faces = static_cast<double>(NM_kFaces);
    return normal.z > 0.0 && std::abs(normal.x) < faces && std::abs(normal.y) < faces;
}
