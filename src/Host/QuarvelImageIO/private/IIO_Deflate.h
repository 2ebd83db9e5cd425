// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pieces of a deflate stream (RFC 1951), which PNG files contain. A piece does not refer to other pieces and ends at a
// byte boundary, so that pieces can be made in parallel and written one after the other. The same bytes always become
// the same piece.
#pragma once

#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <cstdint>
#include <span>
#include <vector>

/// Compresses bytes to pieces. Any number of threads may use the same object.
class IIO_Deflate
{
public:
    explicit IIO_Deflate(IIO_Compression compression) : _compression(compression) {}

    /// Makes the piece for at most 1 GiB of bytes. Throws std::bad_alloc if there is not enough memory.
    ///
    /// @param isLast whether the stream ends with this piece
    /// @param room   grows to hold the piece; one that is used again for as many bytes need not grow
    /// @return the piece, at the room's start
    std::span<const std::uint8_t> compress(std::span<const std::uint8_t> bytes, bool isLast,
                                           std::vector<std::uint8_t>& room) const;

    /// Adler-32, the checksum at the end of a zlib stream.
    static std::uint32_t checksumOf(std::span<const std::uint8_t> bytes);

private:
    static std::size_t compressFast(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& room);
    std::size_t compressWell(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& room) const;

    IIO_Compression _compression;
};
