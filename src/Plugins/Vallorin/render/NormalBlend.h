// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blends one object's normal pixel into an output pixel (VolumeModel.h).
#pragma once

#include "MultiStageKvd/NormalParser.h"
#include "render/PixelTraits.h"

/// Blends an object's pixel into the output: normals are mixed by coverage and normalised, B becomes blue, coverages
/// add up as in painting. Over an empty output pixel, or with full coverage, the object's pixel replaces the output's.
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
    Math::Vector3d normal = (1.0 - coverage) * NormalParser_decode(out) + coverage * NormalParser_decode(object);
    normal.normalize();
    out = {Traits::blendedComponent(normal.x), Traits::blendedComponent(normal.y), blue,
           Traits::blendAlpha(out.a, coverage)};
}
