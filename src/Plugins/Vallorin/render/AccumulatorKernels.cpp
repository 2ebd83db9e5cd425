// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Nearly all pixels of inputs and accumulators are covered fully or not at all; those need no arithmetic.
#include "render/AccumulatorKernels.h"

#include "QuarvelVectorLanes/VL_Strips.h"
#include "render/LayerMerge.h"
#include "render/PixelTraits.h"

#include <array>
#include <bit>
#include <type_traits>

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

/// What an accumulator holds before a merge.
enum class Before
{
    EMPTY, ///< nothing yet: its pixels are uninitialised and count as zeros
    FILLED
};

template<Before kBefore, typename Pixel>
HWY_INLINE void mergeLayersOneByOne(std::span<const Pixel> input, Pixel* accumulator)
{
    for (std::size_t i = 0; i < input.size(); ++i)
        accumulator[i] = mergePixel(kBefore == Before::FILLED ? accumulator[i] : Pixel{}, input[i]);
}

#if HWY_TARGET == HWY_SCALAR
template<Before kBefore, typename Pixel>
HWY_INLINE void mergeLayersRow(std::span<const Pixel> input, Pixel* accumulator)
{
    mergeLayersOneByOne<kBefore>(input, accumulator);
}
#else
// Nearly everywhere both layers cover fully or not at all, and the result is one of three known pixels.

/// Merges vectors of 16-bit pixels: each is one 64-bit lane, with red in its lowest bits.
class Merge16
{
public:
    using Tag = hn::ScalableTag<std::int64_t>;
    using Pixels = hn::Vec<Tag>;
    static constexpr std::size_t kLanesPerPixel = 1;

    Merge16() : _full(hn::Set(Tag(), 32767)), _red(hn::Set(Tag(), 0xFFFF)) {}

    static HWY_INLINE Pixels load(const CEL_PixelRGBA16* pixels)
    {
        return hn::BitCast(Tag(), hn::LoadU(Channels(), &pixels->r));
    }
    static HWY_INLINE void store(Pixels pixels, CEL_PixelRGBA16* to)
    {
        hn::StoreU(hn::BitCast(Channels(), pixels), Channels(), &to->r);
    }

    static HWY_INLINE Pixels firstCoverage(Pixels input) { return hn::ShiftRight<48>(input); }
    static HWY_INLINE Pixels secondCoverage(Pixels input) { return hn::ShiftRight<48>(hn::ShiftLeft<16>(input)); }
    HWY_INLINE hn::Mask<Tag> isFull(Pixels coverage) const { return hn::Eq(coverage, _full); }
    HWY_INLINE hn::Mask<Tag> isFirst(Pixels coverage) const { return hn::Gt(coverage, hn::Zero(Tag())); }
    HWY_INLINE hn::Mask<Tag> isSecond(Pixels coverage) const { return hn::Gt(coverage, hn::Set(Tag(), 1024)); }

    HWY_INLINE Pixels first(Pixels input) const { return hn::Or(hn::And(input, _red), hn::ShiftLeft<48>(_full)); }
    HWY_INLINE Pixels second(Pixels input) const { return first(hn::ShiftRight<16>(input)); }
    HWY_INLINE Pixels kept(Pixels before) const { return hn::And(before, hn::Or(_red, hn::ShiftLeft<48>(_red))); }

private:
    using Channels = hn::Repartition<std::int16_t, Tag>;

    Pixels _full;
    Pixels _red;
};

/// The same for float pixels: each is 16 bytes of a vector.
class MergeFloat
{
public:
    using Tag = hn::ScalableTag<float>;
    using Pixels = hn::Vec<Tag>;
    static constexpr std::size_t kLanesPerPixel = 4;

    MergeFloat()
        : _red(bits(~0U, 0)), _redAndAlpha(bits(~0U, ~0U)), _fullAlpha(bits(0, std::bit_cast<std::uint32_t>(1.0F)))
    {}

    static HWY_INLINE Pixels load(const CEL_PixelRGBAFloat* pixels) { return hn::LoadU(Tag(), &pixels->r); }
    static HWY_INLINE void store(Pixels pixels, CEL_PixelRGBAFloat* to) { hn::StoreU(pixels, Tag(), &to->r); }

    static HWY_INLINE Pixels firstCoverage(Pixels input) { return hn::Broadcast<3>(input); }
    static HWY_INLINE Pixels secondCoverage(Pixels input) { return hn::Broadcast<2>(input); }
    static HWY_INLINE hn::Mask<Tag> isFull(Pixels coverage) { return hn::Ge(coverage, hn::Set(Tag(), 1.0F)); }
    static HWY_INLINE hn::Mask<Tag> isFirst(Pixels coverage) { return hn::Gt(coverage, hn::Zero(Tag())); }
    static HWY_INLINE hn::Mask<Tag> isSecond(Pixels coverage) { return hn::Gt(coverage, hn::Zero(Tag())); }

    HWY_INLINE Pixels first(Pixels input) const { return hn::Or(hn::And(input, _red), _fullAlpha); }
    HWY_INLINE Pixels second(Pixels input) const { return first(hn::Broadcast<1>(input)); }
    HWY_INLINE Pixels kept(Pixels before) const { return hn::And(before, _redAndAlpha); }

private:
    static HWY_INLINE Pixels bits(std::uint32_t red, std::uint32_t alpha)
    {
        alignas(16) const std::uint32_t pixel[] = {red, 0, 0, alpha};
        return hn::BitCast(Tag(), hn::LoadDup128(hn::RebindToUnsigned<Tag>(), pixel));
    }

    Pixels _red;
    Pixels _redAndAlpha;
    Pixels _fullAlpha;
};

