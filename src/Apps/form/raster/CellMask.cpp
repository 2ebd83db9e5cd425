// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/raster/CellMask.h"

#include "form/raster/ShapePainter.h"

#include <algorithm>

namespace {

constexpr int kHalf = 128; // of 255

} // namespace

CellMask CellMask::of(std::span<const DIO_Shape> shapes, const Grid& grid)
{
    return ShapePainter(grid).mask(shapes);
}

CellMask CellMask::ofCoverage(const QRect& box, std::span<const std::uint8_t> coverage)
{
    CellMask mask(box);
    if (coverage.empty())
        return mask;
    const int least = std::max(1, std::min(kHalf, *std::ranges::max_element(coverage) / 2));
    const auto width = static_cast<std::size_t>(box.width());
    std::vector<char> row(width);
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const std::span cells = coverage.subspan(static_cast<std::size_t>(y - box.top()) * width, width);
        std::ranges::transform(cells, row.begin(),
                               [least](std::uint8_t cell) { return static_cast<char>(cell >= least ? 1 : 0); });
        for (std::size_t from = nextOf(row, 0, 1); from < width;) {
            const std::size_t to = nextOf(row, from, 0);
            mask.append(y, box.left() + static_cast<int>(from), box.left() + static_cast<int>(to));
            from = nextOf(row, to, 1);
        }
    }
    return mask;
}

void CellMask::append(int y, int from, int to)
{
    const std::size_t rows = static_cast<std::size_t>(y - _box.top()) + 1;
    const bool goesOn = _starts.size() == rows && _runs.size() > _starts.back() && _runs.back().to >= from;
    if (goesOn) {
        _runs.back().to = std::max(_runs.back().to, to);
        return;
    }
    _starts.resize(std::max(_starts.size(), rows), _runs.size());
    _runs.push_back({from, to});
}

int CellMask::area() const
{
    int cells = 0;
    for (const CellRun& run : _runs)
        cells += run.to - run.from;
    return cells;
}

int CellMask::overlap(const CellMask& other) const
{
    const QRect common = _box & other._box;
    int cells = 0;
    for (int y = common.top(); y <= common.bottom(); ++y) {
        const std::span<const CellRun> others = other.runs(y);
        auto near = others.begin();
        for (const CellRun& run : runs(y)) {
            while (near != others.end() && near->to <= run.from)
                ++near;
            for (auto next = near; next != others.end() && next->from < run.to; ++next)
                cells += std::min(run.to, next->to) - std::max(run.from, next->from);
        }
    }
    return cells;
}

int CellMask::areaInside(const QRect& box) const
{
    int cells = 0;
    const QRect common = _box & box;
    for (int y = common.top(); y <= common.bottom(); ++y)
        for (const CellRun& run : runs(y))
            cells += std::max(0, std::min(run.to, common.right() + 1) - std::max(run.from, common.left()));
    return cells;
}

PixelPlane<char> CellMask::planeOf(const QRect& box) const
{
    PixelPlane<char> plane(std::max(0, box.width()), std::max(0, box.height()), 0);
    forEachRun([&](int y, int from, int to) {
        const std::span row = plane.row(y - box.top());
        std::ranges::fill(row.subspan(static_cast<std::size_t>(from - box.left()), static_cast<std::size_t>(to - from)),
                          char{1});
    });
    return plane;
}

void CellMask::unite(const CellMask& other)
{
    CellMask both(_box | other._box);
    both._runs.reserve(_runs.size() + other._runs.size());
    both._starts.reserve(static_cast<std::size_t>(std::max(0, both._box.height())));
    for (int y = both._box.top(); y <= both._box.bottom(); ++y) {
        const std::span<const CellRun> own = runs(y);
        const std::span<const CellRun> others = other.runs(y);
        auto one = own.begin();
        auto two = others.begin();
        while (one != own.end() || two != others.end()) {
            const bool isOwn = two == others.end() || (one != own.end() && one->from <= two->from);
            const CellRun& next = isOwn ? *one++ : *two++;
            both.append(y, next.from, next.to);
        }
    }
    *this = std::move(both);
}
