// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition of an object's normals pixel by pixel, for both formats: the fallback of the vector code, and all
// blending.
#pragma once

#include "render/CompositionKernels.h"
#include "render/NormalBlend.h"

namespace VolumeRowKernels {

/// The blue of an object's pixel in the output.
template<typename Pixel>
typename VolumeTraits<Pixel>::Channel blueOf(const Pixel& object, const Blue& blue)
{
    return blue.isElevation ? object.b : VolumeTraits<Pixel>::numberInBlue(blue.number);
}

/// Where an object covers fully or lies alone, its pixel replaces the output's, with the coverage's alpha: the alpha's
/// share would be truncated to the same.
template<typename Pixel>
Pixel placedPixel(const Pixel& coverage, const Pixel& object, const Blue& blue)
{
    using Traits = VolumeTraits<Pixel>;
    return {object.r, object.g, blueOf(object, blue), Traits::isSaturated(coverage.a) ? Traits::kFull : coverage.a};
}

/// The plain form of placeNormals().
template<typename Pixel>
void placeNormalsOneByOne(std::span<const Pixel> coverage, const Pixel* object, const Blue& blue, Pixel* output)
{
    for (std::size_t i = 0; i < coverage.size(); ++i)
        output[i] = coverage[i].a > 0 ? placedPixel(coverage[i], object[i], blue) : Pixel{};
}

/// The plain form of blendNormals().
template<typename Pixel>
void blendNormalsOneByOne(std::span<const Pixel> coverage, const Pixel* object, const Blue& blue, Pixel* output)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < coverage.size(); ++i) {
        const auto alpha = coverage[i].a;
        if (!(alpha > 0))
            continue;
        if (Traits::isSaturated(alpha) || !(output[i].a > 0))
            output[i] = placedPixel(coverage[i], object[i], blue);
        else
            blendNormal(output[i], object[i], Traits::coverageOf(alpha), blueOf(object[i], blue));
    }
}

} // namespace VolumeRowKernels
