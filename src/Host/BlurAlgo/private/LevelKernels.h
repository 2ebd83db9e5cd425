// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where rows of samples are level: strips of columns in which all samples are the same. Pictures to be blurred are
// mostly flat, so sums over one and the same value need not be worked out again for every sample.
//
// Samples are the same when their bits are. Sums of the same bits in the same order have the same bits, whatever the
// samples are: nothing has to be known about zeros of either sign, infinities or what is not a number.
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

/// What is known of one strip in the rows that have been looked at, one after the other.
struct LevelStrip
{
    std::uint32_t bits = 0; ///< of every sample, if there are such rows
    int rows = 0;           ///< how many rows up to the latest are level, and at the same value

    float value() const { return std::bit_cast<float>(bits); }
};

/// Looks at the next rows, n columns from x on, where the first strip begins.
void followLevels(std::span<const float* const> rows, int x, int n, LevelStrip* strips);

/// n samples of one value.
void fillRow(float* out, int n, float value);

} // namespace BlurAlgo::LevelKernels
