// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Doubling, a few rows at a time: columns are summed first and rows then, so that the columns are summed in fewer rows.
#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/BlurStages.h"
#include "BlurAlgo/private/PyramidKernels.h"

#include <algorithm>
#include <array>
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

    /// The row in the columns out: in the buffer, or where it is when this axis is left alone.
    const float* run(const float* row, float* buffer) const
    {
        if (!_step.active())
            return row + _in;
        PyramidKernels::doubleColumns(row + _in, _step.weights, buffer, _n);
        return buffer + _skipped;
    }

private:
    int _in;      ///< columns of the input that nobody needs
    int _n;       ///< pairs of columns that are made
    int _skipped; ///< columns made that nobody asked for
    const StepWeights& _step;
};

/// Doubles columns only, row by row.
void doubleColumnsBand(const Input& in, const StepWeights& step, const Output& out, Interval y, RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const auto wideRoom = static_cast<std::size_t>(ColumnDoubler::bufferSize(outX));
    memory.reset(3, std::max(roomFor(in, out), wideRoom));
    const ColumnDoubler columns(inX, outX, step);
    float* narrow = memory.take();
    float* wide = memory.take();
    writeRows(out, y, memory,
              [&](int v, float* row) { std::copy_n(columns.run(in.rows.row(v, narrow), wide), outX.size(), row); });
}

/// Makes doubled rows, a few of them at once, in the order of their places.
class BandDoubler
{
public:
    /// @param room of so many samples are the rows of memory, of which kDoubledRows are left to take
    BandDoubler(const Input& in, const StepPair& step, Interval columns, std::size_t room, RowMemory& memory)
        : _in(in)
        , _step(step)
        , _n(columns.size())
        , _around(static_cast<std::size_t>(PyramidKernels::rowsToDouble(step.y.reach())))
        , _columns(columnsOf(in.rect), columns, step.x)
    {
        const auto wideRoom = static_cast<std::size_t>(ColumnDoubler::bufferSize(columns));
        memory.reset(_around.size() + kDoubledRows + 2, std::max(room, wideRoom));
        _wideRows.emplace(takeRows(memory, static_cast<int>(_around.size())));
        _narrow = memory.take();
        _zeros = memory.takeZeros();
    }

    /// Rows v and after; v is even. Rows that the input does not suffice for hold anything.
    void run(int v, const PyramidKernels::DoubledRows& results, bool stream)
    {
        const auto makeWide = [this](int k, float* wide) { return _columns.run(_in.rows.row(k, _narrow), wide); };
        int k = floorHalf(v) - _step.y.reach() / 2;
        for (const float*& row : _around) {
            row = rowsOf(_in.rect).contains(k) ? _wideRows->row(k, makeWide) : _zeros;
            ++k;
        }
        PyramidKernels::doubleRows(_around, _step.y.weights, results, _n, stream);
    }

private:
    Input _in;
    const StepPair& _step;
    int _n;
    std::vector<const float*> _around;
    ColumnDoubler _columns;
    std::optional<RowWindow> _wideRows;
    float* _narrow = nullptr;
    const float* _zeros = nullptr;
};

/// Doubled rows for another doubling, made when they are asked for, in the order of their places. A row stays until the
/// next ones are made.
class DoubledSource final : public BA_RowSource
{
public:
    DoubledSource(const Input& in, const StepPair& step, const Math::Box2di& rect, RowMemory& memory)
        : _doubler(in, step, columnsOf(rect), static_cast<std::size_t>(rect.width()), memory)
    {
        std::generate(_rows.begin(), _rows.end(), [&memory] { return memory.take(); });
    }

    const float* row(int y, float*) const override
    {
        const int offset = y & (kDoubledRows - 1);
        if (_first != y - offset) {
            _first = y - offset;
            _doubler.run(y - offset, _rows, false);
        }
        return _rows[static_cast<std::size_t>(offset)];
    }

private:
    mutable BandDoubler _doubler;
    mutable std::optional<int> _first;
    PyramidKernels::DoubledRows _rows;
};

} // namespace

void doubleBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory)
{
    if (!step.y.active())
        return doubleColumnsBand(in, step.x, out, y, memory);

    BandDoubler doubler(in, step, columnsOf(out.rect), roomFor(in, out), memory);
    OutputRows<kDoubledRows> outputs(out, y, memory);
    for (int v = 2 * floorHalf(y.lo); v < y.hi; v += kDoubledRows) {
        const PyramidKernels::DoubledRows& results = outputs.begin(v);
        doubler.run(v, results, outputs.worthStreaming());
        outputs.end();
    }
    PyramidKernels::finishStreaming();
}

void doubleTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                     const Output& out, Interval y, BandMemory& memory)
{
    const DoubledSource doubled(in, first, between, memory.inner);
    doubleBand({doubled, between}, second, out, y, memory.outer);
}

} // namespace BlurAlgo
