// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the passes over a band of rows have in common: windows of input rows, groups of output rows, and strips of
// columns narrow enough for the first-level cache.
#pragma once

#include "BlurAlgo/private/BlurStages.h"
#include "BlurAlgo/private/PyramidKernels.h"
#include "BlurAlgo/private/RowWindow.h"

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

inline std::vector<float*> takeRows(RowMemory& memory, int count)
{
    std::vector<float*> rows(static_cast<std::size_t>(count));
    std::generate(rows.begin(), rows.end(), [&memory] { return memory.take(); });
    return rows;
}

/// The rows of an input, zeros above and below.
class PaddedRows
{
public:
    PaddedRows(const Input& in, int kept, RowMemory& memory)
        : _in(in), _window(takeRows(memory, kept)), _zeros(memory.takeZeros())
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
        if (!rowsOf(_in.rect).contains(y))
            return _zeros;
        return _window.row(y, [this](int v, float* buffer) { return _in.rows.row(v, buffer); });
    }

    const Input& _in;
    RowWindow _window;
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

/// The room that rows of an input and an output need.
inline std::size_t roomFor(const Input& in, const Output& out)
{
    return static_cast<std::size_t>(std::max(in.rect.width(), out.asked.size()));
}

/// Calls skip(x, columns) for the strips of n columns for which isEmpty(x, columns) says so, and work(x, columns) for
/// the others. Returns the columns from the first strip that was worked on to the last.
template<typename IsEmpty, typename Work, typename Skip>
Interval forStrips(int n, const IsEmpty& isEmpty, const Work& work, const Skip& skip)
{
    Interval done;
    for (int x = 0; x < n; x += kStrip) {
        const int columns = std::min(kStrip, n - x);
        if (isEmpty(x, columns)) {
            skip(x, columns);
            continue;
        }
        work(x, columns);
        done = {done.size() > 0 ? done.lo : x, x + columns};
    }
    return done;
}

} // namespace BlurAlgo
