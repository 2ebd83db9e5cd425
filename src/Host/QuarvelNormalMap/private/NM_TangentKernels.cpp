// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A pixel is a lane of 64 bits with red in the lowest ones, and so are its four samples. Directions are computed in
// double precision with the same operations as in NM_Direction.h. Most vector registers hold only pixels that face the
// viewer, which skip this computation.
#include "QuarvelNormalMap/private/NM_TangentKernels.h"

#include <algorithm>
#include <array>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "QuarvelNormalMap/private/NM_TangentKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace NM_TangentKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Doubles = hn::ScalableTag<double>;
using Words = hn::Rebind<std::uint64_t, Doubles>;
using Ints = hn::Rebind<std::int32_t, Doubles>;
using Halves = hn::Rebind<std::uint32_t, Doubles>;

// The stored code of a component that is exactly 0.
constexpr std::int32_t kZeroCode = 16384;

HWY_INLINE auto fractionsToSamples(hn::Vec<Doubles> fractions)
{
    const Doubles d;
    const auto clamped = hn::Min(hn::Max(fractions, hn::Zero(d)), hn::Set(d, 1.0));
    return hn::DemoteTo(Ints(), hn::Add(hn::Mul(clamped, hn::Set(d, 65535.0)), hn::Set(d, 0.5)));
}

HWY_INLINE auto componentsToSamples(hn::Vec<Doubles> components)
{
    const auto half = hn::Set(Doubles(), 0.5);
    return fractionsToSamples(hn::Add(hn::Mul(components, half), half));
}

HWY_INLINE auto coverageToSamples(hn::Vec<Ints> coverage)
{
    const Ints d;
    const auto doubled = hn::ShiftLeft<1>(hn::Max(coverage, hn::Zero(d)));
    // The mask is -1 in lanes where the comparison holds, so subtracting it adds 1.
    return hn::Sub(doubled, hn::VecFromMask(d, hn::Gt(coverage, hn::Set(d, kZeroCode - 1))));
}

HWY_INLINE auto decoded(hn::Vec<Ints> codes)
{
    const Doubles d;
    const auto doubled = hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, codes));
    return hn::Sub(hn::Div(doubled, hn::Set(d, 32767.0)), hn::Set(d, 1.0));
}

// Samples of red, green and blue.
struct Colours
{
    hn::Vec<Ints> red;
    hn::Vec<Ints> green;
    hn::Vec<Ints> blue;
};

HWY_INLINE Colours facingViewer()
{
    const auto middle = hn::Set(Ints(), 32768);
    return {middle, middle, hn::Set(Ints(), 65535)};
}

HWY_INLINE Colours encoded(hn::Vec<Ints> red, hn::Vec<Ints> green, hn::Vec<Ints> blue, double ySign)
{
    const Doubles d;
    const auto zero = hn::Zero(d);
    const auto one = hn::Set(d, 1.0);
    auto x = decoded(red);
    auto y = decoded(green);
    const auto xx = hn::Mul(x, x);
    const auto yy = hn::Mul(y, y);
    auto z = hn::Sqrt(hn::Max(zero, hn::Sub(hn::Sub(one, xx), yy)));
    z = hn::IfThenElse(hn::Lt(hn::PromoteTo(d, blue), zero), hn::Neg(z), z);
    const auto isDirection = hn::Le(hn::Add(xx, yy), hn::Set(d, 1.001));

    const auto zeroCode = hn::Set(d, double{kZeroCode});
    x = hn::IfThenElse(hn::Eq(hn::PromoteTo(d, red), zeroCode), zero, x);
    y = hn::IfThenElse(hn::Eq(hn::PromoteTo(d, green), zeroCode), zero, y);
    const auto length = hn::Sqrt(hn::Add(hn::Add(hn::Mul(x, x), hn::Mul(y, y)), hn::Mul(z, z)));
    x = hn::IfThenElse(isDirection, hn::Div(x, length), zero);
    y = hn::IfThenElse(isDirection, hn::Div(y, length), zero);
    z = hn::IfThenElse(isDirection, hn::Div(z, length), one);
    return {componentsToSamples(x), componentsToSamples(hn::Mul(hn::Set(d, ySign), y)), componentsToSamples(z)};
}

// Packs two samples into each half of a word.
HWY_INLINE auto paired(hn::Vec<Ints> lower, hn::Vec<Ints> upper)
{
    return hn::BitCast(Halves(), hn::Or(lower, hn::ShiftLeft<16>(upper)));
}

HWY_INLINE hn::Vec<Words> encodedPixels(hn::Vec<Words> pixels, double ySign)
{
    const Ints d;
    const auto lower = hn::BitCast(d, hn::TruncateTo(Halves(), pixels));
    const auto upper = hn::BitCast(d, hn::TruncateTo(Halves(), hn::ShiftRight<32>(pixels)));
    const auto red = hn::ShiftRight<16>(hn::ShiftLeft<16>(lower));
    const auto green = hn::ShiftRight<16>(lower);
    const auto blue = hn::ShiftRight<16>(hn::ShiftLeft<16>(upper));

    const auto isFlat = hn::And(hn::Eq(lower, hn::Set(d, kZeroCode << 16 | kZeroCode)), hn::Gt(blue, hn::Set(d, -1)));
    const bool allFace = hn::AllTrue(d, hn::Or(isFlat, hn::Eq(lower, hn::Zero(d))));
    const Colours colours = allFace ? facingViewer() : encoded(red, green, blue, ySign);
    const auto coverage = coverageToSamples(hn::ShiftRight<16>(upper));
    const Words words;
    return hn::Or(hn::PromoteTo(words, paired(colours.red, colours.green)),
                  hn::ShiftLeft<32>(hn::PromoteTo(words, paired(colours.blue, coverage))));
}

void encodeRow(std::span<const CEL_PixelRGBA16> pixels, double ySign, std::uint16_t* samples)
{
    const Words words;
    const std::size_t lanes = hn::Lanes(words);
    static_assert(sizeof(CEL_PixelRGBA16) == sizeof(std::uint64_t));
    const auto* const source = reinterpret_cast<const std::uint64_t*>(pixels.data());
    auto* const target = reinterpret_cast<std::uint64_t*>(samples);
    std::size_t i = 0;
    for (; i + lanes <= pixels.size(); i += lanes)
        hn::StoreU(encodedPixels(hn::LoadU(words, source + i), ySign), words, target + i);
    if (i == pixels.size())
        return;
    std::array<std::uint64_t, hn::MaxLanes(words)> rest{};
    std::copy_n(source + i, pixels.size() - i, rest.begin());
    hn::StoreU(encodedPixels(hn::LoadU(words, rest.data()), ySign), words, rest.data());
    std::copy_n(rest.begin(), pixels.size() - i, target + i);
}

} // namespace NM_TangentKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace NM_TangentKernels {

VL_EXPORT(encodeRow);

} // namespace NM_TangentKernels

void NM_encodeTangents(std::span<const CEL_PixelRGBA16> pixels, double ySign, std::uint16_t* samples)
{
    using namespace NM_TangentKernels;
    VL_CALL(encodeRow)(pixels, ySign, samples);
}
#endif
