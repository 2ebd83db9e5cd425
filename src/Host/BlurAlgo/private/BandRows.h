// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the stages have in common. A stage computes a band of result rows, which depends on its input alone: it reads
// rows through a window of the latest ones and writes them in small groups, in strips of columns narrow enough for the
// first-level cache.
//
// A stage that feeds another one computes on demand: advance(y) prepares row y, row(y) only looks it up. Rows are
// requested from top to bottom.
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

/// Columns of a strip in which rows are summed: its samples stay in the first-level cache.
inline constexpr int kStrip = 256;
/// Planes with at least this many samples are larger than a core's share of the last-level cache.
inline constexpr std::int64_t kStreamedSamples = 1 << 20;

/// Rows to read. Outside the rectangle they are zero.
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
    Math::Box2di rect; ///< what is computed; the other columns become zero
};

/// Rows that exist already, for stages whose source may also be another stage.
class ReadyRows
{
public:
    explicit ReadyRows(const BA_RowSource& rows) : _rows(rows) {}

    void advance(int) {}
    const float* row(int y, float* buffer) const { return _rows.row(y, buffer); }

private:
    const BA_RowSource& _rows;
};

/// Writes zeros to the rows y of an output.
void clearBand(const Output& out, Interval y, RowMemory& memory);

inline std::vector<float*> takeRows(RowMemory& memory, int count)
{
    std::vector<float*> rows(static_cast<std::size_t>(count));
    std::generate(rows.begin(), rows.end(), [&memory] { return memory.take(); });
    return rows;
}

/// The rows of a source, with zeros above and below.
template<typename Source>
class PaddedRows
{
public:
    /// @param kept how many rows the window holds
    PaddedRows(Source& source, const Math::Box2di& rect, int kept, RowMemory& memory)
        : _source(source), _y(rowsOf(rect)), _window(takeRows(memory, kept)), _zeros(memory.takeZeros())
    {}

    /// Sets rows to the rows y of the source; those after the end of y become zeros.
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

/// The output rows that are made together. Rows outside the band are written to scratch memory.
template<int kRows>
class OutputRows
{
public:
    OutputRows(const Output& out, Interval y, RowMemory& memory)
        : _out(out), _y(y), _left(out.rect.x1 - out.asked.lo), _right(out.asked.hi - out.rect.x2)
    {
        std::generate(_buffers.begin(), _buffers.end(), [&memory] { return memory.take(); });
    }

    /// The memory of row y and the ones below it, from the first computed column.
    const std::array<float*, kRows>& begin(int y)
    {
        _first = y;
        for (std::size_t j = 0; j < kRows; ++j)
            _rows[j] = _left + (_y.contains(rowAt(j)) ? _out.rows.begin(rowAt(j), _buffers[j]) : _buffers[j]);
        return _rows;
    }

    /// True when the rows of the latest begin() belong to a plane so large that keeping them in the cache does not pay.
    bool worthStreaming() const
    {
        const auto isOwn = [this](std::size_t j) { return _rows[j] != _buffers[j] + _left; };
        return std::int64_t{_out.rect.width()} * _out.rect.height() >= kStreamedSamples && !_out.rows.isReadSoon() &&
               isOwn(0) && isOwn(kRows - 1);
    }

    /// The rows of the latest begin() have been written.
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

/// Calls make(y, row) for each row of a band.
template<typename Make>
void writeRows(const Output& out, Interval y, RowMemory& memory, const Make& make)
{
    OutputRows<1> outputs(out, y, memory);
    for (int v = y.lo; v < y.hi; ++v) {
        make(v, outputs.begin(v).front());
        outputs.end();
    }
}

/// Samples of a row of memory that is long enough for the input's rectangle and for the output.
inline std::size_t roomFor(const Math::Box2di& in, const Output& out)
{
    return static_cast<std::size_t>(std::max(in.width(), out.asked.size()));
}

/// Calls skip(x, columns) for the empty strips of n columns, and work(x, columns) for the others. Returns the columns
/// from the first worked strip to the last.
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
