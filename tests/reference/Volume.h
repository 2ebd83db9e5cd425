// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One object from its accumulator to its result picture: mask, blur, clip, elevation, normals. The steps after the blur
// can be called by themselves, so that the picture of another blur can be passed to them.
#pragma once

#include "reference/Blur.h"
#include "reference/Elevation.h"
#include "reference/Image.h"

#include <optional>

namespace reference {

/// An object's parameters, already multiplied by the node's and by the truck factor.
struct RefVolumeParameters
{
    double bevel = 5.0;
    double elevation = 1.0;
    double smoothness = 1.0;
    int resolutionX = 720;
    bool generateNormals = true;
    int quality = 0;
    bool clipWithGeometry = false;
};

/// After the blur: the optional clip with the mask's geometry, then the clip to the canvas.
RefImage16 clippedBlur16(RefImage16 blurred, const RefImage16& mask, bool clipWithGeometry);
RefImageFloat clippedBlurFloat(RefImageFloat blurred, const RefImageFloat& mask, bool clipWithGeometry);

/// From the clipped blur (or, without a bevel, the mask) to the result; `referenceBox` is the allocated rectangle of
/// the reference picture, to which it grows. Writes the range: (0, 1) with normals on.
RefImage16 shapeVolume16(RefImage16 blurred, const RefBox& referenceBox, const RefVolumeParameters& parameters,
                         RefRange& range);
RefImageFloat shapeVolumeFloat(RefImageFloat blurred, const RefBox& referenceBox, const RefVolumeParameters& parameters,
                               RefRange& range);

/// The whole: none (range unchanged) when the accumulator has no pixels. The blur is not called when the bevel is not
/// above 0.
std::optional<RefImage16> buildVolume16(const RefImage16& accumulator, const RefBox& referenceBox,
                                        const RefVolumeParameters& parameters, RefRange& range,
                                        const RefBlur16& blur = gaussianBlur16);
std::optional<RefImageFloat> buildVolumeFloat(const RefImageFloat& accumulator, const RefBox& referenceBox,
                                              const RefVolumeParameters& parameters, RefRange& range,
                                              const RefBlurFloat& blur = gaussianBlurFloat);

} // namespace reference
