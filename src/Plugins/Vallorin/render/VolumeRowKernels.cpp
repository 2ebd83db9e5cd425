// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops, compiled once for every instruction set and chosen at run time. The last few pixels of a row, fewer
// than a vector holds, go through the same operations one by one.
//
// Of the normals' cross products only what is not known beforehand is computed:
//
//     (2, 0, across) x (0, 2, down)      = 2 (-across, -down, 2)
//     (2, 2, falling) x (-2, 2, rising)  = 2 (rising - falling, -(rising + falling), 4)
//
// The factor 2 goes when the vector is normalised, and so do the halves of the mean of two normals and the eighths of
// the smoothing's weights. Factors of 2 are exact in every operation, so the results are those of the full vectors, to
// the last bit.
#include "render/VolumeRowKernels.h"

#include "render/LayerMerge.h"
#include "render/NormalBlend.h"
#include "render/PixelTraits.h"

#include <algorithm>
#include <array>
#include <limits>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/VolumeRowKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Calls body(tag, i) for whole vectors of the tag's lanes, then for what is left one by one.
template<typename Lane, typename Body>
HWY_INLINE void forLanes(std::size_t count, const Body& body)
{
    const hn::ScalableTag<Lane> d;
    const hn::CappedTag<Lane, 1> one;
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d))
        body(d, i);
    for (; i < count; ++i)
        body(one, i);
}

// ---- the accumulator

HWY_INLINE void mergeOneByOne(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    for (std::size_t i = 0; i < input.size(); ++i)
        accumulator[i] = mergePixel(accumulator[i], input[i]);
}

#if HWY_TARGET == HWY_SCALAR
void merge16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    mergeOneByOne(input, accumulator);
}
#else
// Nearly everywhere both layers cover fully or not at all: one of three pixels is taken. A pixel is one 64-bit lane,
// with red in its lowest bits.
void merge16(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* HWY_RESTRICT accumulator)
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
            mergeOneByOne(input.subspan(i, step), accumulator + i);
            continue;
        }
        const auto kept = hn::And(hn::BitCast(d, hn::LoadU(d16, &accumulator[i].r)), redAndAlpha);
        const auto first = hn::Or(hn::And(in, red), fullAlpha);
        const auto second = hn::Or(hn::And(hn::ShiftRight<16>(in), red), fullAlpha);
        const auto merged = hn::IfThenElse(isSecond, second, hn::IfThenElse(isFirst, first, kept));
        hn::StoreU(hn::BitCast(d16, merged), d16, &accumulator[i].r);
    }
    mergeOneByOne(input.subspan(i), accumulator + i);
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
// Nearly all pixels are covered fully or not at all, where the product is known. The others are left to the formula.
// Two channels are looked at as one 32-bit lane: those of even numbers hold red and green, the others blue and alpha.
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
    forLanes<float>(accumulated.size(), [&](auto d, std::size_t i) HWY_ATTR {
        hn::Vec<decltype(d)> r;
        hn::Vec<decltype(d)> g;
        hn::Vec<decltype(d)> b;
        hn::Vec<decltype(d)> a;
        hn::LoadInterleaved4(d, &accumulated[i].r, r, g, b, a);
        hn::StoreU(hn::Mul(r, a), d, mask + i);
    });
}

// ---- what is near geometry

void markRow(std::span<const float> values, std::uint8_t* HWY_RESTRICT marks)
{
    forLanes<float>(values.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<std::int32_t, decltype(d)> d32;
        const hn::Rebind<std::uint8_t, decltype(d)> d8;
        const auto positive = hn::Gt(hn::LoadU(d, values.data() + i), hn::Zero(d));
        const auto ones = hn::IfThenElseZero(hn::RebindMask(d32, positive), hn::Set(d32, 1));
        hn::StoreU(hn::DemoteTo(d8, ones), d8, marks + i);
    });
}

void spreadRow(const std::uint8_t* HWY_RESTRICT marks, std::span<std::uint8_t> spread)
{
    forLanes<std::uint8_t>(spread.size(), [&](auto d, std::size_t i) HWY_ATTR {
        auto any = hn::LoadU(d, marks + i);
        for (std::size_t offset = 1; offset <= 4; ++offset)
            any = hn::Or(any, hn::LoadU(d, marks + i + offset));
        hn::StoreU(any, d, spread.data() + i);
    });
}

void uniteRows(const std::array<const std::uint8_t*, 5>& rows, std::span<std::uint8_t> united)
{
    forLanes<std::uint8_t>(united.size(), [&](auto d, std::size_t i) HWY_ATTR {
        auto any = hn::LoadU(d, rows[0] + i);
        for (std::size_t row = 1; row < rows.size(); ++row)
            any = hn::Or(any, hn::LoadU(d, rows[row] + i));
        hn::StoreU(any, d, united.data() + i);
    });
}

// ---- blurred values

template<class D>
HWY_INLINE hn::Vec<D> roundedTo16Bits(D d, hn::Vec<D> value)
{
    const auto size = hn::Floor(hn::Add(hn::Abs(value), hn::Set(d, 0.5F)));
    return hn::CopySign(hn::Min(size, hn::Set(d, 32767.0F)), value);
}

/// The lowest and highest positive values, a lane each.
template<class V>
struct LaneSpans
{
    V lowest;
    V highest;
};

