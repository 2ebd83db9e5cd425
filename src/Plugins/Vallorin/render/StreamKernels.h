// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing past the cache: a large picture is written without being read first, and leaves in the cache what is still
// wanted there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// How pixels are written.
enum class Stores
{
    CACHED,
    PAST_CACHE ///< finishStores() before anyone else reads them
};

/// What suits a picture of so many bytes that is written from one end to the other.
Stores storesFor(std::int64_t bytes);

/// Writes zeros, or what is at source and nothing else overlaps.
void clearBytes(std::span<std::byte> bytes, Stores stores);
void copyBytes(const std::byte* source, std::span<std::byte> bytes, Stores stores);

template<typename Pixel>
void clearPixels(std::span<Pixel> pixels, Stores stores)
{
    clearBytes(std::as_writable_bytes(pixels), stores);
}

/// Makes what was written past the cache visible to other threads, in the order of what follows.
void finishStores();

} // namespace VolumeRowKernels
