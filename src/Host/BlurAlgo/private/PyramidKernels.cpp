// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The loops are compiled once for every reach, so that addresses and weights stay in registers, and once for every
// instruction set, which is chosen at run time. The last few samples of a row, fewer than a vector holds, go
// through the same operations one by one.
#include "BlurAlgo/private/PyramidKernels.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "BlurAlgo/private/PyramidKernels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace BlurAlgo::PyramidKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;
using Floats = hn::ScalableTag<float>;
using OneFloat = hn::CappedTag<float, 1>;

HWY_INLINE int lanes()
{
    return static_cast<int>(hn::Lanes(Floats()));
}

/// Copies weights or addresses to the stack, which tells the compiler that writing samples does not change them.
template<typename T, std::size_t kCount>
HWY_INLINE std::array<T, kCount> firstOf(std::span<const T> values)
{
    assert(values.size() >= kCount);
    std::array<T, kCount> copy;
    std::copy_n(values.data(), kCount, copy.begin());
    return copy;
}

/// The addresses of the first kCount rows, moved to column x.
template<std::size_t kCount>
HWY_INLINE std::array<const float*, kCount> rowsFrom(std::span<const float* const> rows, int x)
{
    auto copy = firstOf<const float*, kCount>(rows);
    for (const float*& row : copy)
        row += x;
    return copy;
}

/// Prefetches the rows some way after column i; the last rows are the ones not read before.
HWY_INLINE void fetchAhead(std::span<const float* const> rows, int i)
{
    constexpr int kAhead = 128;
    constexpr std::size_t kNewRows = 2 * kHalvedRows;
    for (const float* row : rows.last(std::min(rows.size(), kNewRows)))
        hwy::Prefetch(row + i + kAhead);
}

/// True when all rows are zero from column i on, in as many vectors as are compared at once.
HWY_INLINE bool areZerosAt(std::span<const float* const> rows, int i)
{
    const hn::Repartition<std::uint32_t, Floats> d;
    const auto bits = [&](const float* at) HWY_ATTR { return hn::BitCast(d, hn::LoadU(Floats(), at)); };
    auto any = hn::Zero(d);
    for (const float* row : rows)
        any = hn::Or(any, hn::Or(bits(row + i), bits(row + i + lanes())));
    return hn::AllTrue(d, hn::Eq(any, hn::Zero(d)));
}

bool areZeros(std::span<const float* const> rows, int x, int n)
{
    const int end = x + n;
    for (; x + 2 * lanes() <= end; x += 2 * lanes()) {
        fetchAhead(rows, x);
        if (!areZerosAt(rows, x))
            return false;
    }
    const auto isZero = [end, x](const float* row) {
        return std::all_of(row + x, row + end, [](float v) { return std::bit_cast<std::uint32_t>(v) == 0; });
    };
    return std::all_of(rows.begin(), rows.end(), isZero);
}

template<class D>
HWY_INLINE hn::Vec<D> pairTerm(D d, const float* a, const float* b, float weight)
{
    return hn::Mul(hn::Add(hn::LoadU(d, a), hn::LoadU(d, b)), hn::Set(d, weight));
}

/// Sample i of the weighted sum of the rows around middle[0].
template<int kReach, class D>
HWY_INLINE hn::Vec<D> sumAround(D d, const float* const* middle, const float* weights, int i)
{
    auto sum = hn::Mul(hn::LoadU(d, middle[0] + i), hn::Set(d, weights[0]));
    for (int distance = 1; distance <= kReach; ++distance)
        sum = hn::Add(sum, pairTerm(d, middle[-distance] + i, middle[distance] + i, weights[distance]));
    return sum;
}

template<int kReach>
HWY_INLINE void halveRowsBy(std::span<const float* const> rows, int x, std::span<const float> weights,
                            const HalvedRows& out, int n)
{
    const auto in = rowsFrom<rowsToHalve(kReach)>(rows, x);
    const auto w = firstOf<float, kReach + 1>(weights);
    const Floats d;
    const OneFloat one;
    for (std::size_t j = 0; j < kHalvedRows; ++j) {
        const float* const* middle = in.data() + 2 * j + kReach;
        int i = 0;
        for (; i + lanes() <= n; i += lanes())
            hn::StoreU(sumAround<kReach>(d, middle, w.data(), i), d, out[j] + i);
        for (; i < n; ++i)
            hn::StoreU(sumAround<kReach>(one, middle, w.data(), i), one, out[j] + i);
    }
}

