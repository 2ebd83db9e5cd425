// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Doubling, a few rows at a time. Columns are doubled before rows, because there are fewer rows then.
#include "BlurAlgo/private/DoublingStage.h"

#include "BlurAlgo/private/PyramidKernels.h"
#include "QuarvelVectorLanes/VL_Stores.h"

#include <algorithm>
#include <optional>

namespace BlurAlgo {

namespace {

using PyramidKernels::kDoubledRows;

/// Doubles rows to the columns out.
class ColumnDoubler
{
public:
    ColumnDoubler(Interval in, Interval out, const StepWeights& step)
        : _in(step.active() ? floorHalf(out.lo) - in.lo : out.lo - in.lo)
        , _n(alignedToEven(out).size() / 2)
        , _skipped(out.lo - alignedToEven(out).lo)
        , _step(step)
    {}

    /// Samples that a buffer must hold for doubling to these columns.
    static int bufferSize(Interval out) { return alignedToEven(out).size(); }

    /// The row in the columns out: in the buffer, or in the row itself when this axis is not doubled.
    const float* run(const float* row, float* buffer) const
    {
        if (!_step.active())
            return row + _in;
        PyramidKernels::doubleColumns(row + _in, _step.weights, buffer, _n);
        return buffer + _skipped;
    }

private:
    int _in;      ///< unused columns of the input on the left
    int _n;       ///< pairs of columns that are made
    int _skipped; ///< computed columns before the first one of the output
    const StepWeights& _step;
};

/// Doubles columns only, row by row.
void doubleColumnsBand(const Input& in, const StepWeights& step, const Output& out, Interval y, RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const auto wideRoom = static_cast<std::size_t>(ColumnDoubler::bufferSize(outX));
    memory.reset(3, std::max(roomFor(in.rect, out), wideRoom));
    const ColumnDoubler columns(inX, outX, step);
    float* narrow = memory.take();
    float* wide = memory.take();
    writeRows(out, y, memory,
              [&](int v, float* row) { std::copy_n(columns.run(in.rows.row(v, narrow), wide), outX.size(), row); });
}

/// Makes doubled rows from top to bottom, in groups.
template<typename Source>
class BandDoubler
{
public:
    /// @param rect the rectangle of the source's rows
    /// @param room the least length of a row of memory; kDoubledRows rows are left for the caller to take
    BandDoubler(Source& source, const Math::Box2di& rect, const StepPair& step, Interval columns, std::size_t room,
                RowMemory& memory)
        : _source(source)
        , _y(rowsOf(rect))
        , _step(step)
        , _n(columns.size())
        , _around(static_cast<std::size_t>(PyramidKernels::rowsToDouble(step.y.reach())))
        , _columns(columnsOf(rect), columns, step.x)
    {
        const auto wideRoom = static_cast<std::size_t>(ColumnDoubler::bufferSize(columns));
        memory.reset(_around.size() + kDoubledRows + 2, std::max(room, wideRoom));
        _wideRows.emplace(takeRows(memory, static_cast<int>(_around.size())));
        _narrow = memory.take();
        _zeros = memory.takeZeros();
    }

    /// Makes row v and the ones below it; v is even. Rows that need input rows outside the source's rectangle hold
    /// anything.
    void run(int v, const PyramidKernels::DoubledRows& results, bool stream)
    {
        const auto makeWide = [this](int k, float* wide) {
            _source.advance(k);
            return _columns.run(_source.row(k, _narrow), wide);
        };
        int k = floorHalf(v) - _step.y.reach() / 2;
        for (const float*& row : _around) {
            row = _y.contains(k) ? _wideRows->row(k, makeWide) : _zeros;
            ++k;
        }
        PyramidKernels::doubleRows(_around, _step.y.weights, results, _n, stream);
    }

private:
    Source& _source;
    Interval _y;
    const StepPair& _step;
    int _n;
    std::vector<const float*> _around;
    ColumnDoubler _columns;
    std::optional<VL_RowWindow> _wideRows;
    float* _narrow = nullptr;
    const float* _zeros = nullptr;
};

/// Doubled rows as the input of another doubling, which copies them: a row stays valid until the next group is made.
class DoubledRows
{
public:
    DoubledRows(const Input& in, const StepPair& step, const Math::Box2di& rect, RowMemory& memory)
        : _source(in.rows)
        , _doubler(_source, in.rect, step, columnsOf(rect), static_cast<std::size_t>(rect.width()), memory)
    {
        std::generate(_rows.begin(), _rows.end(), [&memory] { return memory.take(); });
    }

    /// Makes the group of rows that contains y, unless it is the current one.
    void advance(int y)
    {
        const int first = y - placeInGroup(y);
        if (_first == first)
            return;
        _doubler.run(first, _rows, false);
        _first = first;
    }

    const float* row(int y, float*) const { return _rows[static_cast<std::size_t>(placeInGroup(y))]; }

private:
    static int placeInGroup(int y) { return y & (kDoubledRows - 1); }

    ReadyRows _source;
    BandDoubler<ReadyRows> _doubler;
    std::optional<int> _first;
    PyramidKernels::DoubledRows _rows{};
};

/// Doubles the rows y of a plane, along the rows at least.
template<typename Source>
void doubleRowsOf(Source& source, const Math::Box2di& rect, const StepPair& step, const Output& out, Interval y,
                  RowMemory& memory)
{
    BandDoubler<Source> doubler(source, rect, step, columnsOf(out.rect), roomFor(rect, out), memory);
    OutputRows<kDoubledRows> outputs(out, y, memory);
    for (int v = 2 * floorHalf(y.lo); v < y.hi; v += kDoubledRows) {
        const PyramidKernels::DoubledRows& results = outputs.begin(v);
        doubler.run(v, results, outputs.worthStreaming());
        outputs.end();
    }
    VL_finishStores();
}

} // namespace

void doubleBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory)
{
    if (!step.y.active())
        return doubleColumnsBand(in, step.x, out, y, memory);
    ReadyRows rows(in.rows);
    doubleRowsOf(rows, in.rect, step, out, y, memory);
}

void doubleTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                     const Output& out, Interval y, BandMemory& memory)
{
    DoubledRows doubled(in, first, between, memory.inner);
    doubleRowsOf(doubled, between, second, out, y, memory.outer);
}

} // namespace BlurAlgo
