// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LaterShapes: finds the shapes that are painted after a shape, near it or with its paint, without looking at all the
// others: a drawing may have a hundred thousand.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <unordered_map>
#include <vector>

class LaterShapes
{
public:
    /// @param facts of all shapes in the order of painting; must outlive this
    LaterShapes(const std::vector<ShapeFacts>& facts, const Grid& grid);

    /// The later, smaller, opaque shapes that lie inside a shape, in the order of painting.
    std::vector<const ShapeFacts*> inside(int shape) const;
    /// The later shapes of a shape's paint, in the order of painting.
    std::vector<int> ofPaint(int shape) const;

private:
    const ShapeFacts& facts(int shape) const { return _facts[static_cast<std::size_t>(shape)]; }
    QRect tilesAround(int shape) const;
    std::size_t placeOf(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_columns) + static_cast<std::size_t>(x);
    }
    std::vector<int>& tile(int x, int y) { return _tiles[placeOf(x, y)]; }
    const std::vector<int>& tile(int x, int y) const { return _tiles[placeOf(x, y)]; }

    const std::vector<ShapeFacts>& _facts;
    QRect _bounds; // of the grid
    int _columns;
    std::vector<std::vector<int>> _tiles; // the small shapes whose boxes reach into each square of the grid
    std::vector<int> _large;              // the others
    std::unordered_map<int, std::vector<int>> _ofPaint;
};
