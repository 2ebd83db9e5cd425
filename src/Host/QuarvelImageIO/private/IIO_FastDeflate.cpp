// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each block of steps gets codes of its own. Its length in bits is known before it is written, so that the room for it
// is made once.
#include "QuarvelImageIO/private/IIO_FastDeflate.h"

#include "QuarvelImageIO/private/IIO_DeflateSteps.h"
#include "QuarvelImageIO/private/IIO_HuffmanCode.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cassert>

namespace {

constexpr int kLongestCode = 15;
constexpr int kLongestHeaderCode = 7;

// Readers of old refuse a code of a single symbol, so a second one is given a code that is never used.
void makeTwoOccur(std::span<std::uint32_t> counts)
{
    for (std::size_t symbol = 0; std::ranges::count_if(counts, [](auto count) { return count > 0; }) < 2; ++symbol)
        counts[symbol] = std::max(counts[symbol], 1U);
}

class BitWriter
{
public:
    explicit BitWriter(std::vector<std::uint8_t>& output) : _output(output), _used(output.size()) {}

    // Room for so many bits more.
    void reserve(std::uint64_t bits)
    {
        const std::size_t needed = _used + static_cast<std::size_t>(bits / 8) + 2 * sizeof(_bits);
        if (_output.size() < needed)
            _output.resize(std::max(needed, _output.size() + _output.size() / 2));
    }

    // At most 56 bits between two calls of flush().
    void put(std::uint32_t bits, int count)
    {
        _bits |= std::uint64_t{bits} << _count;
        _count += count;
    }

    void flush()
    {
        qToLittleEndian(_bits, _output.data() + _used);
        const int whole = _count & ~7;
        _used += static_cast<std::size_t>(whole) / 8;
        _bits >>= whole;
        _count -= whole;
    }

    void finish()
    {
        _count = (_count + 7) & ~7;
        flush();
        _output.resize(_used);
    }

    // An empty block of bytes as they are, which reaches the border of a byte.
    void writeEmptyBlock()
    {
        reserve(64);
        put(0, 3);
        _count = (_count + 7) & ~7;
        put(0xffff0000U, 32);
        flush();
    }

private:
    std::vector<std::uint8_t>& _output;
    std::size_t _used;
    std::uint64_t _bits = 0;
    int _count = 0;
};

// A prefix code in use.
template<std::size_t kSymbols>
struct Code
{
    std::array<std::uint8_t, kSymbols> lengths{};
    std::array<std::uint16_t, kSymbols> codes{};

    void build(std::span<std::uint32_t> counts, int limit)
    {
        makeTwoOccur(counts);
        IIO_findCodeLengths(counts, limit, lengths);
        IIO_findCodes(lengths, codes);
    }
    void put(BitWriter& writer, std::size_t symbol) const { writer.put(codes[symbol], lengths[symbol]); }
    std::size_t usedSymbols(std::size_t least) const
    {
        std::size_t used = kSymbols;
        while (used > least && lengths[used - 1] == 0)
            --used;
        return used;
    }
};

// The lengths of the codes, themselves pressed: a length, or a repetition of the one before (16) or of zero (17, 18).
class LengthsHeader
{
public:
    void add(std::span<const std::uint8_t> lengths)
    {
        for (std::size_t i = 0; i < lengths.size();) {
            std::size_t end = i + 1;
            while (end < lengths.size() && lengths[end] == lengths[i])
                ++end;
            addRun(lengths[i], end - i);
            i = end;
        }
    }

    void write(BitWriter& writer)
    {
        constexpr std::array<std::uint8_t, 19> kOrder = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                         11, 4,  12, 3, 13, 2, 14, 1, 15};
        _code.build(_counts, kLongestHeaderCode);
        std::size_t shown = kOrder.size();
        while (shown > 4 && _code.lengths[kOrder[shown - 1]] == 0)
            --shown;
        writer.put(static_cast<std::uint32_t>(shown - 4), 4);
        for (std::size_t i = 0; i < shown; ++i) {
            writer.put(_code.lengths[kOrder[i]], 3);
            writer.flush();
        }
        for (std::size_t i = 0; i < _size; ++i) {
            _code.put(writer, _items[i].symbol);
            writer.put(_items[i].extra, _items[i].extraBits);
            writer.flush();
        }
    }

