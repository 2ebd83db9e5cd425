// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops from blurred values to depths, and what tells where geometry is near (VolumeModel.h). They run with
// the widest vectors that the processor has. Every pixel is computed by itself with the operations of the plain
// formula, in their order, none of them fused, so all processors give the same bits.
//
// Rows that are written overlap nothing else; reads and writes stay within what is named.
#pragma once

#include "render/PositiveSpan.h"

#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// Bit i of the words, from the lowest of the first on, = 1 where values[i] is positive. The last word is filled up
/// with zeros.
void packPositive(std::span<const float> values, std::uint64_t* words);

/// What roundAndClip() does to blurred values before they count.
enum class Rounding
{
    NONE,
    TO_16_BITS ///< to the nearest integer, halves away from zero, held to +-32767
};

/// Rounds the values, sets those to 0 whose bit is 0 (null: none), and adds what is left to the span.
///
/// @param isNear bits as packPositive() makes them
void roundAndClip(std::span<float> values, Rounding rounding, const std::uint64_t* isNear, PositiveSpan& span);

/// A straight profile of positive values.
struct LinearShare
{
    float lowest; ///< the value whose share is 0
    float scale;  ///< 1 / (the highest value - the lowest)
};

/// share[i] = (values[i] - lowest) * scale in single precision where the value is positive, else 0; depth[i] as raise()
/// makes it.
void elevate(std::span<const float> values, const LinearShare& profile, double rise, float* share, float* depth);

/// depth[i] = share[i] * rise, multiplied in double precision.
void raise(std::span<const float> share, double rise, float* depth);

} // namespace VolumeRowKernels
