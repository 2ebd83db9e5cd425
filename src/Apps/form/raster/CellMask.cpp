// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/raster/CellMask.h"

#include "form/raster/ShapePainter.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int kHalf = 128; // of 255

} // namespace

CellMask::CellMask(const QRect& box) : _box(box)
{
    _cells.assign(
        static_cast<std::size_t>(std::max(0, box.width())) * static_cast<std::size_t>(std::max(0, box.height())), 0);
}

CellMask CellMask::of(std::span<const DIO_Shape> shapes, const Grid& grid)
{
    return ShapePainter(grid).mask(shapes);
}

CellMask CellMask::ofCoverage(const QRect& box, std::span<const std::uint8_t> coverage)
{
    CellMask mask(box);
    if (mask._cells.empty())
        return mask;
    const int least = std::max(1, std::min(kHalf, *std::ranges::max_element(coverage) / 2));
    std::ranges::transform(coverage, mask._cells.begin(),
                           [least](std::uint8_t cell) { return static_cast<std::uint8_t>(cell >= least ? 1 : 0); });
    return mask;
}

int CellMask::area() const
{
    return std::accumulate(_cells.begin(), _cells.end(), 0);
}

int CellMask::overlap(const CellMask& other) const
{
    const QRect common = _box & other._box;
    int cells = 0;
    for (int y = common.top(); y <= common.bottom(); ++y) {
        const std::uint8_t* const own = &_cells[index(common.left(), y)];
        const std::uint8_t* const others = &other._cells[other.index(common.left(), y)];
        for (int i = 0; i < common.width(); ++i)
            cells += own[i] & others[i];
    }
    return cells;
}

void CellMask::unite(const CellMask& other)
{
    if (!_box.contains(other._box)) {
        CellMask larger(_box | other._box);
        larger.add(*this);
        *this = std::move(larger);
    }
    add(other);
}

void CellMask::add(const CellMask& other)
{
    for (int y = other._box.top(); y <= other._box.bottom(); ++y) {
        std::uint8_t* const own = &_cells[index(other._box.left(), y)];
        const std::span<const std::uint8_t> others = other.row(y);
        for (std::size_t i = 0; i < others.size(); ++i)
            own[i] |= others[i];
    }
}
