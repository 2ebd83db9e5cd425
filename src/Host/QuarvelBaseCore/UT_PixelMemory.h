// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_PixelMemory: where the pixels of pixmaps and pictures live. A system hands out fresh memory page by page, which
// for a large picture costs more than writing it; so blocks of large pictures are kept for a while when they are given
// back, and the next picture of about that size, or of more than half of it, takes one of them.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <cstddef>

namespace UT_PixelMemory {

/// Every block starts at a multiple of this many bytes.
inline constexpr std::size_t kAlignment = 64;

/// At most so many bytes are kept for later, about what a frame of a dozen large objects in 4K needs. What comes when
/// that is full is freed: frames want the same blocks in the same order, so the older ones are wanted sooner, unless
/// nobody wanted them for long. None are kept where an address sanitizer is to see that no freed block is used.
#ifdef __SANITIZE_ADDRESS__
inline constexpr std::size_t kLargestIdle = 0;
#else
inline constexpr std::size_t kLargestIdle = std::size_t{512} << 20;
#endif

/// Smaller blocks are not worth keeping.
inline constexpr std::size_t kSmallestKept = std::size_t{256} << 10;

/// A block of at least so many bytes, more than none. It holds anything. Safe from any thread.
///
/// @throws std::bad_alloc without memory for it
QUARVELBASECORE_EXPORT void* take(std::size_t bytes);

/// Gives back a block that was taken with so many bytes. Safe from any thread.
QUARVELBASECORE_EXPORT void give(void* block, std::size_t bytes) noexcept;

/// Frees what is kept.
QUARVELBASECORE_EXPORT void trim() noexcept;

/// The bytes that are kept now.
QUARVELBASECORE_EXPORT std::size_t idleBytes() noexcept;

} // namespace UT_PixelMemory