    // No header is longer.
    static constexpr std::uint64_t kMostBits = 64 + 19 * 3 + (286 + 30) * (kLongestHeaderCode + 7);

private:
    void addRun(std::uint8_t length, std::size_t count)
    {
        if (length > 0) {
            addItem({length, 0, 0});
            for (--count; count >= 3;) {
                const std::size_t part = std::min<std::size_t>(count, 6);
                addItem({16, static_cast<std::uint32_t>(part - 3), 2});
                count -= part;
            }
        }
        while (length == 0 && count >= 3) {
            const std::size_t part = std::min<std::size_t>(count, 138);
            if (part < 11)
                addItem({17, static_cast<std::uint32_t>(part - 3), 3});
            else
                addItem({18, static_cast<std::uint32_t>(part - 11), 7});
            count -= part;
        }
        for (; count > 0; --count)
            addItem({length, 0, 0});
    }

    void addItem(const IIO_DeflateNumber& item)
    {
        ++_counts[item.symbol];
        _items[_size++] = item;
    }

    std::array<IIO_DeflateNumber, 286 + 30> _items;
    std::size_t _size = 0;
    std::array<std::uint32_t, 19> _counts{};
    Code<19> _code;
};

// The two codes of a block.
class BlockCodes
{
public:
    BlockCodes(std::span<std::uint32_t> symbolCounts, std::span<std::uint32_t> distanceCounts)
    {
        _symbols.build(symbolCounts, kLongestCode);
        _distances.build(distanceCounts, kLongestCode);
        for (std::size_t symbol = 0; symbol < symbolCounts.size(); ++symbol)
            _bits += std::uint64_t{symbolCounts[symbol]} * _symbols.lengths[symbol];
        for (std::size_t symbol = 0; symbol < distanceCounts.size(); ++symbol)
            _bits += std::uint64_t{distanceCounts[symbol]} * _distances.lengths[symbol];
    }

    void writeBlock(std::span<const IIO_DeflateStep> steps, const std::uint8_t* bytes, bool isLast,
                    BitWriter& writer) const
    {
        // A length has at most 5 bits behind its symbol, a distance 13.
        writer.reserve(LengthsHeader::kMostBits + _bits + 18 * steps.size());
        writeHeader(isLast, writer);
        for (const IIO_DeflateStep& step : steps) {
            writeLiterals({bytes, step.literals}, writer);
            if (step.length > 0)
                writeCopy(step, writer);
            bytes += step.literals + step.length;
        }
        _symbols.put(writer, IIO_DeflateSteps::kEndOfBlock);
        writer.flush();
    }

private:
    void writeHeader(bool isLast, BitWriter& writer) const
    {
        constexpr std::uint32_t kOwnCodes = 2;
        const std::size_t symbols = _symbols.usedSymbols(257);
        const std::size_t distances = _distances.usedSymbols(1);
        writer.put(isLast ? 1 : 0, 1);
        writer.put(kOwnCodes, 2);
        writer.put(static_cast<std::uint32_t>(symbols - 257), 5);
        writer.put(static_cast<std::uint32_t>(distances - 1), 5);
        LengthsHeader lengths;
        lengths.add(std::span(_symbols.lengths).first(symbols));
        lengths.add(std::span(_distances.lengths).first(distances));
        lengths.write(writer);
    }

    void writeLiterals(std::span<const std::uint8_t> bytes, BitWriter& writer) const
    {
        std::size_t i = 0;
        for (; i + 3 <= bytes.size(); i += 3) {
            _symbols.put(writer, bytes[i]);
            _symbols.put(writer, bytes[i + 1]);
            _symbols.put(writer, bytes[i + 2]);
            writer.flush();
        }
        for (; i < bytes.size(); ++i)
            _symbols.put(writer, bytes[i]);
        writer.flush();
    }

    void writeCopy(const IIO_DeflateStep& step, BitWriter& writer) const
    {
        const IIO_DeflateNumber length = IIO_DeflateNumber::ofLength(step.length);
        const IIO_DeflateNumber distance = IIO_DeflateNumber::ofDistance(step.distance);
        _symbols.put(writer, length.symbol);
        writer.put(length.extra, length.extraBits);
        _distances.put(writer, distance.symbol);
        writer.put(distance.extra, distance.extraBits);
        writer.flush();
    }

    Code<286> _symbols;
    Code<30> _distances;
    std::uint64_t _bits = 0;
};

} // namespace

IIO_FastDeflate::IIO_FastDeflate() : _steps(std::make_unique<IIO_DeflateSteps>()) {}
IIO_FastDeflate::~IIO_FastDeflate() = default;

void IIO_FastDeflate::press(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& output)
{
    BitWriter writer(output);
    std::size_t done = 0;
    _steps->begin();
    do {
        const std::size_t end = _steps->findBlock(bytes, done);
        const BlockCodes codes(_steps->symbolCounts(), _steps->distanceCounts());
        codes.writeBlock(_steps->steps(), bytes.data() + done, isLast && end == bytes.size(), writer);
        done = end;
    } while (done < bytes.size());
    if (!isLast)
        writer.writeEmptyBlock();
    writer.finish();
}
