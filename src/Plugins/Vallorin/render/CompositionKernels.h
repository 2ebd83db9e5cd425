// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops that add an object to the output (Composition.h). They run with the widest vectors that the processor
// has. Every pixel is computed by itself with the operations of the plain formula, in their order, none of them fused,
// so all processors give the same bits.
//
// Rows that are written overlap no other row; only the named pixels are read and written.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "render/StreamKernels.h"

#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// The source of an output pixel's blue.
struct Blue
{
    bool isElevation;    ///< true: the object's own blue
    std::int16_t number; ///< otherwise this; float output has 0 instead
};

/// Composes an object over uninitialised pixels: output[i] is the object's pixel where the coverage's alpha is above 0,
/// with that alpha (full where it is saturated), and zero elsewhere.
void placeNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output, Stores stores);
void placeNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output, Stores stores);

/// Composes an object over existing pixels: as placeNormals() where the coverage is saturated or the output is empty,
/// blended with the output (NormalBlend.h) elsewhere; the output stays unchanged where the coverage's alpha is not
/// above 0.
void blendNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output);
void blendNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output);

} // namespace VolumeRowKernels
