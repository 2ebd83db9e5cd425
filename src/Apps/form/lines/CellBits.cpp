// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/lines/CellBits.h"

#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <bit>

namespace {

using Word = CellBits::Word;

constexpr int kBits = 64;

// The first place from a place on whose bit has a value; at or behind the last bit where there is none.
int nextBit(std::span<const Word> row, int from, bool value)
{
    const Word flip = value ? Word{0} : ~Word{0};
    auto word = static_cast<std::size_t>(from / kBits);
    if (word >= row.size())
        return from;
    Word bits = (row[word] ^ flip) & (~Word{0} << (from % kBits));
    while (bits == 0 && ++word < row.size())
        bits = row[word] ^ flip;
    return static_cast<int>(word) * kBits + (bits != 0 ? std::countr_zero(bits) : 0);
}

// One bit for each of eight bytes: whether its highest bit is set after a number was added to its lower seven bits, or
// was before.
Word bitsOf(const std::uint8_t* bytes, Word added)
{
    constexpr Word kHighest = 0x8080808080808080;
    constexpr Word kGathering = 0x0102040810204080; // moves bit 8 * i to bit 56 + i
    Word word = 0;
    for (int i = 0; i < 8; ++i)
        word |= Word{bytes[i]} << (8 * i);
    const Word reached = (((word & ~kHighest) + added) | word) & kHighest;
    return (reached >> 7) * kGathering >> 56;
}

// Marks the cells beside marked ones.
void widen(std::span<Word> row)
{
    Word before = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const Word own = row[i];
        const Word after = i + 1 < row.size() ? row[i + 1] : 0;
        row[i] = own | own << 1 | own >> 1 | before >> (kBits - 1) | after << (kBits - 1);
        before = own;
    }
}

// How far to either side a path reaches in a row that lies so many rows away.
int reachAcross(int rows, int longest)
{
    int across = 0;
    const auto length = [&](int cells) {
        const auto [shorter, longer] = std::minmax(cells, rows);
        return kDiagonalStep * shorter + kPixelStep * (longer - shorter);
    };
    while (length(across + 1) <= longest)
        ++across;
    return across;
}

} // namespace

CellBits::CellBits(int width, int height)
    : _width(width)
    , _height(height)
    , _stride(static_cast<std::size_t>((width + kBits - 1) / kBits))
    , _words(_stride * static_cast<std::size_t>(height))
{}

void CellBits::mark(const PixelRun& run)
{
    const std::span<Word> words = row(run.row);
    const auto first = static_cast<std::size_t>(run.from / kBits);
    const auto last = static_cast<std::size_t>((run.to - 1) / kBits);
    const Word fromFirst = ~Word{0} << (run.from % kBits);
    const Word upToLast = ~Word{0} >> (kBits - 1 - (run.to - 1) % kBits);
    if (first == last) {
        words[first] |= fromFirst & upToLast;
        return;
    }
    words[first] |= fromFirst;
    std::ranges::fill(words.subspan(first + 1, last - first - 1), ~Word{0});
    words[last] |= upToLast;
}

void CellBits::markFrom(int y, std::span<const std::uint8_t> values, unsigned limit)
{
    const std::span<Word> words = row(y);
    const Word added = (128U - limit) * Word{0x0101010101010101};
    constexpr std::size_t kBytes = sizeof(Word);
    std::size_t x = 0;
    for (; x + kBytes <= values.size(); x += kBytes)
        words[x / kBits] |= bitsOf(&values[x], added) << (x % kBits);
    for (; x < values.size(); ++x)
        words[x / kBits] |= Word{values[x] >= limit} << (x % kBits);
}

std::vector<PixelRun> CellBits::runs(bool ofMarked) const
{
    std::vector<PixelRun> found;
    for (int y = 0; y < _height; ++y)
        for (int from = nextBit(row(y), 0, ofMarked); from < _width;) {
            const int to = std::min(nextBit(row(y), from, !ofMarked), _width);
            found.push_back({y, from, to});
            from = nextBit(row(y), to, ofMarked);
        }
    return found;
}

void CellBits::remove(const CellBits& others)
{
    for (std::size_t i = 0; i < _words.size(); ++i)
        _words[i] &= ~others._words[i];
}

// Rows that lie farther away are reached less far to the sides, so the marks widen while the rows come nearer.
void CellBits::grow(int longest)
{
    CellBits wide = *this;
    int across = 0;
    for (int rows = longest / kPixelStep; rows >= 0; --rows) {
        for (const int wanted = reachAcross(rows, longest); across < wanted; ++across)
            for (int y = 0; y < _height; ++y)
                widen(wide.row(y));
        const std::size_t apart = std::min(offset(rows), _words.size());
        for (std::size_t i = apart; i < _words.size(); ++i)
            _words[i] |= wide._words[i - apart];
        for (std::size_t i = apart; i < _words.size(); ++i)
            _words[i - apart] |= wide._words[i];
    }
}
