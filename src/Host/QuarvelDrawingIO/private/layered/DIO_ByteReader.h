// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ByteReader: reads numbers and blocks from the bytes of an untrusted file. Reading past the end gives zeros and
// empty blocks and marks the reader as failed, so that callers check once at the end of a block.
#pragma once

#include <cstdint>
#include <span>

/// The order of the bytes of a number.
enum class DIO_ByteOrder
{
    LITTLE,
    BIG
};

/// Reads a block of bytes from its start to its end. The bytes must live longer.
template<DIO_ByteOrder order>
class DIO_ByteReader
{
public:
    using Bytes = std::span<const std::uint8_t>;

    explicit DIO_ByteReader(Bytes bytes) : _rest(bytes) {}

    bool hasFailed() const { return _failed; }
    std::size_t left() const { return _rest.size(); }

    std::uint8_t u8() { return static_cast<std::uint8_t>(number(1)); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u32() { return number(4); }
    std::int16_t i16() { return static_cast<std::int16_t>(u16()); }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }

    /// The next bytes; none where fewer are left.
    Bytes bytes(std::size_t count)
    {
        if (count > _rest.size()) {
            _failed = true;
            _rest = {};
            return {};
        }
        const Bytes piece = _rest.first(count);
        _rest = _rest.subspan(count);
        return piece;
    }

    void skip(std::size_t count) { (void)bytes(count); }

    /// A reader of the next bytes alone.
    DIO_ByteReader block(std::size_t count) { return DIO_ByteReader(bytes(count)); }

    /// All that is left.
    Bytes rest() { return bytes(_rest.size()); }

private:
    std::uint32_t number(std::size_t count)
    {
        std::uint32_t value = 0;
        std::size_t place = 0;
        for (const std::uint8_t byte : bytes(count)) {
            const std::size_t shift = order == DIO_ByteOrder::LITTLE ? place : count - 1 - place;
            value |= static_cast<std::uint32_t>(byte) << (8 * shift);
            ++place;
        }
        return value;
    }

    Bytes _rest;
    bool _failed = false;
};
