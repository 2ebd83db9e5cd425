// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The prefix codes of deflate (RFC 1951, 3.2.2): how many bits each symbol gets, from how often it occurs, and the bits
// themselves, which follow from the lengths alone.
#pragma once

#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <cstdint>
#include <span>

/// The lengths of a prefix code that presses symbols of these counts well. It is the best one, except that codes which
/// would be longer than the limit are shortened at the cost of others.
///
/// @param counts  how often each symbol occurs; at most 512 symbols, of which at least two occur
/// @param limit   bits, 1 to 15, enough for the symbols that occur
/// @param lengths bits per symbol, 0 for those that do not occur; as many as counts
QUARVELIMAGEIO_EXPORT void IIO_findCodeLengths(std::span<const std::uint32_t> counts, int limit,
                                               std::span<std::uint8_t> lengths);

/// The codes of these lengths, the first bit lowest, as a stream that is filled from its lowest bit takes them.
QUARVELIMAGEIO_EXPORT void IIO_findCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes);
