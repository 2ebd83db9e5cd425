// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only whole vectors at addresses that are multiples of their size are written past the cache.
#include "render/StreamKernels.h"

#include <algorithm>
#include <array>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/StreamKernels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/StreamLanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// 16 bytes of equal pixels.
template<typename Pixel>
struct alignas(16) Repeated
{
    static constexpr std::size_t kCount = 16 / sizeof(Pixel);

    explicit Repeated(const Pixel& pixel) { std::ranges::fill(pixels, pixel); }

    std::array<Pixel, kCount> pixels;
};

template<class V, class D, typename Channel>
HWY_INLINE void storeVector(V vector, D d, Channel* to, bool pastCache)
{
    if (pastCache)
        hn::Stream(vector, d, to);
    else
        hn::StoreU(vector, d, to);
}

// A channel to a lane. A vector of the plainest instruction set, of one lane, holds no whole pixel.
template<typename Pixel>
using ChannelTag = hn::ScalableTag<decltype(Pixel::r)>;

template<typename Pixel>
void fillRow(std::span<Pixel> pixels, const Pixel& pixel, bool pastCache)
{
    const ChannelTag<Pixel> d;
    constexpr std::size_t kChannels = 4;
    const std::size_t step = hn::Lanes(d) / kChannels;
    std::size_t i = 0;
    if (step > 0) {
        i = pastCache ? std::min(pixels.size(), untilAligned(d, pixels.data())) : 0;
        std::fill_n(pixels.begin(), i, pixel);
        const Repeated<Pixel> repeated(pixel);
        const auto all = hn::LoadDup128(d, &repeated.pixels[0].r);
        for (; i + step <= pixels.size(); i += step)
            storeVector(all, d, &pixels[i].r, pastCache);
    }
    std::ranges::fill(pixels.subspan(i), pixel);
}

template<typename Pixel>
void copyRow(const Pixel* source, std::span<Pixel> pixels)
{
    const ChannelTag<Pixel> d;
    constexpr std::size_t kChannels = 4;
    const std::size_t step = hn::Lanes(d) / kChannels;
    std::size_t i = 0;
    if (step > 0) {
        i = std::min(pixels.size(), untilAligned(d, pixels.data()));
        std::copy_n(source, i, pixels.begin());
        for (; i + step <= pixels.size(); i += step)
            hn::Stream(hn::LoadU(d, &source[i].r), d, &pixels[i].r);
    }
    std::ranges::copy(std::span(source, pixels.size()).subspan(i), pixels.begin() + static_cast<std::ptrdiff_t>(i));
}

void fill16(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, bool pastCache)
{
    fillRow(pixels, pixel, pastCache);
}

void fillFloat(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, bool pastCache)
{
    fillRow(pixels, pixel, pastCache);
}

void copy16(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels)
{
    copyRow(source, pixels);
}

void copyFloat(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels)
{
    copyRow(source, pixels);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(fill16);
HWY_EXPORT(fillFloat);
HWY_EXPORT(copy16);
HWY_EXPORT(copyFloat);

Stores storesFor(std::int64_t bytes, Reader reader)
{
    // What a large processor's cache of the third level may still hold of a picture, and what a small one's.
    constexpr std::int64_t kReadSoon = std::int64_t{20} << 20;
    constexpr std::int64_t kReadLater = std::int64_t{8} << 20;
    return bytes > (reader == Reader::SOON ? kReadSoon : kReadLater) ? Stores::PAST_CACHE : Stores::CACHED;
}

void fillPixels(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(fill16)(pixels, pixel, stores == Stores::PAST_CACHE);
}

void fillPixels(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(fillFloat)(pixels, pixel, stores == Stores::PAST_CACHE);
}

void copyPixels(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        HWY_DYNAMIC_DISPATCH(copy16)(source, pixels);
    else
        std::copy_n(source, pixels.size(), pixels.begin());
}

void copyPixels(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        HWY_DYNAMIC_DISPATCH(copyFloat)(source, pixels);
    else
        std::copy_n(source, pixels.size(), pixels.begin());
}

void finishStores()
{
    hwy::FlushStream();
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