template<bool kRounds, bool kClips, class D>
HWY_INLINE void settleAt(D d, float* HWY_RESTRICT values, const std::uint8_t* HWY_RESTRICT isNear,
                         LaneSpans<hn::Vec<D>>& span)
{
    auto value = hn::LoadU(d, values);
    if constexpr (kRounds)
        value = roundedTo16Bits(d, value);
    if constexpr (kClips) {
        const hn::Rebind<std::uint8_t, D> d8;
        const hn::Rebind<std::int32_t, D> d32;
        const auto flags = hn::PromoteTo(d32, hn::LoadU(d8, isNear));
        value = hn::IfThenElseZero(hn::RebindMask(d, hn::Ne(flags, hn::Zero(d32))), value);
    }
    if constexpr (kRounds || kClips)
        hn::StoreU(value, d, values);
    const auto positive = hn::Gt(value, hn::Zero(d));
    span.lowest = hn::Min(span.lowest, hn::IfThenElse(positive, value, span.lowest));
    span.highest = hn::Max(span.highest, hn::IfThenElse(positive, value, span.highest));
}

template<bool kRounds, bool kClips>
void settleRow(std::span<float> values, const std::uint8_t* isNear, PositiveSpan& span)
{
    const hn::ScalableTag<float> d;
    const hn::CappedTag<float, 1> one;
    LaneSpans<hn::Vec<decltype(d)>> many{hn::Set(d, span.lowest), hn::Set(d, span.highest)};
    LaneSpans<hn::Vec<decltype(one)>> single{hn::Set(one, span.lowest), hn::Set(one, span.highest)};
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= values.size(); i += hn::Lanes(d))
        settleAt<kRounds, kClips>(d, values.data() + i, kClips ? isNear + i : nullptr, many);
    for (; i < values.size(); ++i)
        settleAt<kRounds, kClips>(one, values.data() + i, kClips ? isNear + i : nullptr, single);
    span.lowest = std::min(hn::GetLane(hn::MinOfLanes(d, many.lowest)), hn::GetLane(single.lowest));
    span.highest = std::max(hn::GetLane(hn::MaxOfLanes(d, many.highest)), hn::GetLane(single.highest));
}

void settleAny(std::span<float> values, Rounding rounding, const std::uint8_t* isNear, PositiveSpan& span)
{
    const bool rounds = rounding == Rounding::TO_16_BITS;
    if (rounds && isNear)
        settleRow<true, true>(values, isNear, span);
    else if (rounds)
        settleRow<true, false>(values, isNear, span);
    else if (isNear)
        settleRow<false, true>(values, isNear, span);
    else
        settleRow<false, false>(values, isNear, span);
}

// ---- elevation

void shareRow(std::span<const float> values, float lowest, float scale, float* HWY_RESTRICT share)
{
    forLanes<float>(values.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto value = hn::LoadU(d, values.data() + i);
        const auto x = hn::Mul(hn::Sub(value, hn::Set(d, lowest)), hn::Set(d, scale));
        hn::StoreU(hn::IfThenElseZero(hn::Gt(value, hn::Zero(d)), x), d, share + i);
    });
}

void raiseRow(std::span<const float> share, double rise, float* HWY_RESTRICT depth)
{
    forLanes<double>(share.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const auto x = hn::PromoteTo(d, hn::LoadU(df, share.data() + i));
        hn::StoreU(hn::DemoteTo(df, hn::Mul(x, hn::Set(d, rise))), df, depth + i);
    });
}

// ---- storing

/// Rows are worked on in runs of so many pixels, so that what is in between stays in the first-level cache.
constexpr std::size_t kRun = 256;

template<typename Value>
using Run = std::array<Value, kRun>;

/// Calls work(i, count) for runs of a row.
template<typename Work>
HWY_INLINE void forRuns(std::size_t count, const Work& work)
{
    for (std::size_t i = 0; i < count; i += kRun)
        work(i, std::min(kRun, count - i));
}

/// How 16-bit pixels hold normals. Codes are the channels' integers, in 32 bits.
struct Format16
{
    using Pixel = CEL_PixelRGBA16;
    using Code = std::int32_t;
    static constexpr Code kLevel = 16384; ///< a component of 0, encoded

    template<class D>
    using CodeTag = hn::Rebind<Code, D>;

    /// VolumeTraits::component.
    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        const auto scaled = hn::Mul(hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        const auto rounded = hn::Min(hn::Add(scaled, hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        return hn::DemoteTo(CodeTag<D>(), rounded);
    }

    /// A component as NormalParser reads it: twice the code by 32767, less 1. Without a division: the product with the
    /// inverse is corrected by what it leaves. That remainder, twice - 32768 q + q, comes out exactly, as each
    /// difference is one of numbers less than a factor of 2 apart; and no such quotient lies so near to the middle of
    /// two doubles that the correction's own rounding could matter.
    template<class D>
    static HWY_INLINE hn::Vec<D> decoded(D d, hn::Vec<CodeTag<D>> code)
    {
        const auto inverse = hn::Set(d, 1.0 / 32767.0);
        const auto twice = hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, code));
        const auto q = hn::Mul(twice, inverse);
        const auto remainder = hn::Add(hn::Sub(twice, hn::Mul(q, hn::Set(d, 32768.0))), q);
        return hn::Sub(hn::Add(q, hn::Mul(remainder, inverse)), hn::Set(d, 1.0));
    }

    /// VolumeTraits::storedElevation.
    template<class D>
    static HWY_INLINE auto elevation(D d, hn::Vec<hn::Rebind<float, D>> share)
    {
        const auto scaled = hn::Mul(hn::PromoteTo(d, share), hn::Set(d, 32765.0));
        return hn::DemoteTo(CodeTag<D>(), hn::Add(scaled, hn::Set(d, 1.0)));
    }

