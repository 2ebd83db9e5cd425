// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops of the blur, on rows of floats: the weighted sum of the short filter, in both directions, and the
// moves between pixels and planes. They run with the widest vectors that the processor has. Every sample is computed by
// itself, in a fixed order, without fused operations, so that all processors give the same bits.
//
// The rows that a call writes overlap no other row that it gets; only the n named samples are read and written.
#pragma once

#include <cstdint>
#include <span>

namespace BlurAlgo::RowKernels {

/// Two rows that enter a weighted sum with the same weight.
struct Pair
{
    const float* left;
    const float* right;
    float weight;
};

/// out[i] = middle[i] * middleWeight + (left[i] + right[i]) * weight + ..., in the order of the pairs.
void weightedSum(const float* middle, float middleWeight, std::span<const Pair> pairs, float* out, int n);

/// out[i] = the first channel of pixel i, for pixels of four channels.
void loadRed(const std::int16_t* pixels, float* out, int n);
void loadRed(const float* pixels, float* out, int n);

/// Pixel i = (in[i] x gain, 0, 0, full where that is not zero and 0 elsewhere). In 16 bits the value is rounded to the
/// nearest integer, halves away from zero, and clamped to [-32767, 32767]; full is 32767. In float it is 1.
void storeRed(const float* in, float gain, std::int16_t* pixels, int n);
void storeRed(const float* in, float gain, float* pixels, int n);

} // namespace BlurAlgo::RowKernels
