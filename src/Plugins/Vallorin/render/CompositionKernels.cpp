// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals have to be blended only where an object partly covers an earlier one; elsewhere pixels are copied.
#include "render/CompositionKernels.h"

#include "render/NormalPlacement.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/CompositionKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR
void placeNormals16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                    CEL_PixelRGBA16* output, Stores)
{
    placeNormalsOneByOne(coverage, object, blue, output);
}

void placeNormalsFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                       CEL_PixelRGBAFloat* output, Stores)
{
    placeNormalsOneByOne(coverage, object, blue, output);
}

void blendNormals16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                    CEL_PixelRGBA16* output)
{
    blendNormalsOneByOne(coverage, object, blue, output);
}

void blendNormalsFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                       CEL_PixelRGBAFloat* output)
{
    blendNormalsOneByOne(coverage, object, blue, output);
}
#else
// One lane per channel.
template<typename Pixel>
using ChannelTag = hn::ScalableTag<decltype(Pixel::r)>;

template<typename Pixel>
HWY_INLINE hn::Vec<ChannelTag<Pixel>> loadChannels(const Pixel* pixels)
{
    return hn::LoadU(ChannelTag<Pixel>(), &pixels->r);
}

/// placedPixel() (NormalPlacement.h) for a vector of 16-bit pixels: each is one 64-bit lane, with red in its lowest
/// bits.
class Placement16
{
public:
    using Tag = hn::ScalableTag<std::int64_t>;
    using Pixels = hn::Vec<Tag>;

    explicit Placement16(const Blue& blue)
        : _kept(hn::Set(Tag(), blue.isElevation ? 0x0000FFFFFFFFFFFF : 0x00000000FFFFFFFF))
        , _given(hn::Set(Tag(), blue.isElevation ? 0 : std::int64_t{static_cast<std::uint16_t>(blue.number)} << 32))
    {}

    HWY_INLINE Pixels placed(Pixels alpha, const CEL_PixelRGBA16* object) const
    {
        const auto stored = hn::IfThenElse(isSaturated(alpha), hn::Set(Tag(), 32767), alpha);
        return hn::Or(hn::Or(hn::And(load(object), _kept), _given), hn::ShiftLeft<48>(stored));
    }

    static HWY_INLINE Pixels load(const CEL_PixelRGBA16* pixels) { return hn::BitCast(Tag(), loadChannels(pixels)); }

    static HWY_INLINE Pixels alphaOf(Pixels pixels) { return hn::ShiftRight<48>(pixels); }

    static HWY_INLINE hn::Mask<Tag> isSaturated(Pixels alpha) { return hn::Gt(alpha, hn::Set(Tag(), 32439)); }

private:
    Pixels _kept;
    Pixels _given;
};

/// The same for float pixels: each is 16 bytes of a vector.
class PlacementFloat
{
public:
    using Tag = ChannelTag<CEL_PixelRGBAFloat>;
    using Pixels = hn::Vec<Tag>;

    explicit PlacementFloat(const Blue& blue)
        : _kept(repeated(~0U, ~0U, blue.isElevation ? ~0U : 0, 0)), _alpha(repeated(0, 0, 0, ~0U))
    {}

    HWY_INLINE Pixels placed(Pixels alpha, const CEL_PixelRGBAFloat* object) const
    {
        const auto stored = hn::IfThenElse(isSaturated(alpha), hn::Set(Tag(), 1.0F), alpha);
        return hn::Or(hn::And(stored, _alpha), hn::And(load(object), _kept));
    }

    static HWY_INLINE Pixels load(const CEL_PixelRGBAFloat* pixels) { return loadChannels(pixels); }

    static HWY_INLINE Pixels alphaOf(Pixels pixels) { return hn::Broadcast<3>(pixels); }

    static HWY_INLINE hn::Mask<Tag> isSaturated(Pixels alpha)
    {
        // The largest float that is not saturated.
        constexpr auto kBelow = static_cast<float>(VolumeTraits<CEL_PixelRGBAFloat>::kSaturated);
        static_assert(kBelow < VolumeTraits<CEL_PixelRGBAFloat>::kSaturated);
        return hn::Gt(alpha, hn::Set(Tag(), kBelow));
    }

private:
    static HWY_INLINE Pixels repeated(std::uint32_t r, std::uint32_t g, std::uint32_t b, std::uint32_t a)
    {
        alignas(16) const std::uint32_t bits[] = {r, g, b, a};
        return hn::BitCast(Tag(), hn::LoadDup128(hn::RebindToUnsigned<Tag>(), bits));
    }

    Pixels _kept; // the mask of the channels that come from the object
    Pixels _alpha;
};