    /// Two channels make one 32-bit word: those in the low half are not negative.
    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        const auto redGreen = hn::Or(r, hn::ShiftLeft<16>(g));
        const auto blueAlpha = hn::Or(b, hn::ShiftLeft<16>(a));
        hn::StoreInterleaved2(redGreen, blueAlpha, d, reinterpret_cast<std::int32_t*>(pixels));
    }
};

/// How float pixels do.
struct FormatFloat
{
    using Pixel = CEL_PixelRGBAFloat;
    using Code = float;
    static constexpr Code kLevel = 0.5F;

    template<class D>
    using CodeTag = hn::Rebind<float, D>;

    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        return hn::DemoteTo(CodeTag<D>(), hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)));
    }

    template<class D>
    static HWY_INLINE hn::Vec<D> decoded(D d, hn::Vec<CodeTag<D>> code)
    {
        return hn::Sub(hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, code)), hn::Set(d, 1.0));
    }

    template<class D>
    static HWY_INLINE auto elevation(D, hn::Vec<CodeTag<D>> share)
    {
        return share;
    }

    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        hn::StoreInterleaved4(r, g, b, a, d, &pixels->r);
    }
};

/// Red and green of a run of pixels, as they are stored.
template<class Format>
struct CodeRun
{
    Run<typename Format::Code> r;
    Run<typename Format::Code> g;
};

/// Stores a run. Red and green are kept where keeps(d, i) says so, and 0 elsewhere.
template<class Format, typename Keeps>
HWY_INLINE void storeRun(const CodeRun<Format>& codes, const float* depth, const float* share, std::size_t count,
                         typename Format::Pixel* pixels, const Keeps& keeps)
{
    using Code = typename Format::Code;
    Run<Code> elevations;
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const hn::Rebind<Code, decltype(d)> dc;
        hn::StoreU(Format::elevation(d, hn::LoadU(df, share + i)), dc, elevations.data() + i);
    });
    forLanes<Code>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const auto exists = hn::RebindMask(d, hn::Ne(hn::LoadU(df, depth + i), hn::Zero(df)));
        const auto kept = keeps(d, i, exists);
        const auto full = hn::Set(d, Code{VolumeTraits<typename Format::Pixel>::kFull});
        Format::store(d, hn::IfThenElseZero(kept, hn::LoadU(d, codes.r.data() + i)),
                      hn::IfThenElseZero(kept, hn::LoadU(d, codes.g.data() + i)),
                      hn::IfThenElse(exists, hn::LoadU(d, elevations.data() + i), full),
                      hn::IfThenElseZero(exists, full), pixels + i);
    });
}

// ---- normals

template<class D>
struct Vector3
{
    hn::Vec<D> x;
    hn::Vec<D> y;
    hn::Vec<D> z;
};

template<class D>
HWY_INLINE hn::Vec<D> lengthOf(D, const Vector3<D>& v)
{
    return hn::Sqrt(hn::Add(hn::Add(hn::Mul(v.x, v.x), hn::Mul(v.y, v.y)), hn::Mul(v.z, v.z)));
}

template<class D>
HWY_INLINE Vector3<D> unitOf(D d, const Vector3<D>& v)
{
    const auto length = lengthOf(d, v);
    return {hn::Div(v.x, length), hn::Div(v.y, length), hn::Div(v.z, length)};
}

template<class D>
HWY_INLINE Vector3<D> sumOf(D, const Vector3<D>& a, const Vector3<D>& b)
{
    return {hn::Add(a.x, b.x), hn::Add(a.y, b.y), hn::Add(a.z, b.z)};
}

/// Differences of opposite neighbours, in float as depths are stored.
template<class DF>
struct Differences
{
    hn::Vec<DF> first;
    hn::Vec<DF> second;
    hn::Mask<DF> exist; ///< where all four neighbours are there
};

template<class DF>
HWY_INLINE Differences<DF> differencesOf(DF d, const float* a, const float* b, const float* c, const float* e)
{
    const auto zero = hn::Zero(d);
    const auto va = hn::LoadU(d, a);
    const auto vb = hn::LoadU(d, b);
    const auto vc = hn::LoadU(d, c);
    const auto ve = hn::LoadU(d, e);
    const auto exist =
        hn::And(hn::And(hn::Ne(va, zero), hn::Ne(vb, zero)), hn::And(hn::Ne(vc, zero), hn::Ne(ve, zero)));
    return {hn::Sub(vb, va), hn::Sub(ve, vc), exist};
}

/// Right - left and below - above, which are zero where one of them is black: a level place stores the same x and y as
/// the zero normal.
template<class DF>
HWY_INLINE Differences<DF> axisDifferences(DF d, const DepthRows& z, std::size_t i)
{
    const Differences<DF> axes = differencesOf(d, z.here + i - 1, z.here + i + 1, z.above + i, z.below + i);
    return {hn::IfThenElseZero(axes.exist, axes.first), hn::IfThenElseZero(axes.exist, axes.second), axes.exist};
}

/// Falling: below right - above left, and rising: below left - above right.
template<class DF>
HWY_INLINE Differences<DF> diagonalDifferences(DF d, const DepthRows& z, std::size_t i)
{
    return differencesOf(d, z.above + i - 1, z.below + i + 1, z.above + i + 1, z.below + i - 1);
}

/// The vector (-across, -down, 2).
template<class D>
HWY_INLINE Vector3<D> axisVector(D d, hn::Vec<D> across, hn::Vec<D> down)
{
    return {hn::Neg(across), hn::Neg(down), hn::Set(d, 2)};
}

