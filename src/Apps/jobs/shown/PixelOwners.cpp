// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The row itself and those beside it are kept, for pixels at outlines.
#include "jobs/shown/PixelOwners.h"

#include <algorithm>

PixelOwners::PixelOwners(const ShownInputs& inputs, const Math::Box2di& rect, int y)
    : _inputs(inputs), _rect(rect), _next(y)
{
    for (Row& row : _rows)
        row.resize(static_cast<std::size_t>(rect.width()));
    find(y - 1, _rows[1]);
    find(y, _rows[2]);
}

void PixelOwners::next()
{
    std::rotate(_rows.begin(), _rows.begin() + 1, _rows.end());
    find(++_next, _rows[2]);
}

int PixelOwners::at(std::size_t x) const
{
    if (_rows[1][x] != kNoOwner)
        return _rows[1][x];
    int highest = kNoOwner;
    for (const Row& row : _rows)
        for (std::size_t near = x > 0 ? x - 1 : 0; near < std::min(x + 2, row.size()); ++near)
            highest = std::max(highest, row[near]);
    return highest;
}

void PixelOwners::find(int y, Row& owners) const
{
    std::ranges::fill(owners, kNoOwner);
    for (std::size_t i = 0; i < _inputs.size(); ++i) {
        const CoverageBits& coverage = _inputs[i].coverage;
        const Math::Box2di known = coverage.rect().getIntersection(_rect);
        if (known.isEmpty() || y < known.y1 || y >= known.y2)
            continue;
        const int owner = _inputs[i].number == 0 ? kNoOwner : static_cast<int>(i);
        for (int x = known.x1; x < known.x2; ++x)
            if (coverage.covers(x, y))
                owners[static_cast<std::size_t>(x - _rect.x1)] = owner;
    }
}
