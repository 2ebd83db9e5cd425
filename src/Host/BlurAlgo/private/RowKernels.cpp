// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops, compiled once for every instruction set and chosen at run time. The last few samples of a row, fewer
// than a vector holds, go through the same operations one by one.
#include "BlurAlgo/private/RowKernels.h"

#include <algorithm>
#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "BlurAlgo/private/RowKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace BlurAlgo::RowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Floats = hn::ScalableTag<float>;

HWY_INLINE int lanes()
{
    return static_cast<int>(hn::Lanes(Floats()));
}

/// The term of one pair: a vector of it, or one sample with a tag of one lane.
template<class D>
HWY_INLINE hn::Vec<D> term(D d, const Pair& pair, int i)
{
    const auto both = hn::Add(hn::LoadU(d, pair.left + i), hn::LoadU(d, pair.right + i));
    return hn::Mul(both, hn::Set(d, pair.weight));
}

/// sum + pairs[kFirst] + ... + pairs[kCount - 1], unrolled so that all addresses and weights stay in registers.
template<int kFirst, int kCount, class D>
HWY_INLINE hn::Vec<D> addTerms(D d, hn::Vec<D> sum, const Pair* pairs, int i)
{
    if constexpr (kFirst < kCount)
        return addTerms<kFirst + 1, kCount>(d, hn::Add(sum, term(d, pairs[kFirst], i)), pairs, i);
    else
        return sum;
}

template<int kPairs, class D>
HWY_INLINE hn::Vec<D> sumAt(D d, const float* middle, float middleWeight, const Pair* pairs, int i)
{
    return addTerms<0, kPairs>(d, hn::Mul(hn::LoadU(d, middle + i), hn::Set(d, middleWeight)), pairs, i);
}

template<int kPairs>
HWY_INLINE void weightedSumOf(const float* middle, float middleWeight, std::span<const Pair> span,
                              float* HWY_RESTRICT out, int n)
{
    const Floats d;
    const hn::CappedTag<float, 1> one;
    const int step = lanes();
    // A copy on the stack tells the compiler that writing the row does not change the pairs.
    Pair pairs[kPairs + 1];
    std::copy_n(span.data(), kPairs, pairs);
    int i = 0;
    for (; i + 2 * step <= n; i += 2 * step) {
        const auto first = sumAt<kPairs>(d, middle, middleWeight, pairs, i);
        const auto second = sumAt<kPairs>(d, middle, middleWeight, pairs, i + step);
        hn::StoreU(first, d, out + i);
        hn::StoreU(second, d, out + i + step);
    }
    for (; i + step <= n; i += step)
        hn::StoreU(sumAt<kPairs>(d, middle, middleWeight, pairs, i), d, out + i);
    for (; i < n; ++i)
        hn::StoreU(sumAt<kPairs>(one, middle, middleWeight, pairs, i), one, out + i);
}

template<class D>
HWY_INLINE hn::Vec<D> sumOfManyAt(D d, const float* middle, float middleWeight, std::span<const Pair> pairs, int i)
{
    auto sum = hn::Mul(hn::LoadU(d, middle + i), hn::Set(d, middleWeight));
    for (const Pair& pair : pairs)
        sum = hn::Add(sum, term(d, pair, i));
    return sum;
}

/// Many pairs: four vectors at a time, so that a pair's addresses and weight are read once for all four. The function
/// is aligned because the loop over the pairs takes up to a tenth longer at some addresses.
[[gnu::aligned(64)]] void weightedSumOfMany(const float* middle, float middleWeight, std::span<const Pair> pairs,
                                            float* HWY_RESTRICT out, int n)
{
    const Floats d;
    const int step = lanes();
    int i = 0;
    for (; i + 4 * step <= n; i += 4 * step) {
        const auto w = hn::Set(d, middleWeight);
        auto s0 = hn::Mul(hn::LoadU(d, middle + i), w);
        auto s1 = hn::Mul(hn::LoadU(d, middle + i + step), w);
        auto s2 = hn::Mul(hn::LoadU(d, middle + i + 2 * step), w);
        auto s3 = hn::Mul(hn::LoadU(d, middle + i + 3 * step), w);
        for (const Pair& pair : pairs) {
            const float* a = pair.left + i;
            const float* b = pair.right + i;
            const auto v = hn::Set(d, pair.weight);
            s0 = hn::Add(s0, hn::Mul(hn::Add(hn::LoadU(d, a), hn::LoadU(d, b)), v));
            s1 = hn::Add(s1, hn::Mul(hn::Add(hn::LoadU(d, a + step), hn::LoadU(d, b + step)), v));
            s2 = hn::Add(s2, hn::Mul(hn::Add(hn::LoadU(d, a + 2 * step), hn::LoadU(d, b + 2 * step)), v));
            s3 = hn::Add(s3, hn::Mul(hn::Add(hn::LoadU(d, a + 3 * step), hn::LoadU(d, b + 3 * step)), v));
        }
        hn::StoreU(s0, d, out + i);
        hn::StoreU(s1, d, out + i + step);
        hn::StoreU(s2, d, out + i + 2 * step);
        hn::StoreU(s3, d, out + i + 3 * step);
    }
    for (; i + step <= n; i += step)
        hn::StoreU(sumOfManyAt(d, middle, middleWeight, pairs, i), d, out + i);
    const hn::CappedTag<float, 1> one;
    for (; i < n; ++i)
        hn::StoreU(sumOfManyAt(one, middle, middleWeight, pairs, i), one, out + i);
}

