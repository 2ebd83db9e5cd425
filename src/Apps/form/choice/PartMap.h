// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartMap: which part, and which shape of it, every cell of the grid shows while a drawing is painted shape by shape.
// It measures the surroundings of the next shape.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <map>
#include <vector>

/// How a shape meets a part.
struct Meeting
{
    int overlap = 0; ///< cells of the shape that show the part
    int contact = 0; ///< cells at the shape's outline that have the part just outside it
    int inked = 0;   ///< cells of the contact that have ink on or beside them
};

/// The surroundings of a shape that is about to be painted.
struct Surroundings
{
    static constexpr int kNone = -1;

    std::map<int, Meeting> parts; ///< by part
    int bare = 0;                 ///< cells of the shape that show no part yet
    int base = kNone;             ///< the part that it covers most of
    int ground = kNone;           ///< the shape that most of these cells show
    /// The share of its outline that has nothing or a shape of another paint just outside it.
    double outlined = 0.0;

    Meeting with(int part) const
    {
        const auto found = parts.find(part);
        return found == parts.end() ? Meeting() : found->second;
    }
};

class PartMap
{
public:
    static constexpr int kNone = -1;

    explicit PartMap(const Grid& grid);

    QRect bounds() const { return {0, 0, _width, _height}; }
    int partAt(int x, int y) const { return contains(x, y) ? _parts[index(x, y)] : kNone; }
    int shapeAt(int x, int y) const { return contains(x, y) ? _shapes[index(x, y)] : kNone; }

    /// Paints a shape: its cells show it as a piece of a part.
    void paint(const CellMask& mask, int shape, int part);
    void setCell(int x, int y, int shape, int part);

    /// Marks cells that ink covers, even if it is painted later.
    void addInk(const CellMask& mask);

    Surroundings around(const ShapeFacts& facts, const std::vector<ShapeFacts>& all) const;

private:
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < _width && y < _height; }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) + static_cast<std::size_t>(x);
    }
    void countOverlaps(const ShapeFacts& facts, Surroundings& found) const;
    void countContacts(const ShapeFacts& facts, const std::vector<ShapeFacts>& all, Surroundings& found) const;

    int _width;
    int _height;
    std::vector<int> _parts;
    std::vector<int> _shapes;
    std::vector<std::uint8_t> _ink;
};
