// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/LaterShapes.h"

#include "form/choice/InnerFacts.h"

#include <algorithm>

namespace {

constexpr int kTile = 8;       // cells
constexpr int kMostTiles = 16; // of a small shape

void addLater(int shape, const std::vector<int>& shapes, std::vector<int>& found)
{
    found.insert(found.end(), std::ranges::upper_bound(shapes, shape), shapes.end());
}

} // namespace

LaterShapes::LaterShapes(const std::vector<ShapeFacts>& facts, const Grid& grid)
    : _facts(facts)
    , _bounds(grid.bounds())
    , _columns(grid.width / kTile + 1)
    , _tiles(static_cast<std::size_t>(_columns) * static_cast<std::size_t>(grid.height / kTile + 1))
{
    for (int shape = 0; shape < static_cast<int>(facts.size()); ++shape) {
        const ShapeFacts& added = this->facts(shape);
        if (added.area == 0)
            continue;
        _ofPaint[added.paint].push_back(shape);
        const QRect tiles = tilesAround(shape);
        if (tiles.width() * tiles.height() > kMostTiles) {
            _large.push_back(shape);
            continue;
        }
        for (int y = tiles.top(); y <= tiles.bottom(); ++y)
            for (int x = tiles.left(); x <= tiles.right(); ++x)
                tile(x, y).push_back(shape);
    }
}

QRect LaterShapes::tilesAround(int shape) const
{
    const QRect cells = facts(shape).mask.box() & _bounds;
    if (cells.isEmpty())
        return {};
    return {QPoint(cells.left() / kTile, cells.top() / kTile), QPoint(cells.right() / kTile, cells.bottom() / kTile)};
}

std::vector<const ShapeFacts*> LaterShapes::inside(int shape) const
{
    const ShapeFacts& holder = facts(shape);
    const QRect tiles = tilesAround(shape);
    std::vector<int> near;
    addLater(shape, _large, near);
    for (int y = tiles.top(); y <= tiles.bottom(); ++y)
        for (int x = tiles.left(); x <= tiles.right(); ++x)
            addLater(shape, tile(x, y), near);
    std::ranges::sort(near);
    near.erase(std::unique(near.begin(), near.end()), near.end());
    std::vector<const ShapeFacts*> found;
    for (const int other : near) {
        const ShapeFacts& inner = facts(other);
        if (inner.opacity >= kSolid && inner.area < holder.area && liesInside(inner, holder.mask))
            found.push_back(&inner);
    }
    return found;
}

std::vector<int> LaterShapes::ofPaint(int shape) const
{
    const auto known = _ofPaint.find(facts(shape).paint);
    if (known == _ofPaint.end())
        return {};
    std::vector<int> found;
    addLater(shape, known->second, found);
    return found;
}