/// Halves the columns i and after, 2 x lanes of them, of all rows; column i goes to even[e].
template<int kReach>
HWY_INLINE void halveAndSplitAt(const float* const* in, const float* weights, const SplitRow* out, int i, int e)
{
    const Floats d;
    for (int row = 0; row < kHalvedRows; ++row) {
        const float* const* middle = in + 2 * row + kReach;
        const auto a = sumAround<kReach>(d, middle, weights, i);
#if HWY_TARGET == HWY_SCALAR
        const auto b = sumAround<kReach>(d, middle, weights, i + 1);
        hn::StoreU(a, d, out[row].even + e);
        hn::StoreU(b, d, out[row].odd + e);
#else
        const auto b = sumAround<kReach>(d, middle, weights, i + lanes());
        hn::StoreU(hn::ConcatEven(d, b, a), d, out[row].even + e);
        hn::StoreU(hn::ConcatOdd(d, b, a), d, out[row].odd + e);
#endif
    }
}

/// Halves column i of all rows.
template<int kReach>
HWY_INLINE void halveAndSplitOneAt(const float* const* in, const float* weights, const SplitRow* out, int i, bool odd,
                                   int e)
{
    const OneFloat one;
    for (int j = 0; j < kHalvedRows; ++j)
        hn::StoreU(sumAround<kReach>(one, in + 2 * j + kReach, weights, i), one, (odd ? out[j].odd : out[j].even) + e);
}

template<int kReach>
HWY_INLINE void halveAndSplitRowsBy(std::span<const float* const> rows, int x, std::span<const float> weights,
                                    SplitRows out, int n, bool firstIsOdd)
{
    const auto in = rowsFrom<rowsToHalve(kReach)>(rows, x);
    const auto w = firstOf<float, kReach + 1>(weights);
    int i = 0;
    if (firstIsOdd && n > 0) {
        halveAndSplitOneAt<kReach>(in.data(), w.data(), out.data(), i++, true, 0);
        for (SplitRow& row : out)
            ++row.odd;
    }
    int e = 0;
    for (; i + 2 * lanes() <= n; i += 2 * lanes(), e += lanes()) {
        fetchAhead(in, i);
        halveAndSplitAt<kReach>(in.data(), w.data(), out.data(), i, e);
    }
    for (bool odd = false; i < n; ++i, odd = !odd) {
        halveAndSplitOneAt<kReach>(in.data(), w.data(), out.data(), i, odd, e);
        e += odd ? 1 : 0;
    }
}

void splitColumns(const float* in, SplitRow out, int n, bool firstIsOdd)
{
    if (firstIsOdd && n > 0) {
        *out.odd++ = *in++;
        --n;
    }
    const Floats d;
    int e = 0;
    for (; 2 * (e + lanes()) <= n; e += lanes()) {
        hn::Vec<Floats> even;
        hn::Vec<Floats> odd;
        hn::LoadInterleaved2(d, in + 2 * e, even, odd);
        hn::StoreU(even, d, out.even + e);
        hn::StoreU(odd, d, out.odd + e);
    }
    for (; 2 * e < n; ++e) {
        out.even[e] = in[2 * e];
        if (2 * e + 1 < n)
            out.odd[e] = in[2 * e + 1];
    }
}

/// The weighted sum of the columns around even[0].
template<int kReach, class D>
HWY_INLINE hn::Vec<D> sumOfColumns(D d, const float* even, const float* odd, const float* weights)
{
    auto sum = hn::Mul(hn::LoadU(d, even), hn::Set(d, weights[0]));
    for (int distance = 1; distance <= kReach; ++distance) {
        const int half = distance / 2;
        const float* const before = distance % 2 == 0 ? even - half : odd - half - 1;
        const float* const after = distance % 2 == 0 ? even + half : odd + half;
        sum = hn::Add(sum, pairTerm(d, before, after, weights[distance]));
    }
    return sum;
}

