// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pieces of a deflate stream (RFC 1951), as PNG files have it. Each piece looks back at no other and ends at the border
// of a byte, so that pieces can be made beside each other and written one after the other. The same bytes become the
// same piece.
#pragma once

#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <cstdint>
#include <span>
#include <vector>

/// Presses bytes into pieces. Any number of threads may use one.
class IIO_Deflate
{
public:
    explicit IIO_Deflate(IIO_Compression compression) : _compression(compression) {}

    /// Appends the piece for some bytes, no more than 1 GiB of them. Throws std::bad_alloc when memory lacks.
    ///
    /// @param isLast whether the stream ends with it
    void press(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& output) const;

    /// The checksum of bytes by which a zlib stream ends: Adler-32.
    static std::uint32_t checksumOf(std::span<const std::uint8_t> bytes);

private:
    static void pressFast(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& output);
    void pressWell(std::span<const std::uint8_t> bytes, bool isLast, std::vector<std::uint8_t>& output) const;

    IIO_Compression _compression;
};
