// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only whole vectors at aligned addresses are written past the cache.
#include "render/StreamKernels.h"

#include <algorithm>
#include <array>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/StreamKernels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

// 16 bytes of equal pixels.
template<typename Pixel>
struct alignas(16) Repeated
{
    static constexpr std::size_t kCount = 16 / sizeof(Pixel);

    explicit Repeated(const Pixel& pixel) { std::ranges::fill(pixels, pixel); }

    std::array<Pixel, kCount> pixels;
};

// One lane per channel. The baseline's vectors have one lane and hold no whole pixel.
template<typename Pixel>
using ChannelTag = hn::ScalableTag<decltype(Pixel::r)>;

// Stores pixels: whole vectors of vectorAt(i), and the remaining pixels of pixelAt(i).
template<typename Pixel, typename VectorAt, typename PixelAt>
HWY_INLINE void storePixelsOf(std::span<Pixel> pixels, bool pastCache, const VectorAt& vectorAt, const PixelAt& pixelAt)
{
    constexpr std::size_t kChannels = 4;
    const ChannelTag<Pixel> d;
    const std::size_t step = hn::Lanes(d) / kChannels;
    const std::size_t before = step > 0 && pastCache ? std::min(pixels.size(), vl::untilAligned(d, pixels.data())) : 0;
    std::size_t i = 0;
    for (; i < before; ++i)
        pixels[i] = pixelAt(i);
    for (; step > 0 && i + step <= pixels.size(); i += step) {
        if (pastCache)
            hn::Stream(vectorAt(i), d, &pixels[i].r);
        else
            hn::StoreU(vectorAt(i), d, &pixels[i].r);
    }
    for (; i < pixels.size(); ++i)
        pixels[i] = pixelAt(i);
}

template<typename Pixel>
void fillPixelsOf(std::span<Pixel> pixels, const Pixel& pixel, bool pastCache)
{
    const Repeated<Pixel> repeated(pixel);
    const auto all = hn::LoadDup128(ChannelTag<Pixel>(), &repeated.pixels[0].r);
    storePixelsOf(
        pixels, pastCache, [&](std::size_t) HWY_ATTR { return all; }, [&](std::size_t) HWY_ATTR { return pixel; });
}

template<typename Pixel>
void copyPixelsOf(const Pixel* source, std::span<Pixel> pixels)
{
    storePixelsOf(
        pixels, true, [&](std::size_t i) HWY_ATTR { return hn::LoadU(ChannelTag<Pixel>(), &source[i].r); },
        [&](std::size_t i) HWY_ATTR { return source[i]; });
}

void fillPixels16(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, bool pastCache)
{
    fillPixelsOf(pixels, pixel, pastCache);
}

void fillPixelsFloat(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, bool pastCache)
{
    fillPixelsOf(pixels, pixel, pastCache);
}

void copyPixels16(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels)
{
    copyPixelsOf(source, pixels);
}

void copyPixelsFloat(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels)
{
    copyPixelsOf(source, pixels);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(fillPixels16);
VL_EXPORT(fillPixelsFloat);
VL_EXPORT(copyPixels16);
VL_EXPORT(copyPixelsFloat);

Stores storesFor(std::int64_t bytes, Reader reader)
{
    // How much of a picture a large processor's third-level cache may still hold, and how much a small one's.
    constexpr std::int64_t kReadSoon = std::int64_t{20} << 20;
    constexpr std::int64_t kReadLater = std::int64_t{8} << 20;
    return bytes > (reader == Reader::SOON ? kReadSoon : kReadLater) ? Stores::PAST_CACHE : Stores::CACHED;
}

void fillPixels(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, Stores stores)
{
    VL_CALL(fillPixels16)(pixels, pixel, stores == Stores::PAST_CACHE);
}

void fillPixels(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, Stores stores)
{
    VL_CALL(fillPixelsFloat)(pixels, pixel, stores == Stores::PAST_CACHE);
}

void copyPixels(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        VL_CALL(copyPixels16)(source, pixels);
    else
        std::copy_n(source, pixels.size(), pixels.begin());
}

void copyPixels(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        VL_CALL(copyPixelsFloat)(source, pixels);
    else
        std::copy_n(source, pixels.size(), pixels.begin());
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
