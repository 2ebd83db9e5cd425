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

#include "render/PixelTraits.h"

#include <algorithm>
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

/// How 16-bit pixels hold normals.
struct Format16
{
    using Pixel = CEL_PixelRGBA16;

    template<class D>
    using CodeTag = hn::Rebind<std::int32_t, D>;

    /// VolumeTraits::component.
    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        // Half of 32767: halving alone would be exact.
        const auto scaled = hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 16383.5));
        const auto rounded = hn::Min(hn::Add(scaled, hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        return hn::DemoteTo(CodeTag<D>(), rounded);
    }

    /// A component as NormalParser reads it.
    template<class D>
    static HWY_INLINE hn::Vec<D> decoded(D d, hn::Vec<CodeTag<D>> code)
    {
        const auto twice = hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, code));
        return hn::Sub(hn::Div(twice, hn::Set(d, 32767.0)), hn::Set(d, 1.0));
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
    static HWY_INLINE void store(D, hn::Vec<CodeTag<D>> r, hn::Vec<CodeTag<D>> g, hn::Vec<CodeTag<D>> b,
                                 hn::Vec<CodeTag<D>> a, Pixel* pixels)
    {
        const CodeTag<D> d32;
        const auto redGreen = hn::Or(r, hn::ShiftLeft<16>(g));
        const auto blueAlpha = hn::Or(b, hn::ShiftLeft<16>(a));
        hn::StoreInterleaved2(redGreen, blueAlpha, d32, reinterpret_cast<std::int32_t*>(pixels));
    }
};

/// How float pixels do.
struct FormatFloat
{
    using Pixel = CEL_PixelRGBAFloat;

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
    static HWY_INLINE void store(D, hn::Vec<CodeTag<D>> r, hn::Vec<CodeTag<D>> g, hn::Vec<CodeTag<D>> b,
                                 hn::Vec<CodeTag<D>> a, Pixel* pixels)
    {
        hn::StoreInterleaved4(r, g, b, a, CodeTag<D>(), &pixels->r);
    }
};

template<class D>
using FloatTag = hn::Rebind<float, D>;

/// Where there is a depth, as a mask of the codes' lanes.
template<class Format, class D>
HWY_INLINE auto existsAt(D, const float* depth)
{
    const FloatTag<D> df;
    const typename Format::template CodeTag<D> dc;
    return hn::RebindMask(dc, hn::Ne(hn::LoadU(df, depth), hn::Zero(df)));
}

/// Pixels from their encoded red and green, which are 0 where nothing is to be stored in them.
template<class Format, class D>
HWY_INLINE void storePixels(D d, hn::Vec<typename Format::template CodeTag<D>> r,
                            hn::Vec<typename Format::template CodeTag<D>> g, const float* depth, const float* share,
                            typename Format::Pixel* pixels)
{
    const typename Format::template CodeTag<D> dc;
    const auto exists = existsAt<Format>(d, depth);
    const auto full = hn::Set(dc, VolumeTraits<typename Format::Pixel>::kFull);
    const auto elevation = Format::elevation(d, hn::LoadU(FloatTag<D>(), share));
    Format::store(d, r, g, hn::IfThenElse(exists, elevation, full), hn::IfThenElseZero(exists, full), pixels);
}

// ---- normals

template<class D>
struct Direction
{
    hn::Vec<D> x;
    hn::Vec<D> y;
};

template<class D>
HWY_INLINE hn::Vec<D> lengthOf(D, hn::Vec<D> x, hn::Vec<D> y, hn::Vec<D> z)
{
    return hn::Sqrt(hn::Add(hn::Add(hn::Mul(x, x), hn::Mul(y, y)), hn::Mul(z, z)));
}

template<class D>
HWY_INLINE hn::Vec<FloatTag<D>> depthAt(D, const float* depth, std::size_t i, std::ptrdiff_t offset)
{
    return hn::LoadU(FloatTag<D>(), depth + static_cast<std::ptrdiff_t>(i) + offset);
}

template<class V>
HWY_INLINE auto areThere(V a, V b, V c, V d)
{
    const auto zero = hn::Zero(hn::DFromV<V>());
    return hn::And(hn::And(hn::Ne(a, zero), hn::Ne(b, zero)), hn::And(hn::Ne(c, zero), hn::Ne(d, zero)));
}

