// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Huffman's algorithm with two queues: leaves in the order of their counts, and inner nodes, which arise in the order
// of theirs. Only the number of codes of each length is taken from the tree; the rarest symbols get the longest codes.
#include "QuarvelImageIO/private/IIO_HuffmanCode.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <numeric>

namespace {

constexpr std::size_t kMostSymbols = 512;
constexpr std::size_t kLongestCode = 15;

// A symbol that occurs, packed so that plain numbers are sorted: by count, then by symbol.
using Leaf = std::uint64_t;
constexpr int kSymbolBits = 9;

std::size_t symbolOf(Leaf leaf)
{
    return static_cast<std::size_t>(leaf & (kMostSymbols - 1));
}

// How many codes there are of each length.
using LengthCounts = std::array<std::uint32_t, kMostSymbols>;

// Joins the two rarest nodes until one is left, then goes back down from it.
LengthCounts treeDepths(std::span<const Leaf> leaves)
{
    const std::size_t inner = leaves.size() - 1;
    std::array<std::uint64_t, kMostSymbols> weights{};
    std::array<std::size_t, 2 * kMostSymbols> parents{}; // leaves, then inner nodes
    std::size_t nextLeaf = 0;
    std::size_t nextInner = 0;
    for (std::size_t made = 0; made < inner; ++made)
        for (int child = 0; child < 2; ++child) {
            const bool takesLeaf = nextLeaf < leaves.size() &&
                                   (nextInner == made || leaves[nextLeaf] >> kSymbolBits <= weights[nextInner]);
            weights[made] += takesLeaf ? leaves[nextLeaf] >> kSymbolBits : weights[nextInner];
            parents[takesLeaf ? nextLeaf++ : leaves.size() + nextInner++] = made;
        }

    std::array<std::size_t, kMostSymbols> innerDepths{};
    for (std::size_t i = inner - 1; i-- > 0;)
        innerDepths[i] = innerDepths[parents[leaves.size() + i]] + 1;
    LengthCounts counts{};
    for (std::size_t i = 0; i < leaves.size(); ++i)
        ++counts[innerDepths[parents[i]] + 1];
    return counts;
}

// Shortens codes to the limit. Codes of too many bits take up more of the code space than there is when they are cut;
// that is given back by lengthening, one bit at a time, the longest of the codes that can still grow.
void limitLengths(LengthCounts& counts, std::size_t limit)
{
    counts[limit] += std::accumulate(counts.begin() + static_cast<std::ptrdiff_t>(limit) + 1, counts.end(), 0U);
    std::uint64_t space = 0; // in units of a code of the limit's length
    for (std::size_t length = 1; length <= limit; ++length)
        space += std::uint64_t{counts[length]} << (limit - length);
    for (const std::uint64_t whole = std::uint64_t{1} << limit; space > whole;) {
        std::size_t length = limit - 1;
        while (counts[length] == 0)
            --length;
        // One code becomes the parent of two: itself and one that was at the limit.
        --counts[length];
        counts[length + 1] += 2;
        --counts[limit];
        --space;
    }
}

} // namespace

void IIO_findCodeLengths(std::span<const std::uint32_t> counts, int limit, std::span<std::uint8_t> lengths)
{
    assert(counts.size() <= kMostSymbols && counts.size() == lengths.size());
    std::array<Leaf, kMostSymbols> storage;
    std::size_t used = 0;
    for (std::size_t symbol = 0; symbol < counts.size(); ++symbol)
        if (counts[symbol] > 0)
            storage[used++] = Leaf{counts[symbol]} << kSymbolBits | symbol;
    const std::span<Leaf> leaves(storage.data(), used);
    assert(used >= 2);
    std::ranges::sort(leaves);

    LengthCounts perLength = treeDepths(leaves);
    limitLengths(perLength, static_cast<std::size_t>(limit));
    std::ranges::fill(lengths, std::uint8_t{0});
    std::size_t next = 0;
    for (auto length = static_cast<std::size_t>(limit); length > 0; --length)
        for (std::uint32_t i = 0; i < perLength[length]; ++i)
            lengths[symbolOf(leaves[next++])] = static_cast<std::uint8_t>(length);
}

void IIO_findCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes)
{
    std::array<std::uint32_t, kLongestCode + 1> perLength{};
    for (const std::uint8_t length : lengths)
        ++perLength[length];
    perLength[0] = 0;
    std::array<std::uint32_t, kLongestCode + 1> next{};
    for (std::size_t length = 1; length <= kLongestCode; ++length)
        next[length] = (next[length - 1] + perLength[length - 1]) << 1U;

    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        std::uint32_t code = lengths[symbol] > 0 ? next[lengths[symbol]]++ : 0;
        std::uint32_t turned = 0;
        for (int bit = 0; bit < lengths[symbol]; ++bit, code >>= 1U)
            turned = turned << 1U | (code & 1U);
        codes[symbol] = static_cast<std::uint16_t>(turned);
    }
}
