// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Nearly all pixels are covered fully or not at all, so that whole vectors of them need no arithmetic.
#include "QuarvelCelCore/private/CELVEC_RowKernels.h"

#include "QuarvelCelCore/private/CEL_PixelOver.h"

#include <cstddef>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "QuarvelCelCore/private/CELVEC_RowKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace CELVEC_RowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

constexpr std::size_t kChannels = 4;

HWY_INLINE void closePixel(CEL_PixelRGBAFloat& pixel)
{
    if (pixel.a > 0.0F && pixel.a < 1.0F) {
        const float twice = 2.0F - pixel.a;
        pixel = {pixel.r * twice, pixel.g * twice, pixel.b * twice, pixel.a * twice};
    }
}

void closeRow(std::span<CEL_PixelRGBAFloat> row)
{
    for (CEL_PixelRGBAFloat& pixel : row)
        closePixel(pixel);
}

void convertTo16(const std::uint16_t* HWY_RESTRICT painted, std::span<CEL_PixelRGBA16> row)
{
    auto* const to = reinterpret_cast<std::uint16_t*>(row.data());
    vl::forLanes<std::uint16_t>(row.size() * kChannels, [&](auto d, std::size_t i) HWY_ATTR {
        hn::StoreU(hn::ShiftRight<1>(hn::LoadU(d, painted + i)), d, to + i);
    });
}

template<class D>
HWY_INLINE hn::Vec<D> asFloats(D d, const std::uint16_t* painted)
{
    const hn::RebindToSigned<D> whole;
    const hn::Rebind<std::uint16_t, D> narrow;
    return hn::Div(hn::ConvertTo(d, hn::PromoteTo(whole, hn::LoadU(narrow, painted))), hn::Set(d, 65535.0F));
}

void convertToFloat(const std::uint16_t* HWY_RESTRICT painted, std::span<CEL_PixelRGBAFloat> row)
{
    float* const to = &row.data()->r;
    vl::forLanes<float>(row.size() * kChannels,
                        [&](auto d, std::size_t i) HWY_ATTR { hn::StoreU(asFloats(d, painted + i), d, to + i); });
}

#if HWY_TARGET == HWY_SCALAR
void convertToClosed(const std::uint16_t* HWY_RESTRICT painted, std::span<CEL_PixelRGBAFloat> row)
{
    convertToFloat(painted, row);
    closeRow(row);
}
#else
void convertToClosed(const std::uint16_t* HWY_RESTRICT painted, std::span<CEL_PixelRGBAFloat> row)
{
    const hn::ScalableTag<float> d;
    const auto one = hn::Set(d, 1.0F);
    const std::size_t step = hn::Lanes(d) / kChannels;
    std::size_t i = 0;
    for (; i + step <= row.size(); i += step) {
        const auto pixels = asFloats(d, painted + kChannels * i);
        const auto alpha = hn::Broadcast<3>(pixels);
        const auto isPartly = hn::And(hn::Gt(alpha, hn::Zero(d)), hn::Lt(alpha, one));
        const auto closed = hn::Mul(pixels, hn::Sub(hn::Set(d, 2.0F), alpha));
        hn::StoreU(hn::IfThenElse(isPartly, closed, pixels), d, &row[i].r);
    }
    convertToFloat(painted + kChannels * i, row.subspan(i));
    closeRow(row.subspan(i));
}
#endif

void takeAlphasOfRow(const std::uint16_t* HWY_RESTRICT painted, std::span<std::uint16_t> alphas)
{
    for (std::size_t i = 0; i < alphas.size(); ++i)
        alphas[i] = painted[kChannels * i + 3];
}

void convertAlphasTo16(const std::uint16_t* HWY_RESTRICT painted, std::span<std::int16_t> alphas)
{
    for (std::size_t i = 0; i < alphas.size(); ++i)
        alphas[i] = static_cast<std::int16_t>(painted[i] >> 1);
}

