// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One object from accumulator to result. Without a bevel the mask is used unchanged, neither clipped to the geometry
// nor to the canvas, so that it may extend two pixels beyond the canvas.
#include "reference/Volume.h"

#include "reference/GeometryClip.h"
#include "reference/Mask.h"
#include "reference/Normals.h"

#include <utility>

namespace reference {

RefImage16 clippedBlur16(RefImage16 blurred, const RefImage16& mask, bool clipWithGeometry)
{
    if (clipWithGeometry) {
        clipToGeometry16(blurred, mask);
    }
    blurred.clipToCanvas();
    return blurred;
}

RefImageFloat clippedBlurFloat(RefImageFloat blurred, const RefImageFloat& mask, bool clipWithGeometry)
{
    if (clipWithGeometry) {
        clipToGeometryFloat(blurred, mask);
    }
    blurred.clipToCanvas();
    return blurred;
}

RefImage16 shapeVolume16(RefImage16 blurred, const RefBox& referenceBox, const RefVolumeParameters& parameters,
                         RefRange& range)
{
    range = RefRange{0.0F, 1.0F};
    blurred.reallocToFit(referenceBox);
    if (!parameters.generateNormals) {
        range = rangeOfSpan(positiveSpan16(blurred));
        return blurred;
    }
    const double high = depthHeight(parameters.elevation, canvasFactor(blurred.canvas));
    const RefDepth depth = makeDepth16(blurred, 0.0, high, parameters.smoothness);
    return makeNormals16(depth, blurred, parameters.quality);
}

RefImageFloat shapeVolumeFloat(RefImageFloat blurred, const RefBox& referenceBox, const RefVolumeParameters& parameters,
                               RefRange& range)
{
    range = RefRange{0.0F, 1.0F};
    blurred.reallocToFit(referenceBox);
    if (!parameters.generateNormals) {
        range = rangeOfSpan(positiveSpanFloat(blurred));
        return blurred;
    }
    const double high = depthHeight(parameters.elevation, canvasFactor(blurred.canvas));
    const RefDepth depth = makeDepthFloat(blurred, 0.0, high, parameters.smoothness);
    return makeNormalsFloat(depth, blurred, parameters.quality);
}

std::optional<RefImage16> buildVolume16(const RefImage16& accumulator, const RefBox& referenceBox,
                                        const RefVolumeParameters& parameters, RefRange& range, const RefBlur16& blur)
{
    const std::optional<RefImage16> mask = makeMask16(accumulator);
    if (!mask) {
        return std::nullopt;
    }
    if (parameters.bevel <= 0.0) {
        return shapeVolume16(*mask, referenceBox, parameters, range);
    }
    RefImage16 blurred = blur(*mask, bevelSigma(parameters.bevel, parameters.resolutionX));
    blurred = clippedBlur16(std::move(blurred), *mask, parameters.clipWithGeometry);
    return shapeVolume16(std::move(blurred), referenceBox, parameters, range);
}

std::optional<RefImageFloat> buildVolumeFloat(const RefImageFloat& accumulator, const RefBox& referenceBox,
                                              const RefVolumeParameters& parameters, RefRange& range,
                                              const RefBlurFloat& blur)
{
    const std::optional<RefImageFloat> mask = makeMaskFloat(accumulator);
    if (!mask) {
        return std::nullopt;
    }
    if (parameters.bevel <= 0.0) {
        return shapeVolumeFloat(*mask, referenceBox, parameters, range);
    }
    RefImageFloat blurred = blur(*mask, bevelSigma(parameters.bevel, parameters.resolutionX));
    blurred = clippedBlurFloat(std::move(blurred), *mask, parameters.clipWithGeometry);
    return shapeVolumeFloat(std::move(blurred), referenceBox, parameters, range);
}

} // namespace reference