/// The vector (rising - falling, -(rising + falling), 4).
template<class D>
HWY_INLINE Vector3<D> diagonalVector(D d, hn::Vec<D> falling, hn::Vec<D> rising)
{
    return {hn::Sub(rising, falling), hn::Neg(hn::Add(rising, falling)), hn::Set(d, 4)};
}

/// A mask of floats gets as wide as doubles the way floats do.
template<class D, class MF>
HWY_INLINE hn::Mask<D> widened(D d, MF mask)
{
    const hn::Rebind<float, D> df;
    return hn::Ne(hn::PromoteTo(d, hn::IfThenElseZero(mask, hn::Set(df, 1.0F))), hn::Zero(d));
}

/// The plain formula, in double precision.
template<bool kDiagonals, class D>
HWY_INLINE Vector3<D> normalAt(D d, const DepthRows& depth, std::size_t i)
{
    const hn::Rebind<float, D> df;
    const auto axes = axisDifferences(df, depth, i);
    const auto first = unitOf(d, axisVector(d, hn::PromoteTo(d, axes.first), hn::PromoteTo(d, axes.second)));
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(df, depth, i);
        const auto second =
            unitOf(d, diagonalVector(d, hn::PromoteTo(d, diagonals.first), hn::PromoteTo(d, diagonals.second)));
        const auto mean = unitOf(d, sumOf(d, first, second));
        const auto isMean = widened(d, hn::And(axes.exist, diagonals.exist));
        return {hn::IfThenElse(isMean, mean.x, first.x), hn::IfThenElse(isMean, mean.y, first.y), mean.z};
    } else {
        return first;
    }
}

/// Red and green of the pixels from first on, by the plain formula.
template<class Format, bool kDiagonals>
HWY_INLINE void encodePlainly(const DepthRows& depth, std::size_t first, std::size_t count, CodeRun<Format>& codes)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const auto normal = normalAt<kDiagonals>(d, depth, first + i);
        hn::StoreU(Format::encoded(d, normal.x), dc, codes.r.data() + first + i);
        hn::StoreU(Format::encoded(d, normal.y), dc, codes.g.data() + first + i);
    });
}

// Double precision takes half of the lanes, and its divisions and roots most of a normal's time. 16-bit channels are
// coarse: single precision nearly always finds the same code, and it is known when. The few others take the plain
// formula. (A. Ziv, "Fast evaluation of elementary mathematical functions with correctly rounded last bit", 1991,
// decides roundings so.)
//
// The plain formula stores 16384 + floor(m), m = 16383.5 n, but for roundings of less than 1e-11 in double precision.
// Let u = 2^-24 be the largest relative error of an operation in single precision, and v a vector as axisVector() and
// diagonalVector() make it. Its components have an error of u at most, its squared length of 5 u, its length's inverse
// of 4.5 u, and so the components of its unit vector, of 6.5 u. Let a be the sum of both unit vectors' absolute
// components in x, b in y, and c in z, and L their sum's length. The sum's components are off by 7.5 u a, 7.5 u b and
// 7.5 u c at most, L by 7.5 u (a + b + c) and a few u of its own, hence n by no more than
//
//     7.5 u a / L + |n| 7.5 u (a + b + c) / L + 5 u |n|,     and c <= L.
//
// One unit vector alone is within 6.5 u |n|, m adds 1 u. What is checked below is a little wider.

/// A component estimated in single precision, and how far from the plain formula's it may be.
template<class DF>
struct Estimate
{
    hn::Vec<DF> component;
    hn::Vec<DF> error;
};

constexpr float kUnit = 1.0F / 16777216.0F;

/// Codes of estimates, and where they are not certain.
template<class DF>
HWY_INLINE hn::Vec<hn::RebindToSigned<DF>> codesOf(DF d, const Estimate<DF>& estimate, hn::Mask<DF>& isDoubtful)
{
    const hn::RebindToSigned<DF> d32;
    const auto m = hn::Mul(estimate.component, hn::Set(d, 16383.5F));
    const auto whole = hn::Floor(m);
    const auto fraction = hn::Sub(m, whole);
    const auto margin = hn::Add(hn::Mul(estimate.error, hn::Set(d, 16384.0F)), hn::Set(d, 1e-9F));
    const auto isClose = hn::Or(hn::Lt(fraction, margin), hn::Ge(fraction, hn::Sub(hn::Set(d, 1.0F), margin)));
    // What is level is exactly that in both precisions, if it is not two slopes that cancel each other out.
    const auto isSloping = hn::Or(hn::Ne(estimate.component, hn::Zero(d)), hn::Ne(estimate.error, hn::Zero(d)));
    isDoubtful = hn::Or(isDoubtful, hn::And(isClose, isSloping));
    return hn::Add(hn::ConvertTo(d32, whole), hn::Set(d32, 16384));
}

/// Slopes whose squares single precision might not hold.
template<class DF>
HWY_INLINE hn::Mask<DF> isHuge(DF d, const Vector3<DF>& v)
{
    return hn::Gt(hn::Max(hn::Abs(v.x), hn::Abs(v.y)), hn::Set(d, 1e15F));
}

/// A vector times the inverse of its length.
template<class DF>
HWY_INLINE Vector3<DF> nearlyUnit(DF d, const Vector3<DF>& v, hn::Vec<DF>& inverse)
{
    inverse = hn::Div(hn::Set(d, 1.0F), lengthOf(d, v));
    return {hn::Mul(v.x, inverse), hn::Mul(v.y, inverse), hn::Mul(v.z, inverse)};
}