/// A normal from the axis neighbours, the length of its vector before it was normalised, and where there are all four.
template<class D>
struct AxisNormal
{
    Direction<D> direction;
    hn::Vec<D> length;
    hn::Mask<FloatTag<D>> exists;
};

/// The differences of opposite neighbours, in float as depths are stored. They are zero where one of the neighbours is
/// black: a level place stores the same x and y as the zero normal.
template<class D>
HWY_INLINE AxisNormal<D> axisNormalAt(D d, const DepthRows& z, std::size_t i)
{
    const auto left = depthAt(d, z.here, i, -1);
    const auto right = depthAt(d, z.here, i, 1);
    const auto above = depthAt(d, z.above, i, 0);
    const auto below = depthAt(d, z.below, i, 0);
    const auto exists = areThere(left, right, above, below);
    const auto x = hn::Neg(hn::PromoteTo(d, hn::IfThenElseZero(exists, hn::Sub(right, left))));
    const auto y = hn::Neg(hn::PromoteTo(d, hn::IfThenElseZero(exists, hn::Sub(below, above))));
    const auto length = lengthOf(d, x, y, hn::Set(d, 2.0));
    return {{hn::Div(x, length), hn::Div(y, length)}, length, exists};
}

/// The mean of a normal with that of the diagonals, where all eight neighbours are there.
template<class D>
HWY_INLINE Direction<D> withDiagonals(D d, const AxisNormal<D>& axis, const DepthRows& z, std::size_t i)
{
    const FloatTag<D> df;
    const auto aboveLeft = depthAt(d, z.above, i, -1);
    const auto aboveRight = depthAt(d, z.above, i, 1);
    const auto belowLeft = depthAt(d, z.below, i, -1);
    const auto belowRight = depthAt(d, z.below, i, 1);
    const auto falling = hn::PromoteTo(d, hn::Sub(belowRight, aboveLeft));
    const auto rising = hn::PromoteTo(d, hn::Sub(belowLeft, aboveRight));
    const auto x = hn::Sub(rising, falling);
    const auto y = hn::Neg(hn::Add(rising, falling));
    const auto length = lengthOf(d, x, y, hn::Set(d, 4.0));
    const auto sumX = hn::Add(axis.direction.x, hn::Div(x, length));
    const auto sumY = hn::Add(axis.direction.y, hn::Div(y, length));
    const auto sumZ = hn::Add(hn::Div(hn::Set(d, 2.0), axis.length), hn::Div(hn::Set(d, 4.0), length));
    const auto sumLength = lengthOf(d, sumX, sumY, sumZ);
    // A mask of floats gets as wide as doubles the way floats do.
    const auto exists = hn::And(axis.exists, areThere(aboveLeft, aboveRight, belowLeft, belowRight));
    const auto isMean = hn::Ne(hn::PromoteTo(d, hn::IfThenElseZero(exists, hn::Set(df, 1.0F))), hn::Zero(d));
    return {hn::IfThenElse(isMean, hn::Div(sumX, sumLength), axis.direction.x),
            hn::IfThenElse(isMean, hn::Div(sumY, sumLength), axis.direction.y)};
}

template<bool kDiagonals, class D>
HWY_INLINE Direction<D> normalAt(D d, const DepthRows& depth, std::size_t i)
{
    const AxisNormal<D> axis = axisNormalAt(d, depth, i);
    if constexpr (kDiagonals)
        return withDiagonals(d, axis, depth, i);
    else
        return axis.direction;
}

