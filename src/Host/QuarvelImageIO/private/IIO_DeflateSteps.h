// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The first half of deflate (RFC 1951): what repeats becomes a copy of what stood before. The second half is to give
// short codes to the bytes, lengths and distances that come often, for which this counts them.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// So many bytes as they are, and then a copy of `length` bytes that stand `distance` bytes before; at the end of a
/// piece both may be 0.
struct IIO_DeflateStep
{
    std::uint32_t literals;
    std::uint16_t length;   ///< 6 to 258
    std::uint16_t distance; ///< 1 to 32768
};

/// A length or a distance as deflate writes it: a symbol, and bits behind it as they are.
struct IIO_DeflateNumber
{
    std::uint32_t symbol;
    std::uint32_t extra;
    int extraBits;

    /// @param length 3 to 258; symbols from 257
    static IIO_DeflateNumber ofLength(std::size_t length);
    /// @param distance 1 to 32768; symbols from 0
    static IIO_DeflateNumber ofDistance(std::size_t distance);
};

/// Finds the steps of a piece, block by block.
class IIO_DeflateSteps
{
public:
    static constexpr std::size_t kEndOfBlock = 256;

    IIO_DeflateSteps();

    /// Forgets the piece before.
    void begin();

    /// Finds the steps of one block.
    ///
    /// @param bytes the whole piece
    /// @param from  where the block begins
    /// @return where it ends, at the latest with the piece
    std::size_t findBlock(std::span<const std::uint8_t> bytes, std::size_t from);

    /// The block's.
    std::span<const IIO_DeflateStep> steps() const { return _steps; }
    /// How often the symbols of bytes, the end and lengths occur in the block, and those of distances.
    std::span<std::uint32_t> symbolCounts() { return _symbolCounts; }
    std::span<std::uint32_t> distanceCounts() { return _distanceCounts; }

private:
    struct Copy
    {
        std::size_t length = 0;
        std::size_t distance = 0;
    };

    std::int32_t& lastPlaceOf(std::uint64_t sixBytes);
    Copy findCopy(std::span<const std::uint8_t> bytes, std::size_t at);
    void countBytes(std::span<const std::uint8_t> bytes);
    void addStep(std::size_t literals, const Copy& copy);

    std::vector<IIO_DeflateStep> _steps;
    std::vector<std::int32_t> _lastPlaces; // where six bytes of a hash were last seen
    std::array<std::uint32_t, 286> _symbolCounts{};
    std::array<std::uint32_t, 30> _distanceCounts{};
};