/// Estimates of x and y, and where they are good for nothing.
template<bool kDiagonals, class DF>
HWY_INLINE hn::Mask<DF> estimate(DF d, const DepthRows& depth, std::size_t i, Estimate<DF>& x, Estimate<DF>& y)
{
    const auto axes = axisDifferences(d, depth, i);
    const auto axis = axisVector(d, axes.first, axes.second);
    hn::Vec<DF> inverse;
    const auto first = nearlyUnit(d, axis, inverse);
    const auto alone = hn::Set(d, 8 * kUnit);
    x = {first.x, hn::Mul(alone, hn::Abs(first.x))};
    y = {first.y, hn::Mul(alone, hn::Abs(first.y))};
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(d, depth, i);
        const auto diagonal = diagonalVector(d, diagonals.first, diagonals.second);
        const auto second = nearlyUnit(d, diagonal, inverse);
        const auto mean = nearlyUnit(d, sumOf(d, first, second), inverse);
        const auto a = hn::Mul(hn::Add(hn::Abs(first.x), hn::Abs(second.x)), inverse);
        const auto b = hn::Mul(hn::Add(hn::Abs(first.y), hn::Abs(second.y)), inverse);
        const auto unit = hn::Set(d, 8 * kUnit);
        const auto aroundBoth = hn::Add(hn::Add(a, b), hn::Set(d, 2.0F));
        const auto isMean = hn::And(axes.exist, diagonals.exist);
        const auto errorOf = [&](auto own, auto component) HWY_ATTR {
            return hn::Mul(unit, hn::Add(own, hn::Mul(hn::Abs(component), aroundBoth)));
        };
        x = {hn::IfThenElse(isMean, mean.x, x.component), hn::IfThenElse(isMean, errorOf(a, mean.x), x.error)};
        y = {hn::IfThenElse(isMean, mean.y, y.component), hn::IfThenElse(isMean, errorOf(b, mean.y), y.error)};
        return hn::Or(isHuge(d, axis), isHuge(d, diagonal));
    } else {
        return isHuge(d, axis);
    }
}

/// Whether there is no slope at all: then both components are 0.
template<bool kDiagonals, class DF>
HWY_INLINE bool isLevel(DF d, const DepthRows& depth, std::size_t i)
{
    const auto zero = hn::Zero(d);
    const auto axes = axisDifferences(d, depth, i);
    if (!hn::AllTrue(d, hn::And(hn::Eq(axes.first, zero), hn::Eq(axes.second, zero))))
        return false;
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(d, depth, i);
        return hn::AllTrue(d, hn::And(hn::Eq(diagonals.first, zero), hn::Eq(diagonals.second, zero)));
    } else {
        return true;
    }
}

/// Red and green of one vector of pixels, from i on.
template<bool kDiagonals, class DF>
HWY_INLINE void encodeSlope(DF d, const DepthRows& depth, std::size_t i, CodeRun<Format16>& codes)
{
    const hn::RebindToSigned<DF> d32;
    Estimate<DF> x;
    Estimate<DF> y;
    auto isDoubtful = estimate<kDiagonals>(d, depth, i, x, y);
    hn::StoreU(codesOf(d, x, isDoubtful), d32, codes.r.data() + i);
    hn::StoreU(codesOf(d, y, isDoubtful), d32, codes.g.data() + i);
    if (!hn::AllFalse(d, isDoubtful))
        encodePlainly<Format16, kDiagonals>(depth, i, hn::Lanes(d), codes);
}

template<bool kDiagonals, class DF>
HWY_INLINE void encodeSlope(DF d, const DepthRows& depth, std::size_t i, CodeRun<FormatFloat>& codes)
{
    encodePlainly<FormatFloat, kDiagonals>(depth, i, hn::Lanes(d), codes);
}

/// Red and green of a run of pixels.
template<bool kDiagonals, class Format>
HWY_INLINE void encodeRun(const DepthRows& depth, std::size_t count, CodeRun<Format>& codes)
{
    const hn::ScalableTag<float> d;
    const hn::Rebind<typename Format::Code, hn::ScalableTag<float>> dc;
    const auto level = hn::Set(dc, Format::kLevel);
    const std::size_t step = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + step <= count; i += step) {
        if (isLevel<kDiagonals>(d, depth, i)) {
            hn::StoreU(level, dc, codes.r.data() + i);
            hn::StoreU(level, dc, codes.g.data() + i);
        } else {
            encodeSlope<kDiagonals>(hn::ScalableTag<float>(), depth, i, codes);
        }
    }
    encodePlainly<Format, kDiagonals>(depth, i, count - i, codes);
}

DepthRows from(const DepthRows& rows, std::size_t i)
{
    return {rows.above + i, rows.here + i, rows.below + i};
}

template<class Format, bool kDiagonals>
HWY_INLINE void storeRow(const DepthRows& depth, const float* share, std::span<typename Format::Pixel> pixels)
{
    CodeRun<Format> codes;
    const auto whereThereIsDepth = [](auto, std::size_t, auto exists) HWY_ATTR { return exists; };
    forRuns(pixels.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        encodeRun<kDiagonals>(from(depth, first), count, codes);
        storeRun<Format>(codes, depth.here + first, share + first, count, pixels.data() + first, whereThereIsDepth);
    });
}

void storeNormals16(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    if (diagonals)
        storeRow<Format16, true>(depth, share, pixels);
    else
        storeRow<Format16, false>(depth, share, pixels);
}

void storeNormalsFloat(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    if (diagonals)
        storeRow<FormatFloat, true>(depth, share, pixels);
    else
        storeRow<FormatFloat, false>(depth, share, pixels);
}

// ---- smoothing

