// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The loops over the bytes of a PNG's rows, with vector code.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// How many bytes of a row differ from those of another one of the same length.
std::size_t IIO_countDifferent(std::span<const std::uint8_t> row, std::span<const std::uint8_t> other);

/// Writes the bytes of a row less those of another one of the same length, modulo 256.
void IIO_subtractRows(std::span<const std::uint8_t> row, std::span<const std::uint8_t> other,
                      std::span<std::uint8_t> differences);

/// Writes samples with their highest byte first, as PNG wants them.
void IIO_takeSamples(std::span<const std::uint16_t> samples, std::span<std::uint8_t> bytes);