template<int kReach>
HWY_INLINE void halveColumnsBy(const float* even, const float* odd, std::span<const float> weights,
                               float* HWY_RESTRICT out, int n)
{
    const auto w = firstOf<float, kReach + 1>(weights);
    const auto sumAt = [&](auto d, int i)
                           HWY_ATTR { hn::StoreU(sumOfColumns<kReach>(d, even + i, odd + i, w.data()), d, out + i); };
    int i = 0;
    for (; i + lanes() <= n; i += lanes())
        sumAt(Floats(), i);
    for (; i < n; ++i)
        sumAt(OneFloat(), i);
}

/// Adds to sum the pairs at the distances first, first + 2, ... kReach, in samples of the doubled axis. at(0) is the
/// coarse sample on which the result lies, or the one before it.
template<int kReach, class D, class At>
HWY_INLINE hn::Vec<D> addDoubled(D d, hn::Vec<D> sum, int first, const At& at, const float* weights)
{
    for (int distance = first; distance <= kReach; distance += 2)
        sum = hn::Add(sum, pairTerm(d, at(-(distance / 2)), at((distance + 1) / 2), weights[distance]));
    return sum;
}

/// The result on the coarse sample at(0): the filter's even weights.
template<int kReach, class D, class At>
HWY_INLINE hn::Vec<D> doubledOn(D d, const At& at, const float* weights)
{
    return addDoubled<kReach>(d, hn::Mul(hn::LoadU(d, at(0)), hn::Set(d, weights[0])), 2, at, weights);
}

/// The result between the coarse samples at(0) and at(1): the filter's odd weights.
template<int kReach, class D, class At>
HWY_INLINE hn::Vec<D> doubledAfter(D d, const At& at, const float* weights)
{
    return addDoubled<kReach>(d, pairTerm(d, at(0), at(1), weights[1]), 3, at, weights);
}

template<int kReach>
HWY_INLINE void doubleColumnsBy(const float* in, std::span<const float> weights, float* HWY_RESTRICT out, int n)
{
    const auto w = firstOf<float, kReach + 1>(weights);
    const Floats d;
    const OneFloat one;
    int i = 0;
    for (; i + lanes() <= n; i += lanes()) {
        const auto at = [&](int k) HWY_ATTR { return in + i + k; };
        hn::StoreInterleaved2(doubledOn<kReach>(d, at, w.data()), doubledAfter<kReach>(d, at, w.data()), d,
                              out + 2 * i);
    }
    for (; i < n; ++i) {
        const auto at = [&](int k) HWY_ATTR { return in + i + k; };
        hn::StoreU(doubledOn<kReach>(one, at, w.data()), one, out + 2 * i);
        hn::StoreU(doubledAfter<kReach>(one, at, w.data()), one, out + 2 * i + 1);
    }
}

/// Columns i and after, one vector of them, of all doubled rows.
template<int kReach, bool kStream, class D>
HWY_INLINE void doubleRowsAt(D d, const float* const* in, const float* weights, float* const* out, int i)
{
    for (int pair = 0; 2 * pair < kDoubledRows; ++pair) {
        const auto at = [&](int k) HWY_ATTR { return in[pair + kReach / 2 + k] + i; };
        const auto on = doubledOn<kReach>(d, at, weights);
        const auto after = doubledAfter<kReach>(d, at, weights);
        if constexpr (kStream) {
            hn::Stream(on, d, out[2 * pair] + i);
            hn::Stream(after, d, out[2 * pair + 1] + i);
        } else {
            hn::StoreU(on, d, out[2 * pair] + i);
            hn::StoreU(after, d, out[2 * pair + 1] + i);
        }
    }
}

/// How many samples precede the first one that is vector-aligned in all rows; n if there is none.
HWY_INLINE int unalignedSamples(const DoubledRows& rows, int n)
{
    const std::size_t first = vl::untilAligned(Floats(), rows[0]);
    for (const float* row : rows)
        if (vl::untilAligned(Floats(), row) != first)
            return n;
    return std::min(n, static_cast<int>(first));
}

