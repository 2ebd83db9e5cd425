// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only where an object covers partly what is there already, normals have to be blended; the rest is taking pixels.
#include "render/CompositionKernels.h"

#include "render/NormalPlacement.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/CompositionKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/StreamLanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR
void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output, Stores)
{
    placeEach(coverage, object, blue, output);
}

void blend16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output)
{
    blendEach(coverage, object, blue, output);
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

/// placedPixel() (NormalPlacement.h) for whole vectors.
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

template<bool kPastCache>
void placeRow(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
              CEL_PixelRGBA16* HWY_RESTRICT output)
{
    const PixelTag d;
    const ChannelTag channels;
    const Placement placed(blue);
    std::size_t i = kPastCache ? std::min(coverage.size(), untilAligned(channels, output)) : 0;
    placeEach(coverage.first(i), object, blue, output);
    for (; i + hn::Lanes(d) <= coverage.size(); i += hn::Lanes(d)) {
        const auto alpha = hn::ShiftRight<48>(loadPixels(&coverage[i]));
        const auto covers = hn::Gt(alpha, hn::Zero(d));
        // The object's pixels need not come from memory where nothing is covered.
        auto pixels = hn::Zero(d);
        if (!hn::AllFalse(d, covers))
            pixels = hn::IfThenElseZero(covers, placed(alpha, object + i));
        if constexpr (kPastCache)
            hn::Stream(hn::BitCast(channels, pixels), channels, &output[i].r);
        else
            storePixels(pixels, output + i);
    }
    placeEach(coverage.subspan(i), object + i, blue, output + i);
}

void place16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
             CEL_PixelRGBA16* output, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        placeRow<true>(coverage, object, blue, output);
    else
        placeRow<false>(coverage, object, blue, output);
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
            blendEach(coverage.subspan(i, step), object + i, blue, output + i);
    }
    blendEach(coverage.subspan(i), object + i, blue, output + i);
}
#endif

#if HWY_TARGET == HWY_SCALAR
void placeFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                CEL_PixelRGBAFloat* output, Stores)
{
    placeEach(coverage, object, blue, output);
}
#else
// A pixel is 16 bytes of a vector.
template<bool kPastCache>
void placeFloatRow(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                   CEL_PixelRGBAFloat* HWY_RESTRICT output)
{
    constexpr std::size_t kChannels = 4;
    const hn::ScalableTag<float> d;
    const hn::RebindToUnsigned<decltype(d)> bits;
    alignas(16) constexpr std::uint32_t kAlpha[] = {0, 0, 0, ~0U};
    alignas(16) const std::uint32_t keptOfObject[] = {~0U, ~0U, blue.isElevation ? ~0U : 0, 0};
    const auto isAlpha = hn::MaskFromVec(hn::BitCast(d, hn::LoadDup128(bits, kAlpha)));
    const auto kept = hn::BitCast(d, hn::LoadDup128(bits, keptOfObject));
    const auto one = hn::Set(d, 1.0F);
    // The largest float that is not saturated yet.
    constexpr auto kBelow = static_cast<float>(VolumeTraits<CEL_PixelRGBAFloat>::kSaturated);
    static_assert(kBelow < VolumeTraits<CEL_PixelRGBAFloat>::kSaturated);
    const std::size_t step = hn::Lanes(d) / kChannels;
    std::size_t i = kPastCache ? std::min(coverage.size(), untilAligned(d, output)) : 0;
    placeEach(coverage.first(i), object, blue, output);
    for (; i + step <= coverage.size(); i += step) {
        const auto alpha = hn::Broadcast<3>(hn::LoadU(d, &coverage[i].r));
        const auto covers = hn::Gt(alpha, hn::Zero(d));
        auto pixels = hn::Zero(d);
        if (!hn::AllFalse(d, covers)) {
            const auto stored = hn::IfThenElse(hn::Gt(alpha, hn::Set(d, kBelow)), one, alpha);
            const auto placed = hn::IfThenElse(isAlpha, stored, hn::And(hn::LoadU(d, &object[i].r), kept));
            pixels = hn::IfThenElseZero(covers, placed);
        }
        if constexpr (kPastCache)
            hn::Stream(pixels, d, &output[i].r);
        else
            hn::StoreU(pixels, d, &output[i].r);
    }
    placeEach(coverage.subspan(i), object + i, blue, output + i);
}

void placeFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                CEL_PixelRGBAFloat* output, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        placeFloatRow<true>(coverage, object, blue, output);
    else
        placeFloatRow<false>(coverage, object, blue, output);
}
#endif

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(place16);
HWY_EXPORT(placeFloat);
HWY_EXPORT(blend16);

void placeNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(place16)(coverage, object, blue, output, stores);
}

void placeNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(placeFloat)(coverage, object, blue, output, stores);
}

void blendNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output)
{
    HWY_DYNAMIC_DISPATCH(blend16)(coverage, object, blue, output);
}

void blendNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output)
{
    blendEach(coverage, object, blue, output);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