template<class Format>
HWY_INLINE void decodeRun(const CodeRun<Format>& codes, const float* depth, std::size_t count, const NormalRow& normals)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const auto exists = hn::Ne(hn::PromoteTo(d, hn::LoadU(df, depth + i)), hn::Zero(d));
        const auto x = Format::decoded(d, hn::LoadU(dc, codes.r.data() + i));
        const auto y = Format::decoded(d, hn::LoadU(dc, codes.g.data() + i));
        const auto rest = hn::Sub(hn::Sub(hn::Set(d, 1.0), hn::Mul(x, x)), hn::Mul(y, y));
        hn::StoreU(hn::IfThenElseZero(exists, x), d, normals.x + i);
        hn::StoreU(hn::IfThenElseZero(exists, y), d, normals.y + i);
        hn::StoreU(hn::IfThenElseZero(exists, hn::Sqrt(hn::Max(rest, hn::Zero(d)))), d, normals.z + i);
    });
}

template<class Format>
HWY_INLINE void readBackRow(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    CodeRun<Format> codes;
    forRuns(count, [&](std::size_t first, std::size_t some) HWY_ATTR {
        encodeRun<true>(from(depth, first), some, codes);
        decodeRun<Format>(codes, depth.here + first, some, {normals.x + first, normals.y + first, normals.z + first});
    });
}

void readBack16(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    readBackRow<Format16>(depth, count, normals);
}

void readBackFloat(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    readBackRow<FormatFloat>(depth, count, normals);
}

/// One component, summed over the 3 x 3 neighbourhood, in eighths. Other orders of the summands would round
/// differently.
template<class D>
HWY_INLINE hn::Vec<D> sumAround(D d, const double* above, const double* here, const double* below)
{
    const auto half = hn::Set(d, 0.5);
    auto sum = hn::LoadU(d, here - 1);
    sum = hn::Add(sum, hn::LoadU(d, above));
    sum = hn::Add(sum, hn::Mul(hn::Set(d, 2.0), hn::LoadU(d, here)));
    sum = hn::Add(sum, hn::LoadU(d, below));
    sum = hn::Add(sum, hn::LoadU(d, here + 1));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, above - 1)));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, below - 1)));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, above + 1)));
    return hn::Add(sum, hn::Mul(half, hn::LoadU(d, below + 1)));
}

/// The sums of a run's normals.
struct SumRun
{
    Run<double> x;
    Run<double> y;
    Run<double> z;
};

HWY_INLINE void sumRun(const NormalRows& n, std::size_t first, std::size_t count, SumRun& sums)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const std::size_t at = first + i;
        hn::StoreU(sumAround(d, n.above.x + at, n.here.x + at, n.below.x + at), d, sums.x.data() + i);
        hn::StoreU(sumAround(d, n.above.y + at, n.here.y + at, n.below.y + at), d, sums.y.data() + i);
        hn::StoreU(sumAround(d, n.above.z + at, n.here.z + at, n.below.z + at), d, sums.z.data() + i);
    });
}

/// Red and green of the sums from first on, brought to unit length by the plain formula. A sum that cancels out stays
/// zero; any other is far longer than the smallest double.
template<class Format>
HWY_INLINE void encodeSumsPlainly(const SumRun& sums, std::size_t first, std::size_t count, CodeRun<Format>& codes)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const std::size_t at = first + i;
        const Vector3<decltype(d)> sum{hn::LoadU(d, sums.x.data() + at), hn::LoadU(d, sums.y.data() + at),
                                       hn::LoadU(d, sums.z.data() + at)};
        const auto divisor = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
        hn::StoreU(Format::encoded(d, hn::Div(sum.x, divisor)), dc, codes.r.data() + at);
        hn::StoreU(Format::encoded(d, hn::Div(sum.y, divisor)), dc, codes.g.data() + at);
    });
}

HWY_INLINE void encodeSums(const SumRun& sums, std::size_t count, CodeRun<FormatFloat>& codes)
{
    encodeSumsPlainly(sums, 0, count, codes);
}

/// A sum rounded to single precision is a vector whose components have an error of u, as above.
HWY_INLINE void encodeSums(const SumRun& sums, std::size_t count, CodeRun<Format16>& codes)
{
    Run<float> x;
    Run<float> y;
    Run<float> z;
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.x.data() + i)), df, x.data() + i);
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.y.data() + i)), df, y.data() + i);
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.z.data() + i)), df, z.data() + i);
    });
    const hn::ScalableTag<float> d;
    const hn::RebindToSigned<decltype(d)> d32;
    const auto zero = hn::Zero(d);
    const auto unit = hn::Set(d, 8 * kUnit);
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
        const Vector3<hn::ScalableTag<float>> sum{hn::LoadU(d, x.data() + i), hn::LoadU(d, y.data() + i),
                                                  hn::LoadU(d, z.data() + i)};
        const auto length = lengthOf(d, sum);
        const auto inverse = hn::Div(hn::Set(d, 1.0F), hn::IfThenElse(hn::Eq(length, zero), hn::Set(d, 1.0F), length));
        const auto nx = hn::Mul(sum.x, inverse);
        const auto ny = hn::Mul(sum.y, inverse);
        auto isDoubtful = hn::MaskFromVec(zero);
        hn::StoreU(codesOf(d, Estimate<hn::ScalableTag<float>>{nx, hn::Mul(unit, hn::Abs(nx))}, isDoubtful), d32,
                   codes.r.data() + i);
        hn::StoreU(codesOf(d, Estimate<hn::ScalableTag<float>>{ny, hn::Mul(unit, hn::Abs(ny))}, isDoubtful), d32,
                   codes.g.data() + i);
        if (!hn::AllFalse(d, isDoubtful))
            encodeSumsPlainly(sums, i, hn::Lanes(d), codes);
    }
    encodeSumsPlainly(sums, i, count - i, codes);
}

