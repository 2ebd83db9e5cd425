// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops of halving and doubling, on rows of floats. Where rows are summed, a few result rows are made at
// once, so that a row of the input is brought into the first-level cache once for all of them. They run with the widest
// vectors that the processor has. Every sample is computed by itself, in an order that is the same for a mirrored
// picture, without fused operations, so that all processors give the same bits.
//
// Weights are those of one step, from the middle outwards: the middle one, then 2 to kLargestReach others. The rows
// that a call writes overlap no other row that it gets; only the named samples are read and written.
#pragma once

#include <array>
#include <span>

namespace BlurAlgo::PyramidKernels {

inline constexpr int kLargestReach = 5;

/// How many halved rows are made at once, and from how many rows.
inline constexpr int kHalvedRows = 4;
constexpr int rowsToHalve(int reach)
{
    return 2 * (kHalvedRows - 1) + 2 * reach + 1;
}

/// How many doubled rows are made at once, beginning with an even one, and from how many rows.
inline constexpr int kDoubledRows = 4;
constexpr int rowsToDouble(int reach)
{
    return kDoubledRows / 2 + reach;
}

/// A row whose even and odd columns are stored apart.
struct SplitRow
{
    float* even;
    float* odd;
};

using HalvedRows = std::array<float*, kHalvedRows>;
using SplitRows = std::array<SplitRow, kHalvedRows>;
using DoubledRows = std::array<float*, kDoubledRows>;

/// True when the columns x ... x + n - 1 of all rows are positive zeros.
bool areZeros(std::span<const float* const> rows, int x, int n);

/// out[j] = the weighted sum of the rows around rows[2 j + reach], in the columns x ... x + n - 1.
void halveRows(std::span<const float* const> rows, int x, std::span<const float> weights, const HalvedRows& out, int n);

/// The same sums, with even and odd columns apart. Column x counts as odd when firstIsOdd is set.
void halveAndSplitRows(std::span<const float* const> rows, int x, std::span<const float> weights, const SplitRows& out,
                       int n, bool firstIsOdd);

/// Separates n columns into even and odd ones; column 0 counts as odd when firstIsOdd is set.
void splitColumns(const float* in, SplitRow out, int n, bool firstIsOdd);

/// out[i] = the weighted sum of the columns around even[i], which lies between odd[i - 1] and odd[i]. The row must
/// extend reach / 2 (rounded up) samples beyond both ends.
void halveColumns(const float* even, const float* odd, std::span<const float> weights, float* out, int n);

/// out[2 i], out[2 i + 1] = the sums for the columns on and after in[i], i < n. The row must extend reach / 2 samples
/// beyond its ends, rounded down on the left and up on the right.
void doubleColumns(const float* in, std::span<const float> weights, float* out, int n);

/// out[2 j], out[2 j + 1] = the sums for the rows on and after rows[j + reach / 2], n samples each. With stream set,
/// rows with the same alignment in memory are written past the caches.
void doubleRows(std::span<const float* const> rows, std::span<const float> weights, const DoubledRows& out, int n,
                bool stream);

} // namespace BlurAlgo::PyramidKernels
