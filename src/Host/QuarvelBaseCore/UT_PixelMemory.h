// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_PixelMemory: where the pixels of pixmaps and pictures live. The system hands out fresh memory page by page, which
// for a large picture costs more than writing it. So large blocks are kept for a while after they are given back, and
// the next picture that fits takes the smallest that is large enough; new memory replaces kept blocks that are too
// small.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <cstddef>

namespace UT_PixelMemory {

/// Every block starts at a multiple of this many bytes.
inline constexpr std::size_t kAlignment = 64;

/// At most this many bytes are kept, about what a frame of a dozen large objects in 4K needs. When that is full,
/// further blocks are freed: frames need the same blocks in the same order, so the older ones are needed sooner, unless
/// they have been idle for long. None are kept under an address sanitizer, which could not see the use of a freed block
/// otherwise.
#ifdef __SANITIZE_ADDRESS__
inline constexpr std::size_t kLargestIdle = 0;
#else
inline constexpr std::size_t kLargestIdle = std::size_t{512} << 20;
#endif

/// Smaller blocks are not worth keeping.
inline constexpr std::size_t kSmallestKept = std::size_t{256} << 10;

/// An uninitialised block of at least this many bytes; bytes must not be 0. Safe from any thread.
///
/// @throws std::bad_alloc when there is no memory for it
QUARVELBASECORE_EXPORT void* take(std::size_t bytes);

/// Gives back a block that was taken with this many bytes. Safe from any thread.
QUARVELBASECORE_EXPORT void give(void* block, std::size_t bytes) noexcept;

/// Frees the kept blocks.
QUARVELBASECORE_EXPORT void trim() noexcept;

/// The number of bytes that are kept now.
QUARVELBASECORE_EXPORT std::size_t idleBytes() noexcept;

} // namespace UT_PixelMemory
