// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops from blurred values to depths, and what tells where geometry is near (VolumeModel.h). They run with
// the widest vectors that the processor has. Every pixel is computed by itself with the operations of the plain
// formula, in their order, none of them fused, so all processors give the same bits.
//
// Rows that are written overlap nothing else; reads and writes stay within what is named.
#pragma once

#include "render/PositiveSpan.h"

#include <array>
#include <cstdint>
#include <span>

namespace VolumeRowKernels {

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

} // namespace VolumeRowKernels
