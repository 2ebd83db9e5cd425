// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops from blurred values to depths, and the marking of pixels near geometry (VolumeModel.h). They run with
// the widest vectors that the processor has. Every pixel is computed by itself with the operations of the plain
// formula, in their order, none of them fused, so all processors give the same bits.
//
// Rows that are written overlap no other row; only the named pixels are read and written.
#pragma once

#include "render/PositiveSpan.h"

#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// Sets bit i of the words, counted from the lowest bit of the first word, where values[i] is positive. The last word
/// is padded with zeros.
void packPositive(std::span<const float> values, std::uint64_t* words);

/// How roundAndClip() rounds blurred values.
enum class Rounding
{
    NONE,
    TO_16_BITS ///< to the nearest integer, halves away from zero, clamped to +-32767
};

/// Rounds the values, sets those whose bit is 0 to 0 (null: none), and adds the others to the span.
///
/// @param isNear bits in the form of packPositive()
void roundAndClip(std::span<float> values, Rounding rounding, const std::uint64_t* isNear, PositiveSpan& span);

/// A linear profile of positive values.
struct LinearShare
{
    float lowest; ///< the value whose share is 0
    float scale;  ///< 1 / (the highest value - the lowest)
};

/// share[i] = (values[i] - lowest) * scale in single precision where the value is positive, else 0; depth[i] as in
/// raise().
void elevate(std::span<const float> values, const LinearShare& profile, double rise, float* share, float* depth);

/// depth[i] = share[i] * rise, multiplied in double precision.
void raise(std::span<const float> share, double rise, float* depth);

/// The share of a power profile: exp(log(linearShare) / power) in double precision, rounded to float. Shares outside 0
/// to 1 stay as they are.
float powerShare(float linearShare, double power);

/// share[i] is powerShare() of values[i] in the linear profile, with its bits, and 0 where values[i] is not positive.
void elevatePowers(std::span<const float> values, const LinearShare& profile, double power, float* share);

} // namespace VolumeRowKernels
