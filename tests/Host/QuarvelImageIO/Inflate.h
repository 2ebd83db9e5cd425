// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Decompresses zlib streams with Qt's reader, which checks every bit and the checksum.
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <cstdint>
#include <span>

/// The bytes of a number in the byte order of PNG and zlib.
inline QByteArray bigEndian32(std::uint32_t number)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// The decompressed bytes of a zlib stream; empty if the stream is damaged.
///
/// @param length the expected number of bytes
inline QByteArray inflated(const QByteArray& stream, qsizetype length)
{
    return qUncompress(bigEndian32(static_cast<std::uint32_t>(length)) + stream);
}

/// Adler-32, computed by its definition.
inline std::uint32_t adler32Of(std::span<const std::uint8_t> bytes)
{
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const std::uint8_t byte : bytes) {
        a = (a + byte) % 65521U;
        b = (b + a) % 65521U;
    }
    return b << 16U | a;
}

/// CRC-32, computed bit by bit by its definition.
inline std::uint32_t crc32Of(const QByteArray& bytes)
{
    std::uint32_t value = 0xffffffffU;
    for (const char byte : bytes) {
        value ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0U ? (value >> 1U) ^ 0xedb88320U : value >> 1U;
    }
    return ~value;
}
