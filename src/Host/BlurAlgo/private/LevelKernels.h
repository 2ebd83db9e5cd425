// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where rows of samples are level: strips of columns in which all samples are the same. Pictures to be blurred are
// mostly flat, so sums over one and the same value need not be worked out again for every sample.
//
// Samples are the same when their bits are. Sums of the same bits in the same order have the same bits, so zeros of
// either sign, infinite values and NaN need no special care.
#pragma once

#include <bit>
#include <cstdint>
#include <span>

namespace BlurAlgo::LevelKernels {

/// Columns of a strip; the last one of a row may have fewer.
inline constexpr int kLevelStrip = 32;

constexpr int stripsOf(int columns)
{
    return (columns + kLevelStrip - 1) / kLevelStrip;
}

/// What is known of one strip in the rows seen so far.
struct LevelStrip
{
    std::uint32_t bits = 0; ///< of every sample, when rows is not 0
    int rows = 0;           ///< how many of the latest rows are level at this value

    float value() const { return std::bit_cast<float>(bits); }
};

/// Takes the next rows, n columns of them from x on; strips[0] is the strip that begins at x.
void followLevels(std::span<const float* const> rows, int x, int n, LevelStrip* strips);

/// n samples of one value.
void fillRow(float* out, int n, float value);

} // namespace BlurAlgo::LevelKernels
