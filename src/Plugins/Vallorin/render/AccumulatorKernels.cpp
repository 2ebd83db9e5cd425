// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Nearly all pixels of inputs and accumulators are covered fully or not at all; those need no arithmetic.
#include "render/AccumulatorKernels.h"

#include "render/LayerMerge.h"
#include "render/PixelTraits.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/AccumulatorKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

// ---- the accumulator

HWY_INLINE void mergeLayersOneByOne(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    for (std::size_t i = 0; i < input.size(); ++i)
        accumulator[i] = mergePixel(accumulator[i], input[i]);
}

#if HWY_TARGET == HWY_SCALAR
void mergeLayers16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    mergeLayersOneByOne(input, accumulator);
}
#else
// Nearly everywhere both layers cover fully or not at all, and the result is one of three known pixels. A pixel is one
// 64-bit lane, with red in its lowest bits.
void mergeLayers16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* HWY_RESTRICT accumulator)
{
    const hn::ScalableTag<std::int64_t> d;
    const hn::Repartition<std::int16_t, decltype(d)> d16;
    const std::size_t step = hn::Lanes(d);
    const auto full = hn::Set(d, 32767);
    const auto red = hn::Set(d, 0xFFFF);
    const auto fullAlpha = hn::ShiftLeft<48>(full);
    const auto redAndAlpha = hn::Or(hn::ShiftLeft<48>(red), red);
    std::size_t i = 0;
    for (; i + step <= input.size(); i += step) {
        const auto in = hn::BitCast(d, hn::LoadU(d16, &input[i].r));
        const auto a = hn::ShiftRight<48>(in);
        const auto b = hn::ShiftRight<48>(hn::ShiftLeft<16>(in));
        const auto isFirst = hn::Eq(a, full);
        const auto isSecond = hn::Eq(b, full);
        const auto isPartly =
            hn::Or(hn::AndNot(isFirst, hn::Gt(a, hn::Zero(d))), hn::AndNot(isSecond, hn::Gt(b, hn::Set(d, 1024))));
        if (!hn::AllFalse(d, isPartly)) {
            mergeLayersOneByOne(input.subspan(i, step), accumulator + i);
            continue;
        }
        const auto kept = hn::And(hn::BitCast(d, hn::LoadU(d16, &accumulator[i].r)), redAndAlpha);
        const auto first = hn::Or(hn::And(in, red), fullAlpha);
        const auto second = hn::Or(hn::And(hn::ShiftRight<16>(in), red), fullAlpha);
        const auto merged = hn::IfThenElse(isSecond, second, hn::IfThenElse(isFirst, first, kept));
        hn::StoreU(hn::BitCast(d16, merged), d16, &accumulator[i].r);
    }
    mergeLayersOneByOne(input.subspan(i), accumulator + i);
}
#endif

// ---- the mask

void weigh16OneByOne(std::span<const CEL_PixelRGBA16> accumulated, float* mask)
{
    using Traits = VolumeTraits<CEL_PixelRGBA16>;
    for (std::size_t i = 0; i < accumulated.size(); ++i)
        mask[i] = static_cast<float>(Traits::weighted(accumulated[i].r, accumulated[i].a));
}

#if HWY_TARGET == HWY_SCALAR
void weigh16(std::span<const CEL_PixelRGBA16> accumulated, float* mask)
{
    weigh16OneByOne(accumulated, mask);
}
#else
// Nearly all pixels are covered fully or not at all, so that the product is known. The formula computes the others. Two
// channels form one 32-bit lane: lanes of even numbers hold red and green, the others blue and alpha.
void weigh16(std::span<const CEL_PixelRGBA16> accumulated, float* HWY_RESTRICT mask)
{
    const hn::ScalableTag<std::int32_t> d;
    const hn::Repartition<float, decltype(d)> df;
    const hn::Repartition<std::int16_t, decltype(d)> d16;
    const std::size_t step = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + step <= accumulated.size(); i += step) {
        const auto low = hn::BitCast(d, hn::LoadU(d16, &accumulated[i].r));
        const auto high = hn::BitCast(d, hn::LoadU(d16, &accumulated[i + step / 2].r));
        const auto r = hn::ShiftRight<16>(hn::ShiftLeft<16>(hn::ConcatEven(d, high, low)));
        const auto a = hn::ShiftRight<16>(hn::ConcatOdd(d, high, low));
        const auto none = hn::Eq(a, hn::Zero(d));
        const auto known = hn::Or(none, hn::Eq(a, hn::Set(d, 32767)));
        if (hn::AllTrue(d, known))
            hn::StoreU(hn::ConvertTo(df, hn::IfThenZeroElse(none, r)), df, mask + i);
        else
            weigh16OneByOne(accumulated.subspan(i, step), mask + i);
    }
    weigh16OneByOne(accumulated.subspan(i), mask + i);
}
#endif

void weighFloat(std::span<const CEL_PixelRGBAFloat> accumulated, float* HWY_RESTRICT mask)
{
    vl::forLanes<float>(accumulated.size(), [&](auto d, std::size_t i) HWY_ATTR {
        hn::Vec<decltype(d)> r;
        hn::Vec<decltype(d)> g;
        hn::Vec<decltype(d)> b;
        hn::Vec<decltype(d)> a;
        hn::LoadInterleaved4(d, &accumulated[i].r, r, g, b, a);
        hn::StoreU(hn::Mul(r, a), d, mask + i);
    });
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(mergeLayers16);
VL_EXPORT(weigh16);
VL_EXPORT(weighFloat);

void mergeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    VL_CALL(mergeLayers16)(input, accumulator);
}

void mergeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    for (std::size_t i = 0; i < input.size(); ++i)
        accumulator[i] = mergePixel(accumulator[i], input[i]);
}

void weigh(std::span<const CEL_PixelRGBA16> accumulated, float* mask)
{
    VL_CALL(weigh16)(accumulated, mask);
}

void weigh(std::span<const CEL_PixelRGBAFloat> accumulated, float* mask)
{
    VL_CALL(weighFloat)(accumulated, mask);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
