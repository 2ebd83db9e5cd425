// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Planes of floats and rows of bytes, vector by vector.
#include "render/ElevationKernels.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/ElevationKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/KernelLanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

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

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(markRow);
HWY_EXPORT(spreadRow);
HWY_EXPORT(uniteRows);
HWY_EXPORT(settleAny);
HWY_EXPORT(shareRow);
HWY_EXPORT(raiseRow);

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

} // namespace VolumeRowKernels
#endif // HWY_ONCE
