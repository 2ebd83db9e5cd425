// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellMask: the cells of a grid that an area covers, as runs of covered cells along the rows of its bounding box: an
// area has few of them, so that hundreds of areas take little memory, and what is asked of an area takes a time in
// proportion to its outline. A cell counts as covered if half of it is; for an area thinner than that, if it is covered
// at least half as much as the area's most covered cell.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "form/bitmap/pixels/PixelPlane.h"
#include "form/raster/Grid.h"

#include <QImage>

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

/// The format to paint coverage in, as alpha. Into eight-bit pictures Qt paints several times slower: it hands every
/// longer row to other threads.
inline constexpr QImage::Format kFormatPainted = QImage::Format_ARGB32_Premultiplied;

/// Covered cells beside each other in a row; none of them is at `to`.
struct CellRun
{
    int from;
    int to;
};

class CellMask
{
public:
    CellMask() = default;
    /// A box without covered cells.
    explicit CellMask(const QRect& box) : _box(box) {}

    /// The cells inside the grid that shapes cover together, whatever their opacity.
    static CellMask of(std::span<const DIO_Shape> shapes, const Grid& grid);

    /// The cells that count as covered.
    ///
    /// @param coverage how much of each cell of the box is covered, row by row, 0 to 255
    static CellMask ofCoverage(const QRect& box, std::span<const std::uint8_t> coverage);

    /// The cells of a box for which a function of x and y returns true.
    template<typename Function>
    static CellMask where(const QRect& box, Function isCovered)
    {
        CellMask mask(box);
        for (int y = box.top(); y <= box.bottom(); ++y)
            for (int x = box.left(); x <= box.right(); ++x)
                if (isCovered(x, y))
                    mask.append(y, x, x + 1);
        return mask;
    }

    /// Covers cells of a row. Cells are appended row by row, in each row from left to right.
    ///
    /// @param y, from, to inside the box; none of the cells is at `to`
    void append(int y, int from, int to);

    const QRect& box() const { return _box; }
    bool at(int x, int y) const
    {
        const std::span<const CellRun> row = runs(y);
        const auto run = std::ranges::partition_point(row, [x](const CellRun& before) { return before.to <= x; });
        return run != row.end() && run->from <= x;
    }
    /// The covered cells of a row, from left to right, with uncovered cells between them.
    std::span<const CellRun> runs(int y) const
    {
        const auto row = static_cast<std::size_t>(y - _box.top()); // huge above the box
        if (row >= _starts.size())
            return {};
        const std::size_t end = row + 1 < _starts.size() ? _starts[row + 1] : _runs.size();
        return std::span(_runs).subspan(_starts[row], end - _starts[row]);
    }
    /// The number of covered cells.
    int area() const;
    /// The number of cells that another mask covers, too.
    int overlap(const CellMask& other) const;
    /// The number of covered cells inside a box.
    int areaInside(const QRect& box) const;
    /// The cells of a box, 1 for those that are covered. The box includes that of the mask.
    PixelPlane<char> planeOf(const QRect& box) const;
    /// Adds what another mask covers.
    void unite(const CellMask& other);

    /// Calls a function with y, from and to of every run, row by row.
    template<typename Function>
    void forEachRun(Function function) const
    {
        for (std::size_t row = 0; row < _starts.size(); ++row)
            for (const CellRun& run : runs(_box.top() + static_cast<int>(row)))
                function(_box.top() + static_cast<int>(row), run.from, run.to);
    }

    /// Calls a function with x and y of every covered cell, row by row.
    template<typename Function>
    void forEach(Function function) const
    {
        forEachRun([&](int y, int from, int to) {
            for (int x = from; x < to; ++x)
                function(x, y);
        });
    }

    /// Calls a function with x and y of every covered cell that has an uncovered one beside it, row by row.
    template<typename Function>
    void forEachAtOutline(Function function) const
    {
        forEachRun([&](int y, int from, int to) {
            int x = from;
            forEachSurrounded(y, {from + 1, to - 1}, [&](int first, int last) {
                for (; x < first; ++x)
                    function(x, y);
                x = last;
            });
            for (; x < to; ++x)
                function(x, y);
        });
    }

private:
    // Calls a function with from and to of the stretches of a run that are covered in the rows above and below, too.
    template<typename Function>
    void forEachSurrounded(int y, const CellRun& run, Function function) const
    {
        const std::span<const CellRun> belows = runs(y + 1);
        auto below = belows.begin();
        for (const CellRun& above : runs(y - 1)) {
            const int start = std::max(above.from, run.from);
            const int end = std::min(above.to, run.to);
            while (below != belows.end() && below->to <= start)
                ++below;
            for (auto next = below; next != belows.end() && next->from < end; ++next)
                if (const int from = std::max(start, next->from), to = std::min(end, next->to); from < to)
                    function(from, to);
        }
    }

    QRect _box;
    std::vector<CellRun> _runs;       // row by row
    std::vector<std::size_t> _starts; // the first run of every row, up to the last row that has one
};