/// The object's pixels where there is coverage, and zeros elsewhere. Where nothing is covered, they are not even
/// loaded.
template<class Placement, typename Pixel>
HWY_INLINE auto placedOrEmpty(const Placement& placement, const Pixel* coverage, const Pixel* object)
{
    const typename Placement::Tag d;
    const auto alpha = Placement::alphaOf(Placement::load(coverage));
    const auto covers = hn::Gt(alpha, hn::Zero(d));
    auto pixels = hn::Zero(d);
    if (!hn::AllFalse(d, covers))
        pixels = hn::IfThenElseZero(covers, placement.placed(alpha, object));
    return hn::BitCast(ChannelTag<Pixel>(), pixels);
}

template<class Placement, bool kPastCache, typename Pixel>
HWY_INLINE void placeNormalsRow(std::span<const Pixel> coverage, const Pixel* object, const Blue& blue,
                                Pixel* HWY_RESTRICT output)
{
    constexpr std::size_t kChannels = 4;
    const ChannelTag<Pixel> d;
    const std::size_t step = hn::Lanes(d) / kChannels;
    const Placement placement(blue);
    std::size_t i = kPastCache ? std::min(coverage.size(), vl::untilAligned(d, output)) : 0;
    placeNormalsOneByOne(coverage.first(i), object, blue, output);
    for (; i + step <= coverage.size(); i += step) {
        const auto pixels = placedOrEmpty(placement, &coverage[i], object + i);
        if constexpr (kPastCache)
            hn::Stream(pixels, d, &output[i].r);
        else
            hn::StoreU(pixels, d, &output[i].r);
    }
    placeNormalsOneByOne(coverage.subspan(i), object + i, blue, output + i);
}

template<class Placement, typename Pixel>
HWY_INLINE void placeNormalsOf(std::span<const Pixel> coverage, const Pixel* object, const Blue& blue, Pixel* output,
                               Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        placeNormalsRow<Placement, true>(coverage, object, blue, output);
    else
        placeNormalsRow<Placement, false>(coverage, object, blue, output);
}

void placeNormals16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                    CEL_PixelRGBA16* output, Stores stores)
{
    placeNormalsOf<Placement16>(coverage, object, blue, output, stores);
}

void placeNormalsFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                       CEL_PixelRGBAFloat* output, Stores stores)
{
    placeNormalsOf<PlacementFloat>(coverage, object, blue, output, stores);
}

template<class Placement, typename Pixel>
HWY_INLINE void blendNormalsRow(std::span<const Pixel> coverage, const Pixel* object, const Blue& blue,
                                Pixel* HWY_RESTRICT output)
{
    constexpr std::size_t kChannels = 4;
    const typename Placement::Tag d;
    const ChannelTag<Pixel> channels;
    const auto zero = hn::Zero(d);
    const std::size_t step = hn::Lanes(channels) / kChannels;
    const Placement placement(blue);
    std::size_t i = 0;
    for (; i + step <= coverage.size(); i += step) {
        const auto alpha = Placement::alphaOf(Placement::load(&coverage[i]));
        const auto covers = hn::Gt(alpha, zero);
        if (hn::AllFalse(d, covers))
            continue;
        const auto before = Placement::load(output + i);
        const auto isThere = hn::Gt(Placement::alphaOf(before), zero);
        const auto isBlended = hn::And(hn::AndNot(Placement::isSaturated(alpha), covers), isThere);
        if (!hn::AllFalse(d, isBlended)) {
            blendNormalsOneByOne(coverage.subspan(i, step), object + i, blue, output + i);
            continue;
        }
        const auto pixels = hn::IfThenElse(covers, placement.placed(alpha, object + i), before);
        hn::StoreU(hn::BitCast(channels, pixels), channels, &output[i].r);
    }
    blendNormalsOneByOne(coverage.subspan(i), object + i, blue, output + i);
}

void blendNormals16(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                    CEL_PixelRGBA16* output)
{
    blendNormalsRow<Placement16>(coverage, object, blue, output);
}

void blendNormalsFloat(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                       CEL_PixelRGBAFloat* output)
{
    blendNormalsRow<PlacementFloat>(coverage, object, blue, output);
}
#endif

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(placeNormals16);
VL_EXPORT(placeNormalsFloat);
VL_EXPORT(blendNormals16);
VL_EXPORT(blendNormalsFloat);

void placeNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output, Stores stores)
{
    VL_CALL(placeNormals16)(coverage, object, blue, output, stores);
}

void placeNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output, Stores stores)
{
    VL_CALL(placeNormalsFloat)(coverage, object, blue, output, stores);
}

void blendNormals(std::span<const CEL_PixelRGBA16> coverage, const CEL_PixelRGBA16* object, const Blue& blue,
                  CEL_PixelRGBA16* output)
{
    VL_CALL(blendNormals16)(coverage, object, blue, output);
}

void blendNormals(std::span<const CEL_PixelRGBAFloat> coverage, const CEL_PixelRGBAFloat* object, const Blue& blue,
                  CEL_PixelRGBAFloat* output)
{
    VL_CALL(blendNormalsFloat)(coverage, object, blue, output);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
