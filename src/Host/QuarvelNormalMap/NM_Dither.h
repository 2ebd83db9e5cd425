// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ordered dither (B. E. Bayer, "An optimum method for two-level rendition of continuous-tone pictures", 1973): converts
// a smooth slope of floats to 16-bit samples without visible steps. A value v becomes floor(v + t). The threshold t
// comes from a table of 8 x 8 and depends on the pixel's place; plain rounding would use 1/2 everywhere. Thresholds go
// from 1/128 to 127/128 and average 1/2, so the samples of an area average to its values, a sample is never a whole
// step off, and integer values stay unchanged. The table, and so every sample, is the same on every machine.
//
// Vectors that face the viewer are not dithered, so that flat places stay exactly flat.
#pragma once

#include <array>
#include <cstddef>

/// The thresholds of eight pixels of a row; the x of the first one is a multiple of 8.
using NM_DitherRow = std::array<float, 8>;

/// The thresholds of a row of pixels.
constexpr NM_DitherRow NM_ditherRow(int y)
{
    NM_DitherRow row{};
    for (unsigned x = 0; x < row.size(); ++x) {
        // Interleaves the bits of x ^ y and of y; the lowest bits become the highest of the result.
        const unsigned across = x ^ (static_cast<unsigned>(y) & 7U);
        unsigned place = 0;
        for (unsigned bit = 0; bit < 3; ++bit)
            place = place << 2U | ((across >> bit) & 1U) << 1U | ((static_cast<unsigned>(y) >> bit) & 1U);
        row[x] = (static_cast<float>(place) + 0.5F) / 64.0F;
    }
    return row;
}

/// The threshold of a pixel.
constexpr float NM_ditherAt(int x, int y)
{
    return NM_ditherRow(y)[static_cast<std::size_t>(static_cast<unsigned>(x) & 7U)];
}
