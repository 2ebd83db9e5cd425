// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Halving, a few rows at a time. Rows are halved before columns, because there are fewer rows then. Empty strips are
// skipped.
#include "BlurAlgo/private/HalvingStage.h"

#include "BlurAlgo/private/PyramidKernels.h"

#include <algorithm>
#include <array>

namespace BlurAlgo {

namespace {

using PyramidKernels::kHalvedRows;

/// Halves the columns of a few rows. Their even and odd columns are stored apart, with zeros on both sides.
class ColumnHalver
{
public:
    ColumnHalver(Interval in, Interval out, const StepWeights& step, RowMemory& memory)
        : _in(in)
        , _out(out)
        , _margin(ceilHalf(step.reach()))
        , _step(step)
        , _skipped(in.lo - 2 * (out.lo - _margin))
        , _empty(static_cast<std::size_t>((in.size() + kStrip - 1) / kStrip), true)
    {
        // Aligns the first sum to the start of a cache line.
        const auto line = static_cast<int>(RowMemory::kLine);
        const int shift = (line - ceilHalf(_skipped) % line) % line;
        for (PyramidKernels::SplitRow& row : _rows)
            row = {memory.takeZeros() + shift, memory.takeZeros() + shift};
    }

    /// Samples that a row of memory must hold to be halved to n columns.
    static std::size_t rowSize(int n, const StepWeights& step)
    {
        return static_cast<std::size_t>(n + 2 * ceilHalf(std::max(step.reach(), 0))) + RowMemory::kLine;
    }

    /// Takes sums of rows. Each call's rows lie the same distance below those of the call before. Returns the columns
    /// of the result that may be non-zero, counted from its left.
    Interval sumRows(std::span<const float* const> rows, std::span<const float> weights)
    {
        // Where the last sums were zero, the rows shared with them are known to be empty.
        const auto isEmpty = [&](int x, int columns) {
            const bool known = _hasSums && _empty[static_cast<std::size_t>(x / kStrip)];
            return PyramidKernels::areZeros(known ? rows.last(2 * kHalvedRows) : rows, x, columns);
        };
        const auto sum = [&](int x, int columns) {
            PyramidKernels::halveAndSplitRows(rows, x, weights, from(x), columns, firstIsOdd());
            _empty[static_cast<std::size_t>(x / kStrip)] = false;
        };
        const auto skip = [this](int x, int columns) { clear(x, columns); };
        const Interval done = forStrips(_in.size(), isEmpty, sum, skip);
        _hasSums = true;
        return resultOf(done);
    }

    /// Takes one row instead of sums.
    Interval takeRow(const float* row)
    {
        PyramidKernels::splitColumns(row, from(0).front(), _in.size(), firstIsOdd());
        return {0, _out.size()};
    }

    /// Halves row j of the rows taken. Outside the given columns the result is zero.
    void run(std::size_t j, Interval columns, float* out) const
    {
        const float* even = _rows[j].even + _margin + columns.lo;
        const float* odd = _rows[j].odd + _margin + columns.lo;
        std::fill_n(out, columns.lo, 0.0F);
        PyramidKernels::halveColumns(even, odd, _step.weights, out + columns.lo, columns.size());
        std::fill(out + columns.hi, out + _out.size(), 0.0F);
    }

private:
    bool firstIsOdd() const { return (_skipped & 1) != 0; }

    /// Where column x of the input is stored.
    PyramidKernels::SplitRows from(int x) const
    {
        PyramidKernels::SplitRows rows = _rows;
        for (PyramidKernels::SplitRow& row : rows)
            row = {row.even + ceilHalf(_skipped + x), row.odd + floorHalf(_skipped + x)};
        return rows;
    }

    void clear(int x, int columns)
    {
        const auto strip = static_cast<std::size_t>(x / kStrip);
        if (_empty[strip])
            return;
        const PyramidKernels::SplitRows end = from(x + columns);
        const PyramidKernels::SplitRows begin = from(x);
        for (std::size_t j = 0; j < begin.size(); ++j) {
            std::fill(begin[j].even, end[j].even, 0.0F);
            std::fill(begin[j].odd, end[j].odd, 0.0F);
        }
        _empty[strip] = true;
    }

    Interval resultOf(Interval columns) const
    {
        if (columns.size() == 0)
            return {};
        const Interval result = halvedSupport({_in.lo + columns.lo, _in.lo + columns.hi}, _step.reach());
        return {std::max(result.lo - _out.lo, 0), std::min(result.hi, _out.hi) - _out.lo};
    }

    Interval _in;
    Interval _out;
    int _margin;
    const StepWeights& _step;
    int _skipped; ///< columns of zeros before the first one of the input
    PyramidKernels::SplitRows _rows;
    bool _hasSums = false;
    std::vector<bool> _empty; ///< strips of the input whose stored sums are all zero
};

/// Halves rows only, n columns of them. Returns the columns that may be non-zero.
Interval halveRowsOnly(std::span<const float* const> rows, std::span<const float> weights,
                       const PyramidKernels::HalvedRows& results, int n)
{
    const auto from = [&](int x) {
        PyramidKernels::HalvedRows moved = results;
        for (float*& row : moved)
            row += x;
        return moved;
    };
    const auto sum = [&](int x, int columns) { PyramidKernels::halveRows(rows, x, weights, from(x), columns); };
    const auto clear = [&](int x, int columns) {
        for (float* row : from(x))
            std::fill_n(row, columns, 0.0F);
    };
    const auto isEmpty = [&](int x, int columns) { return PyramidKernels::areZeros(rows, x, columns); };
    return forStrips(n, isEmpty, sum, clear);
}

/// Makes halved rows from top to bottom, in groups.
template<typename Source>
class BandHalver
{
public:
    /// @param rect the rectangle of the source's rows
    /// @param kept how many rows of memory are left for the caller to take
    /// @param room the least length of a row of memory
    BandHalver(Source& source, const Math::Box2di& rect, const StepPair& step, Interval columns, std::size_t kept,
               std::size_t room, RowMemory& memory)
        : _step(step)
        , _n(columns.size())
        , _around(static_cast<std::size_t>(PyramidKernels::rowsToHalve(step.y.reach())))
        , _memory(prepared(
              memory, _around.size() + 2 * kHalvedRows + 1 + kept,
              std::max({room, static_cast<std::size_t>(rect.width()), ColumnHalver::rowSize(columns.size(), step.x)})))
        , _rows(source, rect, static_cast<int>(_around.size()), _memory)
        , _columns(columnsOf(rect), columns, step.x, _memory)
    {}

