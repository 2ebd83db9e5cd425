// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The comparison of a strip's samples and the filling of rows, compiled once for every instruction set and chosen at
// run time.
#include "BlurAlgo/private/LevelKernels.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "BlurAlgo/private/LevelKernels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace BlurAlgo::LevelKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
// At most 16 lanes, so that a strip is a whole number of vectors on every machine.
using Floats = hn::CappedTag<float, 16>;
static_assert(kLevelStrip % 16 == 0);

HWY_INLINE std::uint32_t bitsOf(float sample)
{
    return std::bit_cast<std::uint32_t>(sample);
}

/// True when all samples of a whole strip have these bits.
HWY_INLINE bool isLevel(const float* samples, std::uint32_t bits)
{
    const Floats d;
    const hn::RebindToUnsigned<Floats> d32;
    const auto wanted = hn::Set(d32, bits);
    auto different = hn::Zero(d32);
    for (int i = 0; i < kLevelStrip; i += static_cast<int>(hn::Lanes(d)))
        different = hn::Or(different, hn::Xor(hn::BitCast(d32, hn::LoadU(d, samples + i)), wanted));
    return hn::AllTrue(d32, hn::Eq(different, hn::Zero(d32)));
}

/// Prefetches samples that lie a few strips ahead.
HWY_INLINE void fetchAhead(const float* strip)
{
    constexpr int kAhead = 128;
    constexpr int kLine = 16;
    for (int i = 0; i < kLevelStrip; i += kLine)
        hwy::Prefetch(strip + kAhead + i);
}

HWY_INLINE void addRow(LevelStrip& strip, std::uint32_t bits, bool level)
{
    const int before = strip.bits == bits ? strip.rows : 0;
    strip = {bits, level ? before + 1 : 0};
}

HWY_INLINE void addWhole(LevelStrip& strip, const float* samples)
{
    const std::uint32_t bits = bitsOf(samples[0]);
    // In most strips that are not level, the first and the last sample differ.
    addRow(strip, bits, bits == bitsOf(samples[kLevelStrip - 1]) && isLevel(samples, bits));
}

HWY_INLINE void addPart(LevelStrip& strip, const float* samples, int n)
{
    const std::uint32_t bits = bitsOf(samples[0]);
    addRow(strip, bits, std::all_of(samples, samples + n, [bits](float v) { return bitsOf(v) == bits; }));
}

void followLevels(std::span<const float* const> rows, int x, int n, LevelStrip* strips)
{
    const int end = x + n;
    for (; x + kLevelStrip <= end; x += kLevelStrip, ++strips) {
        LevelStrip strip = *strips;
        for (const float* row : rows) {
            fetchAhead(row + x);
            addWhole(strip, row + x);
        }
        *strips = strip;
    }
    if (x < end)
        for (const float* row : rows)
            addPart(*strips, row + x, end - x);
}

void fillRow(float* out, int n, float value)
{
    const Floats d;
    const int step = static_cast<int>(hn::Lanes(d));
    int i = 0;
    for (; i + step <= n; i += step)
        hn::StoreU(hn::Set(d, value), d, out + i);
    std::fill(out + i, out + n, value);
}

} // namespace BlurAlgo::LevelKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace BlurAlgo::LevelKernels {

VL_EXPORT(followLevels);
VL_EXPORT(fillRow);

void followLevels(std::span<const float* const> rows, int x, int n, LevelStrip* strips)
{
    VL_CALL(followLevels)(rows, x, n, strips);
}

void fillRow(float* out, int n, float value)
{
    VL_CALL(fillRow)(out, n, value);
}

} // namespace BlurAlgo::LevelKernels
#endif // HWY_ONCE