template<class Format>
HWY_INLINE void smoothRow(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<typename Format::Pixel> pixels)
{
    SumRun sums;
    CodeRun<Format> codes;
    forRuns(pixels.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        const DepthRows run = from(depth, first);
        const auto whereThereIsDepthAround = [&](auto d, std::size_t i, auto exists) HWY_ATTR {
            const hn::Rebind<float, decltype(d)> df;
            auto any = exists;
            for (const float* row : {run.above + i, run.here + i, run.below + i})
                for (const int offset : {-1, 0, 1})
                    any = hn::Or(any, hn::RebindMask(d, hn::Ne(hn::LoadU(df, row + offset), hn::Zero(df))));
            return any;
        };
        sumRun(normals, first, count, sums);
        encodeSums(sums, count, codes);
        storeRun<Format>(codes, run.here, share + first, count, pixels.data() + first, whereThereIsDepthAround);
    });
}

void smooth16(const NormalRows& normals, const DepthRows& depth, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    smoothRow<Format16>(normals, depth, share, pixels);
}

void smoothFloat(const NormalRows& normals, const DepthRows& depth, const float* share,
                 std::span<CEL_PixelRGBAFloat> pixels)
{
    smoothRow<FormatFloat>(normals, depth, share, pixels);
}

// ---- the output

/// Where an object covers fully or lies alone, its pixel takes the place with the coverage's alpha: that is what the
/// alpha's share would be truncated to.
template<typename Pixel>
HWY_INLINE Pixel placedPixel(const Pixel& coverage, const Pixel& object, typename VolumeTraits<Pixel>::Channel blue)
{
    using Traits = VolumeTraits<Pixel>;
    return {object.r, object.g, blue, Traits::isSaturated(coverage.a) ? Traits::kFull : coverage.a};
}

void place16OneByOne(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                     CEL_PixelRGBA16* output)
{
    for (std::size_t i = 0; i < coverage.size(); ++i)
        output[i] = coverage[i].a > 0
                        ? placedPixel(coverage[i], object[i], blue.isElevation ? object[i].b : blue.number)
                        : CEL_PixelRGBA16{};
}

template<typename Pixel>
HWY_INLINE void blendOneByOne(std::span<const Pixel> coverage, const Pixel* object, bool isElevation,
                              typename VolumeTraits<Pixel>::Channel number, Pixel* output)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < coverage.size(); ++i) {
        const auto alpha = coverage[i].a;
        const auto blue = isElevation ? object[i].b : number;
        if (!(alpha > 0))
            continue;
        if (Traits::isSaturated(alpha) || !(output[i].a > 0))
            output[i] = placedPixel(coverage[i], object[i], blue);
        else
            blendNormal(output[i], object[i], Traits::coverageOf(alpha), blue);
    }
}

void blendFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                CEL_PixelRGBAFloat* output)
{
    blendOneByOne<CEL_PixelRGBAFloat>(coverage, object, blue.isElevation, 0.0F, output);
}

#if HWY_TARGET == HWY_SCALAR
void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output)
{
    place16OneByOne(coverage, object, blue, output);
}

void blend16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output)
{
    blendOneByOne<CEL_PixelRGBA16>(coverage, object, blue.isElevation, blue.number, output);
}
#else
// A pixel is one 64-bit lane, with red in its lowest bits.
using PixelTag = hn::ScalableTag<std::int64_t>;
using ChannelTag = hn::Repartition<std::int16_t, PixelTag>;

HWY_INLINE hn::Vec<PixelTag> loadPixels(const CEL_PixelRGBA16* pixels)
{
    return hn::BitCast(PixelTag(), hn::LoadU(ChannelTag(), &pixels->r));
}

HWY_INLINE void storePixels(hn::Vec<PixelTag> pixels, CEL_PixelRGBA16* to)
{
    hn::StoreU(hn::BitCast(ChannelTag(), pixels), ChannelTag(), &to->r);
}

/// placedPixel() for whole vectors.
class Placement
{
public:
    explicit Placement(const Blue& blue)
        : _kept(hn::Set(PixelTag(), blue.isElevation ? 0x0000FFFFFFFFFFFF : 0x00000000FFFFFFFF))
        , _given(
              hn::Set(PixelTag(), blue.isElevation ? 0 : std::int64_t{static_cast<std::uint16_t>(blue.number)} << 32))
    {}

    HWY_INLINE hn::Vec<PixelTag> operator()(hn::Vec<PixelTag> alpha, const CEL_PixelRGBA16* object) const
    {
        const PixelTag d;
        const auto stored = hn::IfThenElse(isSaturated(alpha), hn::Set(d, 32767), alpha);
        return hn::Or(hn::Or(hn::And(loadPixels(object), _kept), _given), hn::ShiftLeft<48>(stored));
    }

    static HWY_INLINE hn::Mask<PixelTag> isSaturated(hn::Vec<PixelTag> alpha)
    {
        return hn::Gt(alpha, hn::Set(PixelTag(), 32439));
    }

private:
    hn::Vec<PixelTag> _kept;
    hn::Vec<PixelTag> _given;
};

