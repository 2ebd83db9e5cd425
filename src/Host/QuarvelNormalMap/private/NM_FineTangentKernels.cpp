// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each vector register holds one channel of several pixels.
#include "QuarvelNormalMap/private/NM_FineTangentKernels.h"

#include "QuarvelNormalMap/NM_MapForm.h"

#include <array>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "QuarvelNormalMap/private/NM_FineTangentKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace NM_FineTangentKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template<class D>
using Samples = hn::Rebind<std::uint16_t, D>;

// Truncates values from 0 to less than 65536 to integers.
template<class D>
HWY_INLINE hn::Vec<Samples<D>> cut(D /*lanes*/, hn::Vec<D> values)
{
    return hn::DemoteTo(Samples<D>(), hn::ConvertTo(hn::RebindToSigned<D>(), values));
}

template<class D>
HWY_INLINE hn::Vec<Samples<D>> componentSamples(D d, hn::Vec<D> component, hn::Vec<D> threshold)
{
    const auto half = hn::Set(d, 0.5F);
    const auto fraction = hn::Add(hn::Mul(component, half), half);
    const auto clamped = hn::Min(hn::Max(fraction, hn::Zero(d)), hn::Set(d, 1.0F));
    return cut(d, hn::Add(hn::Mul(clamped, hn::Set(d, 65535.0F)), threshold));
}

template<class D>
HWY_INLINE hn::Vec<Samples<D>> coverageSamples(D d, hn::Vec<D> coverage)
{
    const auto one = hn::Set(d, 1.0F);
    // A coverage of NaN counts as 0.
    const auto clamped = hn::IfThenElseZero(hn::Gt(coverage, hn::Zero(d)), hn::Min(coverage, one));
    return cut(d, hn::Add(hn::Mul(clamped, hn::Set(d, 65535.0F)), hn::Set(d, 0.5F)));
}

// Pixels without a direction, which make up the surroundings of most drawings, face the viewer.
template<class D>
HWY_INLINE void storeFacing(D d, hn::Vec<D> alpha, std::uint16_t* samples)
{
    const auto& [x, y, z] = NM_kFacingSamples;
    const Samples<D> d16;
    hn::StoreInterleaved4(hn::Set(d16, x), hn::Set(d16, y), hn::Set(d16, z), coverageSamples(d, alpha), d16, samples);
}

template<class D>
HWY_INLINE void encode(D d, const float* pixels, const float* thresholds, float ySign, std::uint16_t* samples)
{
    hn::Vec<D> red;
    hn::Vec<D> green;
    hn::Vec<D> blue;
    hn::Vec<D> alpha;
    hn::LoadInterleaved4(d, pixels, red, green, blue, alpha);
    const auto zero = hn::Zero(d);
    const auto isMarked = hn::And(hn::Eq(red, zero), hn::Eq(green, zero));
    if (hn::AllTrue(d, isMarked)) {
        storeFacing(d, alpha, samples);
        return;
    }
    const auto one = hn::Set(d, 1.0F);
    const auto two = hn::Set(d, 2.0F);
    const auto x = hn::Sub(hn::Mul(two, red), one);
    const auto y = hn::Sub(hn::Mul(two, green), one);
    const auto flat = hn::Add(hn::Mul(x, x), hn::Mul(y, y));
    const auto upright = hn::Sqrt(hn::Max(zero, hn::Sub(one, flat)));
    const auto z = hn::IfThenElse(hn::Lt(blue, zero), hn::Neg(upright), upright);
    const auto length = hn::Sqrt(hn::Add(flat, hn::Mul(z, z)));
    const auto unitX = hn::Div(x, length);
    const auto unitY = hn::Div(y, length);
    const auto unitZ = hn::Div(z, length);

    const auto faces = hn::Set(d, NM_kFaces);
    const auto isDirection = hn::AndNot(isMarked, hn::Le(flat, hn::Set(d, 1.001F)));
    const auto isLevel =
        hn::And(hn::And(hn::Lt(hn::Abs(unitX), faces), hn::Lt(hn::Abs(unitY), faces)), hn::Gt(unitZ, zero));
    const auto leans = hn::AndNot(isLevel, isDirection);

    const auto threshold = hn::LoadU(d, thresholds);
    const auto half = hn::Set(d, 0.5F);
    const auto own = hn::IfThenElse(leans, threshold, half);
    const auto toX = hn::IfThenElseZero(leans, unitX);
    const auto toY = hn::IfThenElseZero(leans, hn::Mul(hn::Set(d, ySign), unitY));
    const auto toZ = hn::IfThenElse(leans, unitZ, one);
    hn::StoreInterleaved4(componentSamples(d, toX, own), componentSamples(d, toY, own), componentSamples(d, toZ, own),
                          coverageSamples(d, alpha), Samples<D>(), samples);
}

void encodeRow(std::span<const CEL_PixelRGBAFloat> pixels, std::span<const float> thresholds, float ySign,
               std::uint16_t* samples)
{
    static_assert(sizeof(CEL_PixelRGBAFloat) == 4 * sizeof(float));
    const auto* const source = reinterpret_cast<const float*>(pixels.data());
    VL::HWY_NAMESPACE::forLanes<float>(pixels.size(), [&](auto d, std::size_t i) {
        encode(d, source + 4 * i, thresholds.data() + i % 8, ySign, samples + 4 * i);
    });
}

} // namespace NM_FineTangentKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace NM_FineTangentKernels {

VL_EXPORT(encodeRow);

// The lanes of the longest vector of floats, plus eight for its place in the table.
constexpr std::size_t kThresholds = 64 + 8;

} // namespace NM_FineTangentKernels

void NM_encodeFineTangents(std::span<const CEL_PixelRGBAFloat> pixels, int x, int y, float ySign,
                           std::uint16_t* samples)
{
    using namespace NM_FineTangentKernels;
    std::array<float, kThresholds> thresholds;
    for (std::size_t i = 0; i < thresholds.size(); ++i)
        thresholds[i] = NM_ditherAt(x + static_cast<int>(i), y);
    VL_CALL(encodeRow)(pixels, thresholds, ySign, samples);
}
#endif
