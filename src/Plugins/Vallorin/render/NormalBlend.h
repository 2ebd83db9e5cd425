// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blends one object's normal pixel into an output pixel (VolumeModel.h).
#pragma once

#include "QuarvelBaseCore/Math_Vector3d.h"
#include "render/PixelTraits.h"

/// The normal that a pixel stores, z from the unit length and with the sign of B.
template<typename Pixel>
Math::Vector3d decodeNormal(const Pixel& pixel)
{
    constexpr double kFull = static_cast<double>(VolumeTraits<Pixel>::kFull);
    const double x = 2.0 * pixel.r / kFull - 1.0;
    const double y = 2.0 * pixel.g / kFull - 1.0;
    const double z = std::sqrt(std::max(0.0, 1.0 - x * x - y * y));
    return {x, y, pixel.b < 0 ? -z : z};
}

/// Blends an object's pixel into the output: normals are mixed by coverage and normalised, B becomes blue, coverages
/// add up as painting does. Over an empty output pixel, or with full coverage, the object's pixel takes its place.
///
/// @param coverage of the object, 0 to 1; nothing changes when it is not above 0
template<typename Pixel>
void blendNormal(Pixel& out, const Pixel& object, double coverage, typename VolumeTraits<Pixel>::Channel blue)
{
    using Traits = VolumeTraits<Pixel>;
    if (!(coverage > 0.0))
        return;
    if (!(out.a > 0) || coverage == 1.0) {
        out = {object.r, object.g, blue, Traits::fullAlpha(coverage)};
        return;
    }
    Math::Vector3d normal = (1.0 - coverage) * decodeNormal(out) + coverage * decodeNormal(object);
    normal.normalize();
    out = {Traits::blendedComponent(normal.x), Traits::blendedComponent(normal.y), blue,
           Traits::blendAlpha(out.a, coverage)};
}
