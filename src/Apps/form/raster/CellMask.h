// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellMask: the cells of a grid that an area covers, stored for its bounding box only, so that hundreds of small areas
// take little memory. A cell counts as covered if half of it is; for an area thinner than that, if it is covered at
// least half as much as the area's most covered cell.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "form/raster/Grid.h"

#include <QImage>

#include <cstdint>
#include <span>
#include <vector>

/// The format to paint coverage in, as alpha. Into eight-bit pictures Qt paints several times slower: it hands every
/// longer row to other threads.
inline constexpr QImage::Format kFormatPainted = QImage::Format_ARGB32_Premultiplied;

class CellMask
{
public:
    CellMask() = default;
    /// A box without covered cells.
    explicit CellMask(const QRect& box);

    /// The cells inside the grid that shapes cover together, whatever their opacity.
    static CellMask of(std::span<const DIO_Shape> shapes, const Grid& grid);

    /// The cells that count as covered.
    ///
    /// @param coverage how much of each cell of the box is covered, row by row, 0 to 255
    static CellMask ofCoverage(const QRect& box, std::span<const std::uint8_t> coverage);

    const QRect& box() const { return _box; }
    bool at(int x, int y) const { return contains(x, y) && _cells[index(x, y)] != 0; }
    /// @param x, y inside the box
    void set(int x, int y, bool covered = true) { _cells[index(x, y)] = covered ? 1 : 0; }
    /// The cells of a row of the box: 1 for a covered one, 0 for an uncovered one.
    ///
    /// @param y inside the box
    std::span<const std::uint8_t> row(int y) const
    {
        return std::span(_cells).subspan(index(_box.left(), y), static_cast<std::size_t>(_box.width()));
    }
    /// The number of covered cells.
    int area() const;
    /// The number of cells that another mask covers, too.
    int overlap(const CellMask& other) const;
    /// Adds what another mask covers.
    void unite(const CellMask& other);

    /// Calls a function with x and y of every covered cell, row by row.
    template<typename Function>
    void forEach(Function function) const
    {
        for (int y = _box.top(); y <= _box.bottom(); ++y) {
            int x = _box.left();
            for (const std::uint8_t cell : row(y)) {
                if (cell)
                    function(x, y);
                ++x;
            }
        }
    }

    /// Calls a function with x and y of every covered cell that has an uncovered one beside it.
    template<typename Function>
    void forEachAtOutline(Function function) const
    {
        forEach([&](int x, int y) {
            if (!isSurrounded(x, y))
                function(x, y);
        });
    }

private:
    // Whether the four cells beside a cell are covered.
    bool isSurrounded(int x, int y) const
    {
        if (x == _box.left() || x == _box.right() || y == _box.top() || y == _box.bottom())
            return false;
        const std::size_t i = index(x, y);
        const auto width = static_cast<std::size_t>(_box.width());
        return (_cells[i - 1] & _cells[i + 1] & _cells[i - width] & _cells[i + width]) != 0;
    }
    // Adds what a mask covers whose box lies inside the own one.
    void add(const CellMask& other);

    // QRect::contains() is a call into Qt's library, which costs more than the comparison.
    bool contains(int x, int y) const
    {
        return x >= _box.left() && x <= _box.right() && y >= _box.top() && y <= _box.bottom();
    }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y - _box.top()) * static_cast<std::size_t>(_box.width()) +
               static_cast<std::size_t>(x - _box.left());
    }

    QRect _box;
    std::vector<std::uint8_t> _cells;
};