template<int kReach>
HWY_INLINE void doubleRowsBy(std::span<const float* const> rows, std::span<const float> weights,
                             const DoubledRows& rowsOut, int n, bool stream)
{
    const auto in = firstOf<const float*, rowsToDouble(kReach)>(rows);
    const auto w = firstOf<float, kReach + 1>(weights);
    const DoubledRows out = rowsOut;
    int i = 0;
    if (stream) {
        const int unaligned = unalignedSamples(out, n);
        for (; unaligned < n && i < unaligned; ++i)
            doubleRowsAt<kReach, false>(OneFloat(), in.data(), w.data(), out.data(), i);
        for (; unaligned < n && i + lanes() <= n; i += lanes())
            doubleRowsAt<kReach, true>(Floats(), in.data(), w.data(), out.data(), i);
    }
    for (; i + lanes() <= n; i += lanes())
        doubleRowsAt<kReach, false>(Floats(), in.data(), w.data(), out.data(), i);
    for (; i < n; ++i)
        doubleRowsAt<kReach, false>(OneFloat(), in.data(), w.data(), out.data(), i);
}

/// Calls run with the reach as a compile-time constant.
template<typename Run>
HWY_INLINE void withReach(std::span<const float> weights, const Run& run)
{
    switch (weights.size()) {
    case 3:
        return run(std::integral_constant<int, 2>());
    case 4:
        return run(std::integral_constant<int, 3>());
    case 5:
        return run(std::integral_constant<int, 4>());
    default:
        return run(std::integral_constant<int, kLargestReach>());
    }
}

void halveRows(std::span<const float* const> rows, int x, std::span<const float> weights, const HalvedRows& out, int n)
{
    withReach(weights, [&](auto reach) HWY_ATTR { halveRowsBy<reach>(rows, x, weights, out, n); });
}

void halveAndSplitRows(std::span<const float* const> rows, int x, std::span<const float> weights, const SplitRows& out,
                       int n, bool firstIsOdd)
{
    withReach(weights, [&](auto reach) HWY_ATTR { halveAndSplitRowsBy<reach>(rows, x, weights, out, n, firstIsOdd); });
}

void halveColumns(const float* even, const float* odd, std::span<const float> weights, float* out, int n)
{
    withReach(weights, [&](auto reach) HWY_ATTR { halveColumnsBy<reach>(even, odd, weights, out, n); });
}

void doubleColumns(const float* in, std::span<const float> weights, float* out, int n)
{
    withReach(weights, [&](auto reach) HWY_ATTR { doubleColumnsBy<reach>(in, weights, out, n); });
}

void doubleRows(std::span<const float* const> rows, std::span<const float> weights, const DoubledRows& out, int n,
                bool stream)
{
    withReach(weights, [&](auto reach) HWY_ATTR { doubleRowsBy<reach>(rows, weights, out, n, stream); });
}

} // namespace BlurAlgo::PyramidKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace BlurAlgo::PyramidKernels {

VL_EXPORT(areZeros);
VL_EXPORT(halveRows);
VL_EXPORT(halveAndSplitRows);
VL_EXPORT(splitColumns);
VL_EXPORT(halveColumns);
VL_EXPORT(doubleColumns);
VL_EXPORT(doubleRows);

bool areZeros(std::span<const float* const> rows, int x, int n)
{
    return VL_CALL(areZeros)(rows, x, n);
}

void halveRows(std::span<const float* const> rows, int x, std::span<const float> weights, const HalvedRows& out, int n)
{
    VL_CALL(halveRows)(rows, x, weights, out, n);
}

void halveAndSplitRows(std::span<const float* const> rows, int x, std::span<const float> weights, const SplitRows& out,
                       int n, bool firstIsOdd)
{
    VL_CALL(halveAndSplitRows)(rows, x, weights, out, n, firstIsOdd);
}

void splitColumns(const float* in, SplitRow out, int n, bool firstIsOdd)
{
    VL_CALL(splitColumns)(in, out, n, firstIsOdd);
}

void halveColumns(const float* even, const float* odd, std::span<const float> weights, float* out, int n)
{
    VL_CALL(halveColumns)(even, odd, weights, out, n);
}

void doubleColumns(const float* in, std::span<const float> weights, float* out, int n)
{
    VL_CALL(doubleColumns)(in, weights, out, n);
}

void doubleRows(std::span<const float* const> rows, std::span<const float> weights, const DoubledRows& out, int n,
                bool stream)
{
    VL_CALL(doubleRows)(rows, weights, out, n, stream);
}

} // namespace BlurAlgo::PyramidKernels
#endif // HWY_ONCE
