// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Both filters are differences of two arrays.
#include "QuarvelImageIO/private/IIO_PngFilter.h"

#include "QuarvelImageIO/private/IIO_PngKernels.h"

#include <algorithm>
#include <cassert>

namespace {

enum Filter : std::uint8_t
{
    NONE = 0,
    SUB = 1,
    UP = 2
};

// Rows that are filtered in one way repeat each other more often, so the other filter must leave a tenth fewer bytes.
bool isClearlyLess(std::size_t count, std::size_t than)
{
    return 10 * count < 9 * than;
}

} // namespace

void IIO_filterPngRow(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above, std::size_t bytesPerPixel,
                      std::span<std::uint8_t> filtered)
{
    assert(above.size() == row.size() && filtered.size() == row.size() + 1 && row.size() >= bytesPerPixel);
    // The first pixel has no left neighbour, so the filters are compared from the second pixel on.
    const auto rest = row.subspan(bytesPerPixel);
    const auto left = row.first(rest.size());
    const std::span<std::uint8_t> differences = filtered.subspan(1);
    if (!isClearlyLess(IIO_countDifferent(rest, left), IIO_countDifferent(rest, above.subspan(bytesPerPixel)))) {
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
