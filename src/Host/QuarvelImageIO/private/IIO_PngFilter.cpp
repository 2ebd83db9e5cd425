// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loops that compilers turn into vector code: both filters are the difference of two pieces of memory.
#include "QuarvelImageIO/private/IIO_PngFilter.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>

namespace {

enum Filter : std::uint8_t
{
    NONE = 0,
    SUB = 1,
    UP = 2
};

std::uint8_t difference(std::uint8_t a, std::uint8_t b)
{
    return static_cast<std::uint8_t>(a - b);
}

// Differences count by their distance from zero in either direction, as bytes that wrap around.
unsigned magnitude(std::uint8_t a, std::uint8_t b)
{
    return static_cast<unsigned>(std::abs(static_cast<std::int8_t>(difference(a, b))));
}

// So many bytes at once that their sum fits into 16 bits, of which a vector holds more.
constexpr std::size_t kBytesAtOnce = 256;

std::uint64_t sumOfMagnitudes(const std::uint8_t* row, const std::uint8_t* neighbours, std::size_t count)
{
    std::uint64_t sum = 0;
    for (; count >= kBytesAtOnce; count -= kBytesAtOnce) {
        std::uint16_t part = 0;
        for (std::size_t i = 0; i < kBytesAtOnce; ++i)
            part = static_cast<std::uint16_t>(part + magnitude(row[i], neighbours[i]));
        sum += part;
        row += kBytesAtOnce;
        neighbours += kBytesAtOnce;
    }
    for (std::size_t i = 0; i < count; ++i)
        sum += magnitude(row[i], neighbours[i]);
    return sum;
}

} // namespace

void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above, std::size_t bytesPerPixel,
                      std::span<std::uint8_t> filtered)
{
    assert(above.size() == row.size() && filtered.size() == row.size() + 1 && row.size() >= bytesPerPixel);
    // The first pixel has nothing to its left, so that Sub keeps it as it is, which counts the same as a zero there.
    const std::size_t count = row.size() - bytesPerPixel;
    std::uint64_t bySub = sumOfMagnitudes(row.data() + bytesPerPixel, row.data(), count);
    for (std::size_t i = 0; i < bytesPerPixel; ++i)
        bySub += magnitude(row[i], 0);
    const std::uint64_t byUp = sumOfMagnitudes(row.data(), above.data(), row.size());

    const auto values = filtered.subspan(1);
    if (byUp <= bySub) {
        filtered[0] = UP;
        std::ranges::transform(row, above, values.begin(), difference);
        return;
    }
    filtered[0] = SUB;
    std::ranges::copy(row.first(bytesPerPixel), values.begin());
    std::ranges::transform(row.subspan(bytesPerPixel), row, values.begin() + static_cast<std::ptrdiff_t>(bytesPerPixel),
                           difference);
}

void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered)
{
    filtered[0] = NONE;
    std::ranges::copy(row, filtered.begin() + 1);
}