template<typename Pixel>
using MergeOf = std::conditional_t<std::is_same_v<Pixel, CEL_PixelRGBA16>, Merge16, MergeFloat>;

template<Before kBefore, typename Pixel>
HWY_INLINE void mergeLayersRow(std::span<const Pixel> input, Pixel* HWY_RESTRICT accumulator)
{
    using Merge = MergeOf<Pixel>;
    const typename Merge::Tag d;
    const std::size_t step = hn::Lanes(d) / Merge::kLanesPerPixel;
    const Merge merge;
    std::size_t i = 0;
    for (; i + step <= input.size(); i += step) {
        const auto in = Merge::load(&input[i]);
        const auto a = Merge::firstCoverage(in);
        const auto b = Merge::secondCoverage(in);
        const auto fullFirst = merge.isFull(a);
        const auto fullSecond = merge.isFull(b);
        const auto isPartly =
            hn::Or(hn::AndNot(fullFirst, merge.isFirst(a)), hn::AndNot(fullSecond, merge.isSecond(b)));
        if (!hn::AllFalse(d, isPartly)) {
            mergeLayersOneByOne<kBefore>(input.subspan(i, step), accumulator + i);
            continue;
        }
        auto kept = hn::Zero(d);
        if constexpr (kBefore == Before::FILLED)
            kept = merge.kept(Merge::load(accumulator + i));
        const auto merged =
            hn::IfThenElse(fullSecond, merge.second(in), hn::IfThenElse(fullFirst, merge.first(in), kept));
        Merge::store(merged, accumulator + i);
    }
    mergeLayersOneByOne<kBefore>(input.subspan(i), accumulator + i);
}
#endif

void mergeLayers16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    mergeLayersRow<Before::FILLED>(input, accumulator);
}

void mergeLayersFloat(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    mergeLayersRow<Before::FILLED>(input, accumulator);
}

void placeLayers16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    mergeLayersRow<Before::EMPTY>(input, accumulator);
}

void placeLayersFloat(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    mergeLayersRow<Before::EMPTY>(input, accumulator);
}

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

// The merged pixels of a few at a time stay in the first-level cache.
void weighLayers16(std::span<const CEL_PixelRGBA16> input, float* HWY_RESTRICT mask)
{
    std::array<CEL_PixelRGBA16, 256> merged;
    VL_forStrips(input.size(), merged.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        mergeLayersRow<Before::EMPTY>(input.subspan(first, count), merged.data());
        weigh16(std::span<const CEL_PixelRGBA16>(merged).first(count), mask + first);
    });
}

void weighLayersFloatOneByOne(std::span<const CEL_PixelRGBAFloat> input, float* mask)
{
    for (std::size_t i = 0; i < input.size(); ++i) {
        const CEL_PixelRGBAFloat merged = mergePixel(CEL_PixelRGBAFloat{}, input[i]);
        mask[i] = VolumeTraits<CEL_PixelRGBAFloat>::weighted(merged.r, merged.a);
    }
}

// On an empty accumulator, the first layer leaves its own value and coverage: what it adds to is 0. The second layer
// mostly covers fully or not at all; the formula computes the others.
void weighLayersFloat(std::span<const CEL_PixelRGBAFloat> input, float* HWY_RESTRICT mask)
{
    vl::forLanes<float>(input.size(), [&](auto d, std::size_t i) HWY_ATTR {
        hn::Vec<decltype(d)> r;
        hn::Vec<decltype(d)> g;
        hn::Vec<decltype(d)> b;
        hn::Vec<decltype(d)> a;
        hn::LoadInterleaved4(d, &input[i].r, r, g, b, a);
        const auto zero = hn::Zero(d);
        const auto one = hn::Set(d, 1.0F);
        const auto isSecond = hn::Ge(b, one);
        if (!hn::AllFalse(d, hn::AndNot(isSecond, hn::Gt(b, zero)))) {
            weighLayersFloatOneByOne(input.subspan(i, hn::Lanes(d)), mask + i);
            return;
        }
        const auto isFull = hn::Ge(a, one);
        const auto isPartly = hn::And(hn::Gt(a, zero), hn::Gt(r, zero));
        const auto first = hn::IfThenElseZero(hn::Or(isFull, isPartly), hn::Mul(r, hn::IfThenElse(isFull, one, a)));
        hn::StoreU(hn::IfThenElse(isSecond, g, first), d, mask + i);
    });
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(mergeLayers16);
VL_EXPORT(mergeLayersFloat);
VL_EXPORT(placeLayers16);
VL_EXPORT(placeLayersFloat);
VL_EXPORT(weigh16);
VL_EXPORT(weighFloat);
VL_EXPORT(weighLayers16);
VL_EXPORT(weighLayersFloat);

void mergeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    VL_CALL(mergeLayers16)(input, accumulator);
}

void mergeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    VL_CALL(mergeLayersFloat)(input, accumulator);
}

void placeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    VL_CALL(placeLayers16)(input, accumulator);
}

void placeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    VL_CALL(placeLayersFloat)(input, accumulator);
}

void weigh(std::span<const CEL_PixelRGBA16> accumulated, float* mask)
{
    VL_CALL(weigh16)(accumulated, mask);
}

void weigh(std::span<const CEL_PixelRGBAFloat> accumulated, float* mask)
{
    VL_CALL(weighFloat)(accumulated, mask);
}

void weighLayers(std::span<const CEL_PixelRGBA16> input, float* mask)
{
    VL_CALL(weighLayers16)(input, mask);
}

void weighLayers(std::span<const CEL_PixelRGBAFloat> input, float* mask)
{
    VL_CALL(weighLayersFloat)(input, mask);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
