// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sizes are rounded up to steps of an eighth of their power of two, so that pictures of nearly the same size, such as
// the frames of an animation, fit into each other's blocks. Without a block of the exact size, a larger one is lent;
// its address tells its true size when it comes back. Where none is large enough, a new block takes over the pages of
// as many smaller ones as fit into it, or frees them where pages cannot be moved, so that pictures of many sizes do not
// add up.
#include "QuarvelBaseCore/UT_PixelMemory.h"

#include "QuarvelBaseCore/UT_PixelZeros.h"
#include "QuarvelBaseCore/private/UT_PageBlock.h"

#include <algorithm>
#include <atomic>
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

// Of smaller blocks, nobody needs to know which held zeros; there are too many of them.
constexpr std::size_t kSmallestNoted = std::size_t{8} << 20;

struct IdleBlock
{
    UT_PageBlock block;
    std::uint64_t since = 0; ///< the number of blocks that had come back when this one did
};

/// The kept blocks, the longest idle one first, and the lent ones that address and size do not tell all about: they are
/// larger than their users asked for, joined, or large and new.
struct Idle
{
    // Reserves room for all blocks that can be kept, so that giving one back never allocates.
    Idle() { blocks.reserve(kLargestIdle / kSmallestKept); }

    std::mutex lock;
    std::vector<IdleBlock> blocks;
    std::vector<UT_PageBlock> lent;
    std::size_t bytes = 0;
    std::uint64_t given = 0; ///< how many blocks have come back
};

/// Null until the first block is asked for.
std::atomic<Idle*> madeIdle = nullptr;

/// Never destroyed: pixmaps that live until the end of the process still give their blocks back.
///
/// @throws std::bad_alloc the first time; what must not throw takes madeIdle
Idle& idle()
{
    static Idle& only = *[] {
        madeIdle = new Idle;
        return madeIdle.load();
    }();
    return only;
}

std::size_t roundedUp(std::size_t bytes)
{
    const std::size_t step = std::max(std::bit_floor(bytes) / 8, UT_PageBlock::kUnit);
    return (bytes + step - 1) / step * step;
}

void* lend(Idle& kept, UT_PageBlock block, std::size_t bytes)
{
    const bool isNew = block.zerosFrom() < block.bytes() && bytes >= kSmallestNoted;
    if (block.bytes() == bytes && !block.isJoined() && !isNew)
        return block.release();
    void* const start = block.start();
    kept.lent.push_back(std::move(block));
    return start;
}

/// The smallest block that is large enough; of several, the one given back last, whose bytes are most likely to be in
/// the cache.
std::vector<IdleBlock>::iterator bestOf(std::vector<IdleBlock>& blocks, std::size_t bytes)
{
    auto best = blocks.end();
    for (auto idle = blocks.begin(); idle != blocks.end(); ++idle) {
        const std::size_t size = idle->block.bytes();
        if (size >= bytes && size / kMostLent <= bytes && (best == blocks.end() || size <= best->block.bytes()))
            best = idle;
    }
    return best;
}

void* takeIdle(std::size_t bytes)
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    const auto found = bestOf(kept.blocks, bytes);
    if (found == kept.blocks.end())
        return nullptr;
    UT_PageBlock block = std::move(found->block);
    kept.blocks.erase(found);
    kept.bytes -= block.bytes();
    return lend(kept, std::move(block), bytes);
}

// Smaller blocks, the longest idle ones first: as many bytes of them as are about to be taken, or all.
std::vector<UT_PageBlock> removeSmaller(std::size_t bytes)
{
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    std::vector<UT_PageBlock> removed;
    removed.reserve(kept.blocks.size());
    std::size_t sum = 0;
    for (IdleBlock& idle : kept.blocks)
        if (idle.block.bytes() < bytes && sum < bytes) {
            sum += idle.block.bytes();
            removed.push_back(std::move(idle.block));
        }
    std::erase_if(kept.blocks, [](const IdleBlock& idle) { return idle.block.bytes() == 0; });
    kept.bytes -= sum;
    return removed;
}

void* takeNew(std::size_t bytes)
{
    std::vector<UT_PageBlock> smaller = removeSmaller(bytes);
    UT_PageBlock block = smaller.empty() ? UT_PageBlock::make(bytes) : UT_PageBlock::join(bytes, std::move(smaller));
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    return lend(kept, std::move(block), bytes);
}

/// The block with its true size, which is larger than given when the block was lent.
UT_PageBlock returned(Idle& kept, void* start, std::size_t bytes)
{
    const auto found = std::ranges::find(kept.lent, start, &UT_PageBlock::start);
    if (found == kept.lent.end())
        return UT_PageBlock::adopt(start, bytes);
    UT_PageBlock block = std::move(*found);
    kept.lent.erase(found);
    return block;
}

// Frees blocks that have been idle for too long, until this many bytes fit or no such block is left.
void makeRoom(Idle& kept, std::size_t bytes)
{
    const auto isForgotten = [&](const IdleBlock& idle) { return kept.given - idle.since > kForgottenAfter; };
    while (kept.bytes + bytes > kLargestIdle && !kept.blocks.empty() && isForgotten(kept.blocks.front())) {
        kept.bytes -= kept.blocks.front().block.bytes();
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
        return takeNew(rounded);
    } catch (const std::bad_alloc&) {
        trim();
        return takeNew(rounded);
    }
}

void give(void* block, std::size_t bytes) noexcept
{
    if (!block)
        return;
    if (bytes < kSmallestKept) {
        ::operator delete(block, kAligned);
        return;
    }
    Idle& kept = idle();
    const std::lock_guard guard(kept.lock);
    UT_PageBlock given = returned(kept, block, roundedUp(bytes));
    given.forgetZeros();
    ++kept.given;
    makeRoom(kept, given.bytes());
    if (kept.bytes + given.bytes() > kLargestIdle)
        return;
    kept.bytes += given.bytes();
    kept.blocks.push_back({std::move(given), kept.given});
}

void trim() noexcept
{
    Idle* const kept = madeIdle;
    if (!kept)
        return;
    const std::lock_guard guard(kept->lock);
    kept->blocks.clear();
    kept->bytes = 0;
}

std::size_t zerosFrom(const void* block, std::size_t bytes) noexcept
{
    Idle* const kept = madeIdle;
    if (!kept)
        return bytes;
    const std::lock_guard guard(kept->lock);
    const auto found = std::ranges::find(kept->lent, block, &UT_PageBlock::start);
    return found == kept->lent.end() ? bytes : std::min(found->zerosFrom(), bytes);
}

std::size_t idleBytes() noexcept
{
    Idle* const kept = madeIdle;
    if (!kept)
        return 0;
    const std::lock_guard guard(kept->lock);
    return kept->bytes;
}

} // namespace UT_PixelMemory