void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* HWY_RESTRICT output)
{
    const PixelTag d;
    const Placement placed(blue);
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= coverage.size(); i += hn::Lanes(d)) {
        const auto alpha = hn::ShiftRight<48>(loadPixels(&coverage[i]));
        storePixels(hn::IfThenElseZero(hn::Gt(alpha, hn::Zero(d)), placed(alpha, object + i)), output + i);
    }
    place16OneByOne(coverage.subspan(i), object + i, blue, output + i);
}

void blend16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* HWY_RESTRICT output)
{
    const PixelTag d;
    const auto zero = hn::Zero(d);
    const std::size_t step = hn::Lanes(d);
    const Placement placed(blue);
    std::size_t i = 0;
    for (; i + step <= coverage.size(); i += step) {
        const auto alpha = hn::ShiftRight<48>(loadPixels(&coverage[i]));
        const auto covers = hn::Gt(alpha, zero);
        if (hn::AllFalse(d, covers))
            continue;
        const auto before = loadPixels(output + i);
        const auto isThere = hn::Gt(hn::ShiftRight<48>(before), zero);
        const auto isBlended = hn::And(hn::AndNot(Placement::isSaturated(alpha), covers), isThere);
        if (hn::AllFalse(d, isBlended))
            storePixels(hn::IfThenElse(covers, placed(alpha, object + i), before), output + i);
        else
            blendOneByOne<CEL_PixelRGBA16>(coverage.subspan(i, step), object + i, blue.isElevation, blue.number,
                                           output + i);
    }
    blendOneByOne<CEL_PixelRGBA16>(coverage.subspan(i), object + i, blue.isElevation, blue.number, output + i);
}
#endif

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(merge16);
HWY_EXPORT(weigh16);
HWY_EXPORT(weighFloat);
HWY_EXPORT(markRow);
HWY_EXPORT(spreadRow);
HWY_EXPORT(uniteRows);
HWY_EXPORT(settleAny);
HWY_EXPORT(shareRow);
HWY_EXPORT(raiseRow);
HWY_EXPORT(storeNormals16);
HWY_EXPORT(storeNormalsFloat);
HWY_EXPORT(readBack16);
HWY_EXPORT(readBackFloat);
HWY_EXPORT(smooth16);
HWY_EXPORT(smoothFloat);
HWY_EXPORT(place16);
HWY_EXPORT(blend16);
HWY_EXPORT(blendFloat);

void mergeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator)
{
    HWY_DYNAMIC_DISPATCH(merge16)(input, accumulator);
}

void mergeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator)
{
    for (std::size_t i = 0; i < input.size(); ++i)
        accumulator[i] = mergePixel(accumulator[i], input[i]);
}

void weigh(std::span<const CEL_PixelRGBA16> accumulated, float* mask)
{
    HWY_DYNAMIC_DISPATCH(weigh16)(accumulated, mask);
}

void weigh(std::span<const CEL_PixelRGBAFloat> accumulated, float* mask)
{
    HWY_DYNAMIC_DISPATCH(weighFloat)(accumulated, mask);
}

void markPositive(std::span<const float> values, std::uint8_t* marks)
{
    HWY_DYNAMIC_DISPATCH(markRow)(values, marks);
}

void spreadMarks(const std::uint8_t* marks, std::span<std::uint8_t> spread)
{
    HWY_DYNAMIC_DISPATCH(spreadRow)(marks, spread);
}

void uniteMarks(const std::array<const std::uint8_t*, 5>& rows, std::span<std::uint8_t> united)
{
    HWY_DYNAMIC_DISPATCH(uniteRows)(rows, united);
}

void settle(std::span<float> values, Rounding rounding, const std::uint8_t* isNear, PositiveSpan& span)
{
    HWY_DYNAMIC_DISPATCH(settleAny)(values, rounding, isNear, span);
}

void share(std::span<const float> values, float lowest, float scale, float* share)
{
    HWY_DYNAMIC_DISPATCH(shareRow)(values, lowest, scale, share);
}

void raise(std::span<const float> share, double rise, float* depth)
{
    HWY_DYNAMIC_DISPATCH(raiseRow)(share, rise, depth);
}

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    HWY_DYNAMIC_DISPATCH(storeNormals16)(depth, diagonals, share, pixels);
}

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    HWY_DYNAMIC_DISPATCH(storeNormalsFloat)(depth, diagonals, share, pixels);
}

void readBackNormals16(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    HWY_DYNAMIC_DISPATCH(readBack16)(depth, count, normals);
}

void readBackNormalsFloat(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    HWY_DYNAMIC_DISPATCH(readBackFloat)(depth, count, normals);
}

void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBA16> pixels)
{
    HWY_DYNAMIC_DISPATCH(smooth16)(normals, depth, share, pixels);
}

void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBAFloat> pixels)
{
    HWY_DYNAMIC_DISPATCH(smoothFloat)(normals, depth, share, pixels);
}

void placeNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output)
{
    HWY_DYNAMIC_DISPATCH(place16)(coverage, object, blue, output);
}

void placeNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output)
{
    using Traits = VolumeTraits<CEL_PixelRGBAFloat>;
    for (std::size_t i = 0; i < coverage.size(); ++i) {
        const float a = coverage[i].a;
        const float alpha = Traits::isSaturated(a) ? Traits::kFull : a;
        const float b = blue.isElevation ? object[i].b : 0.0F;
        output[i] = a > 0 ? CEL_PixelRGBAFloat{object[i].r, object[i].g, b, alpha} : CEL_PixelRGBAFloat{};
    }
}

void blendNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output)
{
    HWY_DYNAMIC_DISPATCH(blend16)(coverage, object, blue, output);
}

void blendNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output)
{
    HWY_DYNAMIC_DISPATCH(blendFloat)(coverage, object, blue, output);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
