// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartMap: which part, and which shape of it, every cell of the grid shows while a drawing is painted shape by shape.
// It measures the surroundings of the next shape.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <map>
#include <span>
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

/// What a cell shows: a shape as a piece of a part.
struct ShownCell
{
    static constexpr int kNone = -1;

    int part = kNone;
    int shape = kNone;

    friend bool operator==(const ShownCell&, const ShownCell&) = default;
};

class PartMap
{
public:
    static constexpr int kNone = ShownCell::kNone;

    explicit PartMap(const Grid& grid);

    QRect bounds() const { return {0, 0, _width, _height}; }

    /// Paints a shape: its cells show it as a piece of a part.
    void paint(const CellMask& mask, int shape, int part);
    /// @param y, from, to inside the bounds; no cell at `to` is painted
    void paint(int y, int from, int to, const ShownCell& cell);

    /// Calls a function with from, to and what the cells show of the stretches of a row whose cells show the same.
    ///
    /// @param y, from, to inside the bounds; the cell at `to` is left out
    template<typename Function>
    void forEachStretch(int y, int from, int to, Function function) const
    {
        const std::span<const ShownCell> row = std::span(_cells).subspan(index(0, y), static_cast<std::size_t>(_width));
        while (from < to) {
            const ShownCell& cell = row[static_cast<std::size_t>(from)];
            int end = from + 1;
            while (end + kTogether <= to && areAll(row.subspan(static_cast<std::size_t>(end)).first<kTogether>(), cell))
                end += kTogether;
            while (end < to && row[static_cast<std::size_t>(end)] == cell)
                ++end;
            function(from, end, cell);
            from = end;
        }
    }

    /// Calls a function with the number of cells and what they show of the stretches of all rows that show parts.
    template<typename Function>
    void forEachShown(Function function) const
    {
        for (int y = 0; y < _height; ++y)
            forEachStretch(y, 0, _width, [&](int from, int to, const ShownCell& cell) {
                if (cell.part != kNone)
                    function(to - from, cell);
            });
    }

    /// Gives every cell that shows a part to another one.
    ///
    /// @param renamed the new part for each part
    void rename(std::span<const int> renamed);

    /// Marks cells that ink covers, even if it is painted later.
    void addInk(const CellMask& mask);

    Surroundings around(const ShapeFacts& facts, const std::vector<ShapeFacts>& all) const;

private:
    static constexpr int kTogether = 8; // cells that are compared at a time

    static bool areAll(std::span<const ShownCell, kTogether> cells, const ShownCell& same)
    {
        using Bits = std::uint64_t;
        static_assert(sizeof(ShownCell) == sizeof(Bits));
        std::array<Bits, kTogether> all{};
        std::memcpy(all.data(), cells.data(), sizeof all);
        Bits different = 0;
        for (const Bits bits : all)
            different |= bits ^ std::bit_cast<Bits>(same);
        return different == 0;
    }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < _width && y < _height; }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) + static_cast<std::size_t>(x);
    }
    int inkedCells(const CellMask& mask) const;
    void countOverlaps(const ShapeFacts& facts, Surroundings& found) const;
    void countContacts(const ShapeFacts& facts, const std::vector<ShapeFacts>& all, Surroundings& found) const;

    int _width;
    int _height;
    std::vector<ShownCell> _cells;
    std::vector<std::uint8_t> _ink;
};
