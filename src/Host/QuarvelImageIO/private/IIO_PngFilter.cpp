// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Both filters are differences of two arrays, in loops that compilers vectorise.
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

void subtract(const std::uint8_t* row, const std::uint8_t* neighbours, std::size_t count, std::uint8_t* differences)
{
    for (std::size_t i = 0; i < count; ++i)
        differences[i] = static_cast<std::uint8_t>(row[i] - neighbours[i]);
}

// The sum of the absolute differences to the neighbours. The differences here do not wrap around as they do in the
// file: processors have an instruction for this sum, and the choice of the filter is almost always the same.
std::uint64_t sumOfDistances(const std::uint8_t* row, const std::uint8_t* neighbours, std::size_t count)
{
    // 32 bits can hold the sum of this many bytes.
    constexpr std::size_t kAtOnce = std::size_t{1} << 16U;
    std::uint64_t sum = 0;
    for (std::size_t from = 0; from < count; from += kAtOnce) {
        std::uint32_t part = 0;
        const std::size_t to = std::min(count, from + kAtOnce);
        for (std::size_t i = from; i < to; ++i)
            part += static_cast<std::uint32_t>(std::abs(row[i] - neighbours[i]));
        sum += part;
    }
    return sum;
}

} // namespace

void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above, std::size_t bytesPerPixel,
                      std::span<std::uint8_t> filtered)
{
    assert(above.size() == row.size() && filtered.size() == row.size() + 1 && row.size() >= bytesPerPixel);
    // The first pixel has no left neighbour, so the filters are compared from the second pixel on.
    const std::size_t count = row.size() - bytesPerPixel;
    const std::uint64_t bySub = sumOfDistances(row.data() + bytesPerPixel, row.data(), count);
    const std::uint64_t byUp = sumOfDistances(row.data() + bytesPerPixel, above.data() + bytesPerPixel, count);

    std::uint8_t* differences = filtered.data() + 1;
    if (byUp <= bySub) {
        filtered[0] = UP;
        subtract(row.data(), above.data(), row.size(), differences);
        return;
    }
    filtered[0] = SUB;
    std::ranges::copy(row.first(bytesPerPixel), differences);
    subtract(row.data() + bytesPerPixel, row.data(), count, differences + bytesPerPixel);
}

void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered)
{
    filtered[0] = NONE;
    std::ranges::copy(row, filtered.begin() + 1);
}