template<class Format, bool kDiagonals>
void storeRow(const DepthRows& depth, const float* share, std::span<typename Format::Pixel> pixels)
{
    forLanes<double>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto exists = existsAt<Format>(d, depth.here + i);
        const auto normal = normalAt<kDiagonals>(d, depth, i);
        storePixels<Format>(d, hn::IfThenElseZero(exists, Format::encoded(d, normal.x)),
                            hn::IfThenElseZero(exists, Format::encoded(d, normal.y)), depth.here + i, share + i,
                            pixels.data() + i);
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
HWY_INLINE void readBackRow(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const auto exists = hn::Ne(hn::PromoteTo(d, hn::LoadU(FloatTag<decltype(d)>(), depth.here + i)), hn::Zero(d));
        const auto normal = normalAt<true>(d, depth, i);
        const auto x = Format::decoded(d, Format::encoded(d, normal.x));
        const auto y = Format::decoded(d, Format::encoded(d, normal.y));
        const auto rest = hn::Sub(hn::Sub(hn::Set(d, 1.0), hn::Mul(x, x)), hn::Mul(y, y));
        hn::StoreU(hn::IfThenElseZero(exists, x), d, normals.x + i);
        hn::StoreU(hn::IfThenElseZero(exists, y), d, normals.y + i);
        hn::StoreU(hn::IfThenElseZero(exists, hn::Sqrt(hn::Max(rest, hn::Zero(d)))), d, normals.z + i);
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

/// Where one of the nine pixels has a normal.
template<class Format, class D>
HWY_INLINE auto existsAround(D d, const DepthRows& depth, std::size_t i)
{
    const typename Format::template CodeTag<D> dc;
    auto any = hn::RebindMask(dc, hn::MaskFromVec(hn::Zero(FloatTag<D>())));
    for (const float* row : {depth.above + i, depth.here + i, depth.below + i})
        for (const int offset : {-1, 0, 1})
            any = hn::Or(any, existsAt<Format>(d, row + offset));
    return any;
}

template<class Format>
HWY_INLINE void smoothRow(const NormalRows& n, const DepthRows& depth, const float* share,
                          std::span<typename Format::Pixel> pixels)
{
    forLanes<double>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto x = sumAround(d, n.above.x + i, n.here.x + i, n.below.x + i);
        const auto y = sumAround(d, n.above.y + i, n.here.y + i, n.below.y + i);
        const auto z = sumAround(d, n.above.z + i, n.here.z + i, n.below.z + i);
        const auto length = lengthOf(d, x, y, z);
        // A sum that cancels out stays zero; any other is far longer than the smallest double.
        const auto divisor = hn::Max(length, hn::Set(d, std::numeric_limits<double>::min()));
        auto r = Format::encoded(d, hn::Div(x, divisor));
        auto g = Format::encoded(d, hn::Div(y, divisor));
        // A sum that is not zero has summands.
        if (!hn::AllTrue(d, hn::Gt(length, hn::Zero(d)))) {
            const auto any = existsAround<Format>(d, depth, i);
            r = hn::IfThenElseZero(any, r);
            g = hn::IfThenElseZero(any, g);
        }
        storePixels<Format>(d, r, g, depth.here + i, share + i, pixels.data() + i);
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

void place16OneByOne(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                     CEL_PixelRGBA16* output)
{
    using Traits = VolumeTraits<CEL_PixelRGBA16>;
    for (std::size_t i = 0; i < coverage.size(); ++i) {
        const std::int16_t a = coverage[i].a;
        const std::int16_t alpha = Traits::isSaturated(a) ? Traits::kFull : a;
        const std::int16_t b = blue.isElevation ? object[i].b : blue.number;
        output[i] = a > 0 ? CEL_PixelRGBA16{object[i].r, object[i].g, b, alpha} : CEL_PixelRGBA16{};
    }
}

#if HWY_TARGET == HWY_SCALAR
void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output)
{
    place16OneByOne(coverage, object, blue, output);
}
#else
// A pixel is one 64-bit lane, with red in its lowest bits.
void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* HWY_RESTRICT output)
{
    const hn::ScalableTag<std::int64_t> d;
    const hn::Repartition<std::int16_t, decltype(d)> d16;
    const auto kept = hn::Set(d, blue.isElevation ? 0x0000FFFFFFFFFFFF : 0x00000000FFFFFFFF);
    const auto given = hn::Set(d, blue.isElevation ? 0 : std::int64_t{static_cast<std::uint16_t>(blue.number)} << 32);
    const auto full = hn::Set(d, 32767);
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= coverage.size(); i += hn::Lanes(d)) {
        const auto a = hn::ShiftRight<48>(hn::BitCast(d, hn::LoadU(d16, &coverage[i].r)));
        const auto alpha = hn::IfThenElse(hn::Gt(a, hn::Set(d, 32439)), full, a);
        const auto pixel = hn::And(hn::BitCast(d, hn::LoadU(d16, &object[i].r)), kept);
        const auto placed = hn::Or(hn::Or(pixel, given), hn::ShiftLeft<48>(alpha));
        hn::StoreU(hn::BitCast(d16, hn::IfThenElseZero(hn::Gt(a, hn::Zero(d)), placed)), d16, &output[i].r);
    }
    place16OneByOne(coverage.subspan(i), object + i, blue, output + i);
}
#endif

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

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

} // namespace VolumeRowKernels
#endif // HWY_ONCE
