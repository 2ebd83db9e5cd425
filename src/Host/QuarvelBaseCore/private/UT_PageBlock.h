// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_PageBlock: a block of memory that consists of the system's pages. A fresh page costs more than writing it, because
// the system clears it and notes it down. Moving a page that the process has already to another address costs a
// hundredth of that, so a large block can take over the pages of smaller ones that nobody needs.
//
// Only Linux can move pages. Elsewhere, and under the address and thread sanitizers, which follow no page that is
// moved, blocks come from the C++ library.
#pragma once

#include <cstddef>
#include <vector>

/// Owns its memory, which is uninitialised and aligned to 64 bytes.
class UT_PageBlock
{
public:
    /// The sizes of all blocks are multiples of this, and the sizes of pages divide it.
    static constexpr std::size_t kUnit = std::size_t{64} << 10;

    /// A new block.
    ///
    /// @throws std::bad_alloc
    static UT_PageBlock make(std::size_t bytes);

    /// A new block from the pages of others, the first block's first. What they have too much is freed; what they lack
    /// is new.
    ///
    /// @throws std::bad_alloc; the others' memory is freed even so
    static UT_PageBlock join(std::size_t bytes, std::vector<UT_PageBlock> others);

    /// The block that release() ended.
    static UT_PageBlock adopt(void* start, std::size_t bytes) noexcept;

    /// No memory.
    UT_PageBlock() = default;
    UT_PageBlock(UT_PageBlock&& other) noexcept;
    UT_PageBlock& operator=(UT_PageBlock&& other) noexcept;
    ~UT_PageBlock();

    void* start() const { return _start; }
    std::size_t bytes() const { return _bytes; }

    /// Whether address and size do not tell all about the block, so that it cannot be released.
    bool isJoined() const { return !_pieces.empty(); }

    /// From which byte on the block holds zeros, if nobody has written to it; bytes() where that is not known.
    std::size_t zerosFrom() const { return _zerosFrom; }
    /// Says that somebody may have written to it.
    void forgetZeros() { _zerosFrom = _bytes; }

    /// Leaves the memory to the caller. @return its address
    void* release() noexcept;

private:
    UT_PageBlock(void* start, std::size_t bytes, std::size_t zerosFrom)
        : _start(start), _bytes(bytes), _zerosFrom(zerosFrom)
    {}

    void takePages(UT_PageBlock& other, std::size_t& filled);

    void* _start = nullptr;
    std::size_t _bytes = 0;
    std::size_t _zerosFrom = 0;
    /// Of a joined block, the sizes of the parts that were mapped at once, from its start to its end: the system moves
    /// pages of one part at a time.
    std::vector<std::size_t> _pieces;
};
