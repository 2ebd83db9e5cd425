// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blocks are anonymous mappings, and pages are moved by the system's call for resizing mappings. A range from which
// pages were moved is no longer the process's, and another thread may get it at once: so a block gives up each piece
// before it is moved.
#include "QuarvelBaseCore/private/UT_PageBlock.h"

#include "QuarvelBaseCore/UT_PixelMemory.h"

#include <algorithm>
#include <cassert>
#include <new>
#include <utility>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QUARVEL_UT_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QUARVEL_UT_IS_SANITIZED 1
#endif
#endif

#if defined(__linux__) && !defined(QUARVEL_UT_IS_SANITIZED)
#define QUARVEL_UT_MOVES_PAGES 1
#include <sys/mman.h>
#endif

namespace {

#if defined(QUARVEL_UT_MOVES_PAGES)

constexpr bool kIsNewMemoryZero = true;

// @param at where; null: anywhere
void* map(void* at, std::size_t bytes)
{
    const int flags = MAP_PRIVATE | MAP_ANONYMOUS | (at ? MAP_FIXED : 0);
    void* const start = ::mmap(at, bytes, PROT_READ | PROT_WRITE, flags, -1, 0);
    if (start == MAP_FAILED)
        throw std::bad_alloc();
    return start;
}

void unmap(void* start, std::size_t bytes) noexcept
{
    ::munmap(start, bytes);
}

// Where the pages cannot be moved, the range gets new ones, and those that were to be moved are freed.
void movePages(char* from, char* to, std::size_t bytes)
{
    if (::mremap(from, bytes, bytes, MREMAP_MAYMOVE | MREMAP_FIXED, to) != MAP_FAILED)
        return;
    unmap(from, bytes);
    map(to, bytes);
}

#else

constexpr bool kIsNewMemoryZero = false;
constexpr std::align_val_t kAligned{UT_PixelMemory::kAlignment};

void* map(void*, std::size_t bytes)
{
    return ::operator new(bytes, kAligned);
}

void unmap(void* start, std::size_t) noexcept
{
    ::operator delete(start, kAligned);
}

#endif

} // namespace

UT_PageBlock UT_PageBlock::make(std::size_t bytes)
{
    assert(bytes > 0 && bytes % kUnit == 0);
    return {map(nullptr, bytes), bytes, kIsNewMemoryZero ? 0 : bytes};
}

UT_PageBlock UT_PageBlock::adopt(void* start, std::size_t bytes) noexcept
{
    return {start, bytes, bytes};
}

UT_PageBlock::UT_PageBlock(UT_PageBlock&& other) noexcept
    : _start(std::exchange(other._start, nullptr))
    , _bytes(std::exchange(other._bytes, 0))
    , _zerosFrom(std::exchange(other._zerosFrom, 0))
    , _pieces(std::exchange(other._pieces, {}))
{}

UT_PageBlock& UT_PageBlock::operator=(UT_PageBlock&& other) noexcept
{
    std::swap(_start, other._start);
    std::swap(_bytes, other._bytes);
    std::swap(_zerosFrom, other._zerosFrom);
    std::swap(_pieces, other._pieces);
    return *this;
}

UT_PageBlock::~UT_PageBlock()
{
    if (_start)
        unmap(_start, _bytes);
}

void* UT_PageBlock::release() noexcept
{
    assert(!isJoined());
    _bytes = 0;
    return std::exchange(_start, nullptr);
}

#if defined(QUARVEL_UT_MOVES_PAGES)

UT_PageBlock UT_PageBlock::join(std::size_t bytes, std::vector<UT_PageBlock> others)
{
    UT_PageBlock joined = make(bytes);
    std::size_t filled = 0;
    for (UT_PageBlock& other : others)
        joined.takePages(other, filled);
    if (filled < bytes)
        joined._pieces.push_back(bytes - filled);
    joined._zerosFrom = filled;
    return joined;
}

void UT_PageBlock::takePages(UT_PageBlock& other, std::size_t& filled)
{
    const std::vector<std::size_t> pieces =
        other.isJoined() ? std::exchange(other._pieces, {}) : std::vector<std::size_t>{other._bytes};
    for (const std::size_t piece : pieces) {
        const std::size_t moved = std::min(piece, _bytes - filled);
        if (moved == 0)
            return;
        _pieces.push_back(moved);
        char* const from = static_cast<char*>(other._start);
        other._bytes -= moved;
        other._start = other._bytes == 0 ? nullptr : from + moved;
        movePages(from, static_cast<char*>(_start) + filled, moved);
        filled += moved;
    }
}

#else

UT_PageBlock UT_PageBlock::join(std::size_t bytes, std::vector<UT_PageBlock> others)
{
    others.clear();
    return make(bytes);
}

#endif
