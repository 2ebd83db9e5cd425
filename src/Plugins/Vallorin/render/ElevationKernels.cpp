// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Planes of floats and rows of bits, vector by vector.
#include "render/ElevationKernels.h"

#include <algorithm>
#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/ElevationKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"
#include <hwy/contrib/math/math-inl.h>

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

// ---- what is near geometry

constexpr std::size_t kWordBits = 64;

template<class D>
HWY_INLINE std::uint64_t positiveBits(D d, const float* values)
{
    std::uint64_t bits = 0;
    hn::StoreMaskBits(d, hn::Gt(hn::LoadU(d, values), hn::Zero(d)), reinterpret_cast<std::uint8_t*>(&bits));
    return bits;
}

void packPositive(std::span<const float> values, std::uint64_t* HWY_RESTRICT words)
{
    const hn::CappedTag<float, kWordBits> d;
    const hn::CappedTag<float, 1> one;
    for (std::size_t from = 0; from < values.size(); from += kWordBits) {
        const std::size_t count = std::min(kWordBits, values.size() - from);
        std::uint64_t word = 0;
        std::size_t i = 0;
        for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d))
            word |= positiveBits(d, values.data() + from + i) << i;
        for (; i < count; ++i)
            word |= positiveBits(one, values.data() + from + i) << i;
        words[from / kWordBits] = word;
    }
}

// ---- blurred values

template<class D>
HWY_INLINE hn::Vec<D> roundedTo16Bits(D d, hn::Vec<D> value)
{
    const auto size = hn::Floor(hn::Add(hn::Abs(value), hn::Set(d, 0.5F)));
    return hn::CopySign(hn::Min(size, hn::Set(d, 32767.0F)), value);
}

/// The lowest and highest positive values of each lane.
template<class V>
struct LaneSpans
{
    V lowest;
    V highest;
};

/// Keeps the values whose bit is 1 and sets the others to 0.
template<class D>
HWY_INLINE hn::Vec<D> clipped(D d, hn::Vec<D> values, std::uint64_t bits)
{
    return hn::IfThenElseZero(hn::LoadMaskBits(d, reinterpret_cast<const std::uint8_t*>(&bits)), values);
}

template<bool kRounds, bool kClips, class D>
HWY_INLINE void roundAndClipAt(D d, float* HWY_RESTRICT values, std::uint64_t isNear, LaneSpans<hn::Vec<D>>& span)
{
    auto value = hn::LoadU(d, values);
    if constexpr (kRounds)
        value = roundedTo16Bits(d, value);
    if constexpr (kClips)
        value = clipped(d, value, isNear);
    if constexpr (kRounds || kClips)
        hn::StoreU(value, d, values);
    const auto positive = hn::Gt(value, hn::Zero(d));
    span.lowest = hn::Min(span.lowest, hn::IfThenElse(positive, value, span.lowest));
    span.highest = hn::Max(span.highest, hn::IfThenElse(positive, value, span.highest));
}

/// The spans of the whole vectors, and of the remaining values.
struct RowSpans
{
    using Many = hn::CappedTag<float, kWordBits>;
    using One = hn::CappedTag<float, 1>;

    LaneSpans<hn::Vec<Many>> many;
    LaneSpans<hn::Vec<One>> single;
};

/// Takes at most as many values as a word has bits.
template<bool kRounds, bool kClips>
HWY_INLINE void roundAndClipWord(std::span<float> values, std::uint64_t isNear, RowSpans& spans)
{
    const RowSpans::Many d;
    const RowSpans::One one;
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= values.size(); i += hn::Lanes(d))
        roundAndClipAt<kRounds, kClips>(d, values.data() + i, isNear >> i, spans.many);
    for (; i < values.size(); ++i)
        roundAndClipAt<kRounds, kClips>(one, values.data() + i, isNear >> i, spans.single);
}

template<bool kRounds>
void roundAndClipRow(std::span<float> values, const std::uint64_t* isNear, PositiveSpan& span)
{
    constexpr std::uint64_t kAll = ~std::uint64_t{0};
    const RowSpans::Many d;
    const RowSpans::One one;
    RowSpans spans{{hn::Set(d, span.lowest), hn::Set(d, span.highest)},
                   {hn::Set(one, span.lowest), hn::Set(one, span.highest)}};
    for (std::size_t from = 0; from < values.size(); from += kWordBits) {
        const std::span<float> some = values.subspan(from, std::min(kWordBits, values.size() - from));
        const std::uint64_t bits = isNear ? isNear[from / kWordBits] : kAll;
        if (bits == kAll)
            roundAndClipWord<kRounds, false>(some, bits, spans);
        else if (bits == 0)
            std::ranges::fill(some, 0.0F);
        else
            roundAndClipWord<kRounds, true>(some, bits, spans);
    }
    span.lowest = std::min(hn::GetLane(hn::MinOfLanes(d, spans.many.lowest)), hn::GetLane(spans.single.lowest));
    span.highest = std::max(hn::GetLane(hn::MaxOfLanes(d, spans.many.highest)), hn::GetLane(spans.single.highest));
}

