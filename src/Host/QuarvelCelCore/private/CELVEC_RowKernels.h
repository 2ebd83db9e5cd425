// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Painted rows, as Qt's painter leaves them, as the pixels of pixmaps and as coverage. A painted row has four channels
// of unsigned 16 bits a pixel, red first, associated. All rows are as long as the row that is written.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <cstdint>
#include <span>

namespace CELVEC_RowKernels {

/// What happens to the coverage of a pixel.
enum class Coverage
{
    KEPT,
    CLOSED ///< a becomes 1 - (1 - a)^2, and the colours grow in proportion (CELVEC_RenderArgs::closesSeams)
};

/// Halves every channel: exact at both ends of the range and monotonic in between. 16-bit pixels cannot be closed.
void convert(const std::uint16_t* painted, Coverage coverage, std::span<CEL_PixelRGBA16> row);
/// Divides every channel by 65535.
void convert(const std::uint16_t* painted, Coverage coverage, std::span<CEL_PixelRGBAFloat> row);

/// The alphas of a painted row.
void takeAlphas(const std::uint16_t* painted, std::span<std::uint16_t> alphas);

/// Alphas of a painted row, converted as the pixels are.
void convertAlphas(const std::uint16_t* painted, std::span<std::int16_t> alphas);
void convertAlphas(const std::uint16_t* painted, Coverage coverage, std::span<float> alphas);

/// Closes pixels that are converted already.
void close(std::span<CEL_PixelRGBAFloat> row);

/// Paints the row's coverage, halved as above, over another (CEL_paintOver()).
void paintOver(const std::uint16_t* painted, std::span<std::int16_t> coverage);
/// Cuts it out of another (CEL_cutOut()).
void cutOut(const std::uint16_t* painted, std::span<std::int16_t> coverage);

} // namespace CELVEC_RowKernels