    /// Makes the rows v .. end - 1, at most kHalvedRows; further results hold anything. Returns the columns that may be
    /// non-zero, counted from the left.
    Interval run(int v, int end, const PyramidKernels::HalvedRows& results)
    {
        const int reach = _step.y.reach();
        _rows.collect({2 * v - reach, 2 * end - 1 + reach}, _around);
        if (!_step.x.active())
            return halveRowsOnly(_around, _step.y.weights, results, _n);
        const Interval done = _columns.sumRows(_around, _step.y.weights);
        for (std::size_t j = 0; j < kHalvedRows; ++j)
            _columns.run(j, done, results[j]);
        return done;
    }

private:
    static RowMemory& prepared(RowMemory& memory, std::size_t rows, std::size_t samples)
    {
        memory.reset(rows, samples);
        return memory;
    }

    const StepPair& _step;
    int _n;
    std::vector<const float*> _around;
    RowMemory& _memory;
    PaddedRows<Source> _rows;
    ColumnHalver _columns;
};

/// Halved rows as the input of another halving. A row stays valid as long as the second halving may read it.
class HalvedRows
{
public:
    HalvedRows(const Input& in, const StepPair& step, const Math::Box2di& rect, RowMemory& memory)
        : _rect(rect)
        , _source(in.rows)
        , _halver(_source, in.rect, step, columnsOf(rect), kKept, static_cast<std::size_t>(rect.width()), memory)
    {
        std::generate(_rows.begin(), _rows.end(), [&memory] { return memory.take(); });
    }

    /// Makes the group of rows that contains y, unless it exists.
    void advance(int y)
    {
        const int first = (y - _rect.y1) / kHalvedRows * kHalvedRows;
        if (first <= _latest)
            return;
        PyramidKernels::HalvedRows results;
        std::copy_n(_rows.begin() + slotOf(first), kHalvedRows, results.begin());
        _halver.run(_rect.y1 + first, std::min(_rect.y1 + first + kHalvedRows, _rect.y2), results);
        _latest = first;
    }

    const float* row(int y, float*) const
    {
        const int offset = y - _rect.y1;
        const int first = offset / kHalvedRows * kHalvedRows;
        return _rows[static_cast<std::size_t>(slotOf(first) + offset - first)];
    }

private:
    /// As many groups as the window of the second halving can touch.
    static constexpr std::size_t kKept =
        (PyramidKernels::rowsToHalve(PyramidKernels::kLargestReach) / kHalvedRows + 2) * kHalvedRows;

    static int slotOf(int first) { return first % static_cast<int>(kKept); }

    Math::Box2di _rect;
    ReadyRows _source;
    std::array<float*, kKept> _rows{};
    int _latest = -1;
    BandHalver<ReadyRows> _halver;
};

/// Halves columns only, row by row.
void halveColumnsBand(const Input& in, const StepWeights& step, const Output& out, Interval y, RowMemory& memory)
{
    memory.reset(2 * kHalvedRows + 2, std::max(roomFor(in.rect, out), ColumnHalver::rowSize(out.rect.width(), step)));
    ColumnHalver columns(columnsOf(in.rect), columnsOf(out.rect), step, memory);
    float* buffer = memory.take();
    writeRows(out, y, memory, [&](int v, float* row) {
        const Interval taken = columns.takeRow(in.rows.row(v, buffer));
        columns.run(0, taken, row);
    });
}

/// Halves the rows y of a plane, along the rows at least.
template<typename Source>
Math::Box2di halveRowsOf(Source& source, const Math::Box2di& rect, const StepPair& step, const Output& out, Interval y,
                         RowMemory& memory)
{
    const Interval outX = columnsOf(out.rect);
    BandHalver<Source> halver(source, rect, step, outX, kHalvedRows, roomFor(rect, out), memory);
    OutputRows<kHalvedRows> outputs(out, y, memory);
    Math::Box2di box;
    for (int v = y.lo; v < y.hi; v += kHalvedRows) {
        const int end = std::min(v + kHalvedRows, y.hi);
        const Interval done = halver.run(v, end, outputs.begin(v));
        outputs.end();
        box.add(boxOf({outX.lo + done.lo, outX.lo + done.hi}, {v, end}));
    }
    return box;
}

} // namespace

Math::Box2di halveBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory)
{
    if (!step.y.active()) {
        halveColumnsBand(in, step.x, out, y, memory);
        return boxOf(columnsOf(out.rect), y);
    }
    ReadyRows rows(in.rows);
    return halveRowsOf(rows, in.rect, step, out, y, memory);
}

Math::Box2di halveTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                            const Output& out, Interval y, BandMemory& memory)
{
    HalvedRows halved(in, first, between, memory.inner);
    return halveRowsOf(halved, between, second, out, y, memory.outer);
}

} // namespace BlurAlgo