void convertAlphasToFloat(const std::uint16_t* HWY_RESTRICT painted, std::span<float> alphas)
{
    vl::forLanes<float>(alphas.size(), [&](auto d, std::size_t i)
                                           HWY_ATTR { hn::StoreU(asFloats(d, painted + i), d, alphas.data() + i); });
}

void convertAlphasToClosed(const std::uint16_t* HWY_RESTRICT painted, std::span<float> alphas)
{
    vl::forLanes<float>(alphas.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto alpha = asFloats(d, painted + i);
        const auto isPartly = hn::And(hn::Gt(alpha, hn::Zero(d)), hn::Lt(alpha, hn::Set(d, 1.0F)));
        const auto closed = hn::Mul(alpha, hn::Sub(hn::Set(d, 2.0F), alpha));
        hn::StoreU(hn::IfThenElse(isPartly, closed, alpha), d, alphas.data() + i);
    });
}

// The coverage of a painted pixel alone.
HWY_INLINE CEL_PixelRGBA16 halvedAlpha(const std::uint16_t* painted, std::size_t pixel)
{
    return {0, 0, 0, static_cast<std::int16_t>(painted[kChannels * pixel + 3] >> 1)};
}

void paintOverRow(const std::uint16_t* HWY_RESTRICT painted, std::span<std::int16_t> coverage)
{
    for (std::size_t i = 0; i < coverage.size(); ++i)
        if (const CEL_PixelRGBA16 above = halvedAlpha(painted, i); above.a > 0)
            coverage[i] = CEL_WholeBelow(above)(above.a, coverage[i]);
}

void cutOutRow(const std::uint16_t* HWY_RESTRICT painted, std::span<std::int16_t> coverage)
{
    for (std::size_t i = 0; i < coverage.size(); ++i)
        if (const CEL_PixelRGBA16 above = halvedAlpha(painted, i); above.a > 0)
            coverage[i] = CEL_WholeBelow(above)(0, coverage[i]);
}

} // namespace CELVEC_RowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace CELVEC_RowKernels {

VL_EXPORT(convertTo16);
VL_EXPORT(convertToFloat);
VL_EXPORT(convertToClosed);
VL_EXPORT(closeRow);
VL_EXPORT(takeAlphasOfRow);
VL_EXPORT(convertAlphasTo16);
VL_EXPORT(convertAlphasToFloat);
VL_EXPORT(convertAlphasToClosed);
VL_EXPORT(paintOverRow);
VL_EXPORT(cutOutRow);

void convert(const std::uint16_t* painted, Coverage, std::span<CEL_PixelRGBA16> row)
{
    VL_CALL(convertTo16)(painted, row);
}

void convert(const std::uint16_t* painted, Coverage coverage, std::span<CEL_PixelRGBAFloat> row)
{
    if (coverage == Coverage::CLOSED)
        VL_CALL(convertToClosed)(painted, row);
    else
        VL_CALL(convertToFloat)(painted, row);
}

void close(std::span<CEL_PixelRGBAFloat> row)
{
    VL_CALL(closeRow)(row);
}

void takeAlphas(const std::uint16_t* painted, std::span<std::uint16_t> alphas)
{
    VL_CALL(takeAlphasOfRow)(painted, alphas);
}

void convertAlphas(const std::uint16_t* painted, std::span<std::int16_t> alphas)
{
    VL_CALL(convertAlphasTo16)(painted, alphas);
}

void convertAlphas(const std::uint16_t* painted, Coverage coverage, std::span<float> alphas)
{
    if (coverage == Coverage::CLOSED)
        VL_CALL(convertAlphasToClosed)(painted, alphas);
    else
        VL_CALL(convertAlphasToFloat)(painted, alphas);
}

void paintOver(const std::uint16_t* painted, std::span<std::int16_t> coverage)
{
    VL_CALL(paintOverRow)(painted, coverage);
}

void cutOut(const std::uint16_t* painted, std::span<std::int16_t> coverage)
{
    VL_CALL(cutOutRow)(painted, coverage);
}

} // namespace CELVEC_RowKernels
#endif // HWY_ONCE
