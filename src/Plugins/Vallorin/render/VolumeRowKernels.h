// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops of the volume, on rows: from inputs to the accumulator, from its pixels to the mask, from blurred
// values to depths, from depths to normals, from normals to smoothed ones (VolumeModel.h). They run with the widest
// vectors that the processor has. Every pixel is computed by itself with the operations of the plain formula, in their
// order, none of them fused, so all processors give the same bits.
//
// Rows that are written overlap nothing else; reads and writes stay within what is named.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "render/PositiveSpan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// Merges the two layers of an input into the accumulator (LayerMerge.h).
void mergeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator);
void mergeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator);

/// mask[i] = value times coverage of accumulated[i] (VolumeTraits::weighted).
void weigh(std::span<const CEL_PixelRGBA16> accumulated, float* mask);
void weigh(std::span<const CEL_PixelRGBAFloat> accumulated, float* mask);

/// marks[i] = 1 where values[i] is positive, else 0.
void markPositive(std::span<const float> values, std::uint8_t* marks);

/// spread[i] = 1 where one of marks[i] ... marks[i + 4] is 1: marks has four more.
void spreadMarks(const std::uint8_t* marks, std::span<std::uint8_t> spread);

/// united[i] = 1 where one of the rows has 1.
void uniteMarks(const std::array<const std::uint8_t*, 5>& rows, std::span<std::uint8_t> united);

/// What settle() does to blurred values before they count.
enum class Rounding
{
    NONE,
    TO_16_BITS ///< to the nearest integer, halves away from zero, held to +-32767
};

/// Rounds the values, sets those to 0 for which isNear is 0 (null: none), and adds what is left to the span.
void settle(std::span<float> values, Rounding rounding, const std::uint8_t* isNear, PositiveSpan& span);

/// share[i] = (values[i] - lowest) * scale in single precision where the value is positive, else 0.
void share(std::span<const float> values, float lowest, float scale, float* share);

/// depth[i] = share[i] * rise, multiplied in double precision.
void raise(std::span<const float> share, double rise, float* depth);

/// Three neighbouring rows of depths; black ones are 0. The first pixel of a run is at index 0 of each, and all have a
/// pixel more on either side.
struct DepthRows
{
    const float* above;
    const float* here;
    const float* below;
};

/// Normals of a run of pixels, stored: the normal's x and y in R and G, the elevation in B, A full; the empty pixel
/// where the depth is black.
///
/// @param diagonals whether the diagonal neighbours count
/// @param share     the elevation of each pixel, 0 to 1
void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels);
void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels);

/// The three components of normals in rows of their own, zero where there is no normal.
struct NormalRow
{
    double* x;
    double* y;
    double* z;
};
struct NormalRows
{
    NormalRow above;
    NormalRow here;
    NormalRow below;
};

/// The same normals, diagonals included, as they are read back from a pixel of the format: rounded to its channels, of
/// a length that is 1 but for that.
void readBackNormals16(const DepthRows& depth, std::size_t count, const NormalRow& normals);
void readBackNormalsFloat(const DepthRows& depth, std::size_t count, const NormalRow& normals);

/// Normals of a run of pixels, each the normalised weighted sum of the nine around it, stored as storeNormals() does;
/// an empty pixel beside others gets their R and G.
///
/// @param normals as depth: a pixel more on either side
void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBA16> pixels);
void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBAFloat> pixels);

/// What becomes the blue of an output.
struct Blue
{
    bool isElevation;    ///< the object's own blue, otherwise
    std::int16_t number; ///< this; float output has 0 instead
};

/// Composes an object over nothing: output[i] is the object's pixel where the coverage's alpha is above 0, with that
/// alpha (full where it is saturated), and zero elsewhere.
void placeNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output);
void placeNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output);

/// Composes an object over what is there: as before where the coverage is saturated or nothing is there, blended with
/// it (NormalBlend.h) elsewhere; the output stays where the coverage's alpha is not above 0.
void blendNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output);
void blendNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output);

} // namespace VolumeRowKernels
