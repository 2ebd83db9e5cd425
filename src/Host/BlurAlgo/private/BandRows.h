// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the stages have in common. A stage works on a band of result rows that depends on nothing but its input: it
// reads rows from somewhere, through a window of the last ones, and writes them somewhere, a few at a time, in strips
// of columns narrow enough for the first-level cache.
//
// A stage that feeds another one makes its rows when it is told to: advance(y) works out what row y takes, row(y) only
// looks it up. Rows are asked for in the order of their places.
#pragma once

#include "BlurAlgo/BA_GaussianBlur.h"
#include "BlurAlgo/private/Intervals.h"
#include "BlurAlgo/private/RowMemory.h"
#include "QuarvelVectorLanes/VL_RowWindow.h"
#include "QuarvelVectorLanes/VL_Strips.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace BlurAlgo {

/// Rows are summed in strips of so many columns: what a strip is made from stays in the first-level cache.
inline constexpr int kStrip = 256;
/// Planes of so many samples are larger than a core's share of the last-level cache.
inline constexpr std::int64_t kStreamedSamples = 1 << 20;

/// Rows to read. Outside of the rectangle there are zeros.
struct Input
{
    const BA_RowSource& rows;
    Math::Box2di rect;
};

/// Rows to write.
struct Output
{
    Output(BA_RowSink& sink, const Math::Box2di& box) : Output(sink, columnsOf(box), box) {}
    Output(BA_RowSink& sink, Interval columns, const Math::Box2di& part) : rows(sink), asked(columns), rect(part) {}

    BA_RowSink& rows;
    Interval asked;    ///< the columns that the sink's rows have
    Math::Box2di rect; ///< what is worked out: the columns outside become zeros
};

/// Rows that are there already, for stages that are fed by others as well.
class ReadyRows
{
public:
    explicit ReadyRows(const BA_RowSource& rows) : _rows(rows) {}

    void advance(int) {}
    const float* row(int y, float* buffer) const { return _rows.row(y, buffer); }

private:
    const BA_RowSource& _rows;
};

/// Zeros in the rows y of an output.
void clearBand(const Output& out, Interval y, RowMemory& memory);

inline std::vector<float*> takeRows(RowMemory& memory, int count)
{
    std::vector<float*> rows(static_cast<std::size_t>(count));
    std::generate(rows.begin(), rows.end(), [&memory] { return memory.take(); });
    return rows;
}

/// The rows of a source, zeros above and below.
template<typename Source>
class PaddedRows
{
public:
    /// @param kept how many rows are looked at together
    PaddedRows(Source& source, const Math::Box2di& rect, int kept, RowMemory& memory)
        : _source(source), _y(rowsOf(rect)), _window(takeRows(memory, kept)), _zeros(memory.takeZeros())
    {}

    /// The given rows; zeros for the rest of what there is room for.
    void collect(Interval y, std::span<const float*> rows)
    {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const int v = y.lo + static_cast<int>(i);
            rows[i] = v < y.hi ? row(v) : _zeros;
        }
    }

private:
    const float* row(int y)
    {
        if (!_y.contains(y))
            return _zeros;
        return _window.row(y, [this](int v, float* buffer) {
            _source.advance(v);
            return _source.row(v, buffer);
        });
    }

    Source& _source;
    Interval _y;
    VL_RowWindow _window;
    const float* _zeros;
};

/// Rows of an output that are made together. Those that are not asked for go to memory that nobody looks at.
template<int kRows>
class OutputRows
{
public:
    OutputRows(const Output& out, Interval y, RowMemory& memory)
        : _out(out), _y(y), _left(out.rect.x1 - out.asked.lo), _right(out.asked.hi - out.rect.x2)
    {
        std::generate(_buffers.begin(), _buffers.end(), [&memory] { return memory.take(); });
    }

    /// Rows y and after, from the first column that is worked out.
    const std::array<float*, kRows>& begin(int y)
    {
        _first = y;
        for (std::size_t j = 0; j < kRows; ++j)
            _rows[j] = _left + (_y.contains(rowAt(j)) ? _out.rows.begin(rowAt(j), _buffers[j]) : _buffers[j]);
        return _rows;
    }

    /// True when the rows that begin() named belong to a plane so large that it does not pay to have them in the cache.
    bool worthStreaming() const
    {
        const auto isOwn = [this](std::size_t j) { return _rows[j] != _buffers[j] + _left; };
        return std::int64_t{_out.rect.width()} * _out.rect.height() >= kStreamedSamples && isOwn(0) && isOwn(kRows - 1);
    }

    /// The rows that begin() named have been written.
    void end()
    {
        for (std::size_t j = 0; j < kRows; ++j) {
            if (!_y.contains(rowAt(j)))
                continue;
            float* row = _rows[j] - _left;
            std::fill_n(row, _left, 0.0F);
            std::fill_n(_rows[j] + _out.rect.width(), _right, 0.0F);
            _out.rows.end(rowAt(j), row);
        }
    }

private:
    int rowAt(std::size_t j) const { return _first + static_cast<int>(j); }

    const Output& _out;
    Interval _y;
    int _left;
    int _right;
    int _first = 0;
    std::array<float*, kRows> _buffers;
    std::array<float*, kRows> _rows;
};

/// The rows of a band one by one: what make(y, row) writes.
template<typename Make>
void writeRows(const Output& out, Interval y, RowMemory& memory, const Make& make)
{
    OutputRows<1> outputs(out, y, memory);
    for (int v = y.lo; v < y.hi; ++v) {
        make(v, outputs.begin(v).front());
        outputs.end();
    }
}

/// The room that rows of an input's rectangle and of an output need.
inline std::size_t roomFor(const Math::Box2di& in, const Output& out)
{
    return static_cast<std::size_t>(std::max(in.width(), out.asked.size()));
}

/// Calls skip(x, columns) for the strips of n columns for which isEmpty(x, columns) says so, and work(x, columns) for
/// the others. Returns the columns from the first strip that was worked on to the last.
template<typename IsEmpty, typename Work, typename Skip>
Interval forStrips(int n, const IsEmpty& isEmpty, const Work& work, const Skip& skip)
{
    Interval done;
    VL_forStrips(n, kStrip, [&](int x, int columns) {
        if (isEmpty(x, columns)) {
            skip(x, columns);
            return;
        }
        work(x, columns);
        done = {done.size() > 0 ? done.lo : x, x + columns};
    });
    return done;
}

} // namespace BlurAlgo
