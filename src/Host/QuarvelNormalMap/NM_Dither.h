// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ordered dither (B. E. Bayer, "An optimum method for two-level rendition of continuous-tone pictures", 1973): how a
// smooth slope of floats becomes 16-bit samples without steps. A value v becomes floor(v + t), where the threshold t is
// the pixel's place in a table of 8 x 8, from 1/128 to 127/128 and 1/2 on average, instead of 1/2 everywhere. On
// average over an area the samples are the values; a sample is never a whole step off; whole values stay as they are.
// The table is the same on every machine, and so are the samples.
//
// What faces the viewer is not dithered, so that what is flat stays exactly flat.
#pragma once

#include <array>
#include <cstddef>

/// The thresholds of eight pixels in a row, from one whose x is a multiple of 8 on.
using NM_DitherRow = std::array<float, 8>;

/// The thresholds of a row of pixels.
constexpr NM_DitherRow NM_ditherRow(int y)
{
    NM_DitherRow row{};
    for (unsigned x = 0; x < row.size(); ++x) {
        // The bits of x and of x ^ y in turns, the lowest of them first in the result.
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