void roundAndClip(std::span<float> values, Rounding rounding, const std::uint64_t* isNear, PositiveSpan& span)
{
    if (rounding == Rounding::TO_16_BITS)
        roundAndClipRow<true>(values, isNear, span);
    else
        roundAndClipRow<false>(values, isNear, span);
}

// ---- elevation

/// Depths of a vector of shares.
template<class DF>
HWY_INLINE void raiseAt(DF df, const float* share, double rise, float* depth)
{
    const auto depths = vl::inDoubles<float>(df, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> dh;
        return hn::DemoteTo(dh, hn::Mul(hn::PromoteTo(d, hn::LoadU(dh, share + i)), hn::Set(d, rise)));
    });
    hn::StoreU(depths, df, depth);
}

void elevate(std::span<const float> values, const LinearShare& profile, double rise, float* HWY_RESTRICT share,
             float* HWY_RESTRICT depth)
{
    vl::forLanes<float>(values.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto value = hn::LoadU(d, values.data() + i);
        const auto x = hn::Mul(hn::Sub(value, hn::Set(d, profile.lowest)), hn::Set(d, profile.scale));
        hn::StoreU(hn::IfThenElseZero(hn::Gt(value, hn::Zero(d)), x), d, share + i);
        raiseAt(d, share + i, rise, depth + i);
    });
}

void raise(std::span<const float> share, double rise, float* HWY_RESTRICT depth)
{
    vl::forLanes<float>(share.size(),
                        [&](auto d, std::size_t i) HWY_ATTR { raiseAt(d, share.data() + i, rise, depth + i); });
}

// ---- powers

/// The vectors' exponential and logarithm are off by at most 3 and 4 units in the last place. A share that is not 0 as
/// a float is exp(t) with t > -104, so the error of t makes up less than 2^-42 of it, and with the errors of the
/// library's functions less than 2^-41. Where a margin of 2^-40 on either side rounds to one float, the formula gives
/// that float; elsewhere, for about one value in ten thousand, the formula decides.
constexpr double kMargin = 0x1p-40;

/// @param inverse of the power; multiplying by it instead of dividing adds half a unit in the last place
/// @return whether the share of a vector of linear shares is certain everywhere; it is stored in any case
template<class D>
HWY_INLINE bool powerAt(D d, hn::Vec<hn::Rebind<float, D>> linear, double inverse, float* share)
{
    const hn::Rebind<float, D> df;
    const auto isBetween = hn::And(hn::Gt(linear, hn::Zero(df)), hn::Lt(linear, hn::Set(df, 1.0F)));
    const auto inside = hn::IfThenElse(isBetween, linear, hn::Set(df, 0.5F));
    const auto y = hn::Exp(d, hn::Mul(hn::Log(d, hn::PromoteTo(d, inside)), hn::Set(d, inverse)));
    const auto low = hn::DemoteTo(df, hn::Mul(y, hn::Set(d, 1.0 - kMargin)));
    const auto high = hn::DemoteTo(df, hn::Mul(y, hn::Set(d, 1.0 + kMargin)));
    hn::StoreU(hn::IfThenElse(isBetween, low, linear), df, share);
    return hn::AllTrue(df, hn::Eq(low, high));
}

void elevatePowers(std::span<const float> values, const LinearShare& profile, double power, float* HWY_RESTRICT share)
{
    const double inverse = 1.0 / power;
    vl::forLanes<double>(values.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const auto value = hn::LoadU(df, values.data() + i);
        const auto isThere = hn::Gt(value, hn::Zero(df));
        if (hn::AllFalse(df, isThere)) {
            hn::StoreU(hn::Zero(df), df, share + i);
            return;
        }
        const auto x = hn::Mul(hn::Sub(value, hn::Set(df, profile.lowest)), hn::Set(df, profile.scale));
        if (powerAt(d, hn::IfThenElseZero(isThere, x), inverse, share + i))
            return;
        for (std::size_t k = i; k < i + hn::Lanes(d); ++k)
            share[k] = values[k] > 0.0F ? powerShare((values[k] - profile.lowest) * profile.scale, power) : 0.0F;
    });
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(packPositive);
VL_EXPORT(roundAndClip);
VL_EXPORT(elevate);
VL_EXPORT(raise);
VL_EXPORT(elevatePowers);

void packPositive(std::span<const float> values, std::uint64_t* words)
{
    VL_CALL(packPositive)(values, words);
}

void roundAndClip(std::span<float> values, Rounding rounding, const std::uint64_t* isNear, PositiveSpan& span)
{
    VL_CALL(roundAndClip)(values, rounding, isNear, span);
}

void elevate(std::span<const float> values, const LinearShare& profile, double rise, float* share, float* depth)
{
    VL_CALL(elevate)(values, profile, rise, share, depth);
}

void raise(std::span<const float> share, double rise, float* depth)
{
    VL_CALL(raise)(share, rise, depth);
}

float powerShare(float linearShare, double power)
{
    if (!(linearShare > 0.0F && linearShare < 1.0F))
        return linearShare;
    return static_cast<float>(std::exp(std::log(static_cast<double>(linearShare)) / power));
}

void elevatePowers(std::span<const float> values, const LinearShare& profile, double power, float* share)
{
    VL_CALL(elevatePowers)(values, profile, power, share);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
