// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Both filters are differences of two arrays.
#include "QuarvelImageIO/private/IIO_PngFilter.h"

#include "QuarvelImageIO/private/IIO_PngKernels.h"

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

// The sum of the absolute differences to the neighbours. The differences here do not wrap around as they do in the
// file: processors have an instruction for this sum, and the choice of the filter is almost always the same.
std::uint64_t sumOfDistances(std::span<const std::uint8_t> row, std::span<const std::uint8_t> neighbours)
{
    // 32 bits can hold the sum of this many bytes.
    constexpr std::size_t kAtOnce = std::size_t{1} << 16U;
    std::uint64_t sum = 0;
    for (std::size_t from = 0; from < row.size(); from += kAtOnce) {
        std::uint32_t part = 0;
        const std::size_t to = std::min(row.size(), from + kAtOnce);
        for (std::size_t i = from; i < to; ++i)
            part += static_cast<std::uint32_t>(std::abs(row[i] - neighbours[i]));
        sum += part;
    }
    return sum;
}

// The low bytes of 16-bit samples differ anyway, however much, so what counts is which bytes vanish. Rows that are
// filtered in one way repeat each other more often, so the left neighbours must leave a tenth fewer bytes.
bool isLeftBetter(std::span<const std::uint8_t> row, std::span<const std::uint8_t> left,
                  std::span<const std::uint8_t> above, std::size_t bytesPerSample)
{
    if (bytesPerSample == 1)
        return sumOfDistances(row, left) < sumOfDistances(row, above);
    return 10 * IIO_countDifferent(row, left) < 9 * IIO_countDifferent(row, above);
}

} // namespace

void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                      const IIO_PixelBytes& bytes, std::span<std::uint8_t> filtered)
{
    const std::size_t bytesPerPixel = bytes.ofPixel;
    assert(above.size() == row.size() && filtered.size() == row.size() + 1 && row.size() >= bytesPerPixel);
    // The first pixel has no left neighbour, so the filters are compared from the second pixel on.
    const auto rest = row.subspan(bytesPerPixel);
    const auto left = row.first(rest.size());
    const std::span<std::uint8_t> differences = filtered.subspan(1);
    if (!isLeftBetter(rest, left, above.subspan(bytesPerPixel), bytes.ofSample)) {
        filtered[0] = UP;
        IIO_subtractRows(row, above, differences);
        return;
    }
    filtered[0] = SUB;
    std::ranges::copy(row.first(bytesPerPixel), differences.begin());
    IIO_subtractRows(rest, left, differences.subspan(bytesPerPixel));
}

void IIO_keepPngRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> filtered)
{
    filtered[0] = NONE;
    std::ranges::copy(row, filtered.begin() + 1);
}