void weightedSum(const float* middle, float weight, std::span<const Pair> pairs, float* out, int n)
{
    switch (pairs.size()) {
    case 0:
        return weightedSumOf<0>(middle, weight, pairs, out, n);
    case 1:
        return weightedSumOf<1>(middle, weight, pairs, out, n);
    case 2:
        return weightedSumOf<2>(middle, weight, pairs, out, n);
    case 3:
        return weightedSumOf<3>(middle, weight, pairs, out, n);
    case 4:
        return weightedSumOf<4>(middle, weight, pairs, out, n);
    default:
        return weightedSumOfMany(middle, weight, pairs, out, n);
    }
}

void loadRed16(const std::int16_t* HWY_RESTRICT pixels, float* HWY_RESTRICT out, int n)
{
    const Floats d;
    const hn::Rebind<std::int16_t, Floats> d16;
    const hn::Rebind<std::int32_t, Floats> d32;
    const int step = lanes();
    int i = 0;
    for (; i + step <= n; i += step) {
        hn::Vec<decltype(d16)> r;
        hn::Vec<decltype(d16)> g;
        hn::Vec<decltype(d16)> b;
        hn::Vec<decltype(d16)> a;
        hn::LoadInterleaved4(d16, pixels + 4 * i, r, g, b, a);
        hn::StoreU(hn::ConvertTo(d, hn::PromoteTo(d32, r)), d, out + i);
    }
    for (; i < n; ++i)
        out[i] = pixels[4 * i];
}

void loadRedFloat(const float* HWY_RESTRICT pixels, float* HWY_RESTRICT out, int n)
{
    const Floats d;
    const int step = lanes();
    int i = 0;
    for (; i + step <= n; i += step) {
        hn::Vec<Floats> r;
        hn::Vec<Floats> g;
        hn::Vec<Floats> b;
        hn::Vec<Floats> a;
        hn::LoadInterleaved4(d, pixels + 4 * i, r, g, b, a);
        hn::StoreU(r, d, out + i);
    }
    for (; i < n; ++i)
        out[i] = pixels[4 * i];
}

void storeRed16(const float* HWY_RESTRICT in, float gain, std::int16_t* HWY_RESTRICT pixels, int n)
{
    const Floats d;
    const hn::Rebind<std::int16_t, Floats> d16;
    const hn::Rebind<std::int32_t, Floats> d32;
    const int step = lanes();
    const auto zero16 = hn::Zero(d16);
    const auto full = hn::Set(d, 32767.0F);
    const auto half = hn::Set(d, 0.5F);
    int i = 0;
    for (; i + step <= n; i += step) {
        const auto value = hn::Mul(hn::LoadU(d, in + i), hn::Set(d, gain));
        const auto size = hn::Min(hn::Floor(hn::Add(hn::Abs(value), half)), full);
        const auto r = hn::DemoteTo(d16, hn::ConvertTo(d32, hn::CopySign(size, value)));
        const auto a = hn::IfThenElse(hn::Eq(r, zero16), zero16, hn::Set(d16, std::int16_t{32767}));
        hn::StoreInterleaved4(r, zero16, zero16, a, d16, pixels + 4 * i);
    }
    for (; i < n; ++i) {
        const float value = in[i] * gain;
        const float sum = std::abs(value) + 0.5F;
        const float size = sum < 32767.0F ? std::floor(sum) : 32767.0F;
        const auto r = static_cast<std::int16_t>(value < 0.0F ? -size : size);
        pixels[4 * i] = r;
        pixels[4 * i + 1] = 0;
        pixels[4 * i + 2] = 0;
        pixels[4 * i + 3] = r == 0 ? std::int16_t{0} : std::int16_t{32767};
    }
}

void storeRedFloat(const float* HWY_RESTRICT in, float gain, float* HWY_RESTRICT pixels, int n)
{
    const Floats d;
    const int step = lanes();
    const auto zero = hn::Zero(d);
    int i = 0;
    for (; i + step <= n; i += step) {
        const auto r = hn::Mul(hn::LoadU(d, in + i), hn::Set(d, gain));
        const auto a = hn::IfThenElse(hn::Eq(r, zero), zero, hn::Set(d, 1.0F));
        hn::StoreInterleaved4(r, zero, zero, a, d, pixels + 4 * i);
    }
    for (; i < n; ++i) {
        const float r = in[i] * gain;
        pixels[4 * i] = r;
        pixels[4 * i + 1] = 0.0F;
        pixels[4 * i + 2] = 0.0F;
        pixels[4 * i + 3] = r == 0.0F ? 0.0F : 1.0F;
    }
}

} // namespace BlurAlgo::RowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace BlurAlgo::RowKernels {

VL_EXPORT(weightedSum);
VL_EXPORT(loadRed16);
VL_EXPORT(loadRedFloat);
VL_EXPORT(storeRed16);
VL_EXPORT(storeRedFloat);

void weightedSum(const float* middle, float middleWeight, std::span<const Pair> pairs, float* out, int n)
{
    VL_CALL(weightedSum)(middle, middleWeight, pairs, out, n);
}

void loadRed(const std::int16_t* pixels, float* out, int n)
{
    VL_CALL(loadRed16)(pixels, out, n);
}

void loadRed(const float* pixels, float* out, int n)
{
    VL_CALL(loadRedFloat)(pixels, out, n);
}

void storeRed(const float* in, float gain, std::int16_t* pixels, int n)
{
    VL_CALL(storeRed16)(in, gain, pixels, n);
}

void storeRed(const float* in, float gain, float* pixels, int n)
{
    VL_CALL(storeRedFloat)(in, gain, pixels, n);
}

} // namespace BlurAlgo::RowKernels
#endif // HWY_ONCE
