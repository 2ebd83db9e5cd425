// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The row filters of PNG: they replace each byte with its difference from a neighbour, which compresses better.
//
// Two of the five filters are used, the left neighbour (Sub) and the one above (Up): for each row, the one with the
// smaller differences. On normal maps, elevations, lit pictures and drawings the others gain less than they cost: with
// all five, normal maps are 4 % smaller, the other pictures larger, and filtering takes as long as the compression
// itself.
#pragma once

#include <cstdint>
#include <span>

/// Filters a row.
///
/// @param row           the bytes of a row, big-endian
/// @param above the bytes of the row above; zeros for the first row
/// @param bytesPerPixel the distance to the left neighbour
/// @param filtered receives the filter's number and the differences: one byte more than the row
void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above, std::size_t bytesPerPixel,
                      std::span<std::uint8_t> filtered);

/// Writes the row unfiltered.
void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered);
