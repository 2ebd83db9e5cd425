// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only whole vectors at addresses that are multiples of their size are written past the cache.
#include "render/StreamKernels.h"

#include <algorithm>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/StreamKernels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/StreamLanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void clearPast(std::span<std::byte> bytes)
{
    const hn::ScalableTag<std::uint8_t> d;
    std::uint8_t* const to = reinterpret_cast<std::uint8_t*>(bytes.data());
    std::size_t i = std::min(bytes.size(), untilAligned(d, to));
    std::memset(to, 0, i);
    for (; i + hn::Lanes(d) <= bytes.size(); i += hn::Lanes(d))
        hn::Stream(hn::Zero(d), d, to + i);
    std::memset(to + i, 0, bytes.size() - i);
}

void copyPast(const std::byte* source, std::span<std::byte> bytes)
{
    const hn::ScalableTag<std::uint8_t> d;
    const auto* const from = reinterpret_cast<const std::uint8_t*>(source);
    std::uint8_t* const to = reinterpret_cast<std::uint8_t*>(bytes.data());
    std::size_t i = std::min(bytes.size(), untilAligned(d, to));
    std::memcpy(to, from, i);
    for (; i + hn::Lanes(d) <= bytes.size(); i += hn::Lanes(d))
        hn::Stream(hn::LoadU(d, from + i), d, to + i);
    std::memcpy(to + i, from + i, bytes.size() - i);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(clearPast);
HWY_EXPORT(copyPast);

Stores storesFor(std::int64_t bytes)
{
    // Of a larger picture the first rows have left the cache before the last ones are written.
    constexpr std::int64_t kLargestCached = std::int64_t{8} << 20;
    return bytes > kLargestCached ? Stores::PAST_CACHE : Stores::CACHED;
}

void clearBytes(std::span<std::byte> bytes, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        HWY_DYNAMIC_DISPATCH(clearPast)(bytes);
    else
        std::ranges::fill(bytes, std::byte{0});
}

void copyBytes(const std::byte* source, std::span<std::byte> bytes, Stores stores)
{
    if (stores == Stores::PAST_CACHE)
        HWY_DYNAMIC_DISPATCH(copyPast)(source, bytes);
    else
        std::copy_n(source, bytes.size(), bytes.data());
}

void finishStores()
{
    hwy::FlushStream();
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
