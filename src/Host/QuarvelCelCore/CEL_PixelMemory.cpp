// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sizes are rounded up to steps of an eighth of their power of two, so that pictures of nearly the same size, as the
// frames of an animation have them, fit into each other's blocks.
#include "QuarvelCelCore/CEL_PixelMemory.h"

#include <algorithm>
#include <bit>
#include <mutex>
#include <new>
#include <vector>

namespace CEL_PixelMemory {

namespace {

constexpr std::align_val_t kAligned{kAlignment};

struct Block
{
    void* start;
    std::size_t bytes;
};

/// The kept blocks, the longest idle one first.
struct Idle
{
    // Room for all that can be kept, so that giving back never needs memory.
    Idle() { blocks.reserve(kLargestIdle / kSmallestKept); }

    std::mutex lock;
    std::vector<Block> blocks;
    std::size_t bytes = 0;
};

/// Never destroyed: pixmaps that live until the end of the process still give their blocks back.
Idle& idle()
{
    static Idle& only = *new Idle;
    return only;
}

std::size_t roundedUp(std::size_t bytes)
{
    const std::size_t step = std::max(std::bit_floor(bytes) / 8, std::size_t{1});
    return (bytes + step - 1) / step * step;
}

void free(const Block& block)
{
    ::operator delete(block.start, kAligned);
}

/// The block of this size that was given back last, whose bytes are most likely to be in the cache.
void* takeIdle(std::size_t bytes)
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    const auto found = std::ranges::find(kept.blocks.rbegin(), kept.blocks.rend(), bytes,
                                         [](const Block& block) { return block.bytes; });
    if (found == kept.blocks.rend())
        return nullptr;
    void* const start = found->start;
    kept.blocks.erase(std::next(found).base());
    kept.bytes -= bytes;
    return start;
}

void makeRoom(Idle& kept, std::size_t bytes)
{
    while (!kept.blocks.empty() && kept.bytes + bytes > kLargestIdle) {
        kept.bytes -= kept.blocks.front().bytes;
        free(kept.blocks.front());
        kept.blocks.erase(kept.blocks.begin());
    }
}

} // namespace

void* take(std::size_t bytes)
{
    if (bytes < kSmallestKept)
        return ::operator new(bytes, kAligned);
    const std::size_t rounded = roundedUp(bytes);
    if (void* const block = takeIdle(rounded))
        return block;
    try {
        return ::operator new(rounded, kAligned);
    } catch (const std::bad_alloc&) {
        trim();
        return ::operator new(rounded, kAligned);
    }
}

void give(void* block, std::size_t bytes) noexcept
{
    const Block given{block, bytes < kSmallestKept ? bytes : roundedUp(bytes)};
    if (!block)
        return;
    if (bytes < kSmallestKept || given.bytes > kLargestIdle) {
        free(given);
        return;
    }
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    makeRoom(kept, given.bytes);
    kept.blocks.push_back(given);
    kept.bytes += given.bytes;
}

void trim() noexcept
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    for (const Block& block : kept.blocks)
        free(block);
    kept.blocks.clear();
    kept.bytes = 0;
}

std::size_t idleBytes() noexcept
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    return kept.bytes;
}

} // namespace CEL_PixelMemory
