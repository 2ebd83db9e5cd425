// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two sweeps over the rows, as in depthsInside().
#include "form/lines/LineDepths.h"

#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <cassert>

namespace {

using Depth = std::int16_t;

constexpr Depth kFar = 30000;

Depth sum(Depth depth, int step)
{
    return static_cast<Depth>(depth + step);
}

// Shortens the paths of a row by those over the row that was visited before.
void comeFrom(std::span<const Depth> before, std::span<Depth> row)
{
    const std::size_t last = row.size() - 1;
    for (std::size_t x = 0; x <= last; ++x)
        row[x] = std::min(row[x], sum(before[x], kPixelStep));
    for (std::size_t x = 0; x < last; ++x)
        row[x] = std::min(row[x], sum(before[x + 1], kDiagonalStep));
    for (std::size_t x = 0; x < last; ++x)
        row[x + 1] = std::min(row[x + 1], sum(before[x], kDiagonalStep));
}

// Shortens the paths of a row by those over the cell that was visited before in the row itself.
template<typename Iterator>
void goAlong(Iterator from, Iterator to)
{
    Depth depth = kFar;
    for (; from != to; ++from) {
        depth = std::min(*from, sum(depth, kPixelStep));
        *from = depth;
    }
}

} // namespace

PixelPlane<std::int16_t> depthsBetween(const PixelPlane<char>& lines)
{
    assert(std::max(lines.width(), lines.height()) <= kLongestSide);
    PixelPlane<Depth> depths(lines.width(), lines.height());
    for (int y = 0; y < lines.height(); ++y) {
        const std::span<Depth> row = depths.row(y);
        std::ranges::transform(lines.row(y), row.begin(), [](char line) { return line != 0 ? Depth{0} : kFar; });
        if (y > 0)
            comeFrom(depths.row(y - 1), row);
        goAlong(row.begin(), row.end());
    }
    const auto most = static_cast<Depth>(kPixelStep * (std::max(lines.width(), lines.height()) / 2 + 1));
    for (int y = lines.height() - 1; y >= 0; --y) {
        const std::span<Depth> row = depths.row(y);
        if (y + 1 < lines.height())
            comeFrom(depths.row(y + 1), row);
        goAlong(row.rbegin(), row.rend());
    }
    for (int y = 0; y < lines.height(); ++y)
        for (Depth& depth : depths.row(y))
            depth = std::min(depth, most);
    return depths;
}
