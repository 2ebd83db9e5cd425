// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sizes are rounded up to steps of an eighth of their power of two, so that pictures of nearly the same size, such as
// the frames of an animation, fit into each other's blocks. Without a block of the exact size, a larger one is lent;
// its address tells its true size when it comes back. Where none is large enough, as many bytes of smaller blocks are
// freed as are taken from the system, so that pictures of many sizes do not add up.
#include "QuarvelBaseCore/UT_PixelMemory.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <mutex>
#include <new>
#include <vector>

namespace UT_PixelMemory {

namespace {

constexpr std::align_val_t kAligned{kAlignment};

// A block that stayed unused while this many others came back, a frame's worth or more, belongs to work that is over.
constexpr std::uint64_t kForgottenAfter = 200;

// A block is lent to pictures of at least this part of its size.
constexpr std::size_t kMostLent = 8;

struct Block
{
    void* start;
    std::size_t bytes;
    std::uint64_t idleSince = 0; ///< the number of blocks that had come back when this one did
};

/// The kept blocks, the longest idle one first, and the lent ones, which are larger than their users asked for.
struct Idle
{
    // Reserves room for all blocks that can be kept, so that giving one back never allocates.
    Idle() { blocks.reserve(kLargestIdle / kSmallestKept); }

    std::mutex lock;
    std::vector<Block> blocks;
    std::vector<Block> lent;
    std::size_t bytes = 0;
    std::uint64_t given = 0; ///< how many blocks have come back
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

/// The smallest block that is large enough; of several, the one given back last, whose bytes are most likely to be in
/// the cache.
std::vector<Block>::iterator bestOf(std::vector<Block>& blocks, std::size_t bytes)
{
    auto best = blocks.end();
    for (auto block = blocks.begin(); block != blocks.end(); ++block)
        if (block->bytes >= bytes && block->bytes / kMostLent <= bytes &&
            (best == blocks.end() || block->bytes <= best->bytes))
            best = block;
    return best;
}

void* takeIdle(std::size_t bytes)
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    const auto found = bestOf(kept.blocks, bytes);
    if (found == kept.blocks.end())
        return nullptr;
    const Block block = *found;
    if (block.bytes != bytes)
        kept.lent.push_back(block);
    kept.blocks.erase(found);
    kept.bytes -= block.bytes;
    return block.start;
}

// Frees smaller blocks, the longest idle ones first: as many bytes of them as are about to be taken, or all.
void exchangeSmaller(std::size_t bytes)
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    std::size_t freed = 0;
    std::erase_if(kept.blocks, [&](const Block& block) {
        if (block.bytes >= bytes || freed >= bytes)
            return false;
        freed += block.bytes;
        free(block);
        return true;
    });
    kept.bytes -= freed;
}

/// The block with its true size, which is larger than given when the block was lent.
Block returned(Idle& kept, const Block& given)
{
    const auto found = std::ranges::find(kept.lent, given.start, [](const Block& block) { return block.start; });
    if (found == kept.lent.end())
        return given;
    const Block block = *found;
    kept.lent.erase(found);
    return block;
}

// Frees blocks that have been idle for too long, until this many bytes fit or no such block is left.
void makeRoom(Idle& kept, std::size_t bytes)
{
    const auto isForgotten = [&](const Block& block) { return kept.given - block.idleSince > kForgottenAfter; };
    while (kept.bytes + bytes > kLargestIdle && !kept.blocks.empty() && isForgotten(kept.blocks.front())) {
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
    exchangeSmaller(rounded);
    try {
        return ::operator new(rounded, kAligned);
    } catch (const std::bad_alloc&) {
        trim();
        return ::operator new(rounded, kAligned);
    }
}

void give(void* block, std::size_t bytes) noexcept
{
    if (!block)
        return;
    if (bytes < kSmallestKept) {
        free({block, bytes});
        return;
    }
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    Block given = returned(kept, {block, roundedUp(bytes)});
    given.idleSince = ++kept.given;
    makeRoom(kept, given.bytes);
    if (kept.bytes + given.bytes > kLargestIdle) {
        free(given);
        return;
    }
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

} // namespace UT_PixelMemory
