// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Halving, filtering and doubling, a few rows at a time. Halving and filtering sum rows first and columns then, so that
// the columns are summed in fewer rows; doubling goes the other way round for the same reason.
#include "BlurAlgo/private/BlurStages.h"

#include "BlurAlgo/private/PyramidKernels.h"
#include "BlurAlgo/private/RowKernels.h"
#include "BlurAlgo/private/RowWindow.h"

#include <algorithm>
#include <array>

namespace BlurAlgo {

namespace {

using PyramidKernels::kDoubledRows;
using PyramidKernels::kHalvedRows;
using RowKernels::Pair;

constexpr std::size_t kLane = 16;
/// Rows are summed in strips of so many columns: what a strip is made from stays in the first-level cache.
constexpr int kStrip = 256;
/// Rows that are filtered together.
constexpr int kFilteredRows = 8;

/// Half of v, rounded down or up, for any sign.
int floorHalf(int v)
{
    return v >> 1;
}
int ceilHalf(int v)
{
    return (v + 1) >> 1;
}

std::vector<float*> takeRows(RowMemory& memory, int count)
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
std::size_t roomFor(const Input& in, const Output& out)
{
    return static_cast<std::size_t>(std::max(in.rect.width(), out.asked.size()));
}

/// Calls work(x, columns) for the strips of n columns in which not all of the rows are empty, and skip(x, columns) for
/// the others. Returns the columns from the first strip that was worked on to the last.
template<typename Work, typename Skip>
Interval forStrips(std::span<const float* const> rows, int n, const Work& work, const Skip& skip)
{
    Interval done;
    for (int x = 0; x < n; x += kStrip) {
        const int columns = std::min(kStrip, n - x);
        if (PyramidKernels::areZeros(rows, x, columns)) {
            skip(x, columns);
            continue;
        }
        work(x, columns);
        done = {done.size() > 0 ? done.lo : x, x + columns};
    }
    return done;
}

/// Halves the columns of a few rows. The even and odd columns of what is halved lie apart, in longer rows of zeros.
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
        for (PyramidKernels::SplitRow& row : _rows)
            row = {memory.takeZeros(), memory.takeZeros()};
    }

    /// Samples that the rows of memory must hold for halving to this many.
    static int rowSize(int n, int reach) { return n + 2 * ceilHalf(reach); }

    /// Takes sums of rows to be halved. Returns the columns of the result that are not zero then, counted from its
    /// left.
    Interval sumRows(std::span<const float* const> rows, std::span<const float> weights)
    {
        const auto sum = [&](int x, int columns) {
            PyramidKernels::halveRows(rows, x, weights, from(x), columns, firstIsOdd());
            _empty[static_cast<std::size_t>(x / kStrip)] = false;
        };
        return resultOf(forStrips(rows, _in.size(), sum, [this](int x, int columns) { clear(x, columns); }));
    }

    /// Takes one row to be halved.
    Interval takeRow(const float* row)
    {
        PyramidKernels::splitColumns(row, from(0).front(), _in.size(), firstIsOdd());
        return {0, _out.size()};
    }

    /// Row j of what was taken, zeros outside of the columns that came with it.
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

    /// Where column x of the input goes.
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
    std::vector<bool> _empty; ///< strips of the input that left nothing but zeros
};

Interval alignedToEven(Interval samples)
{
    return {2 * floorHalf(samples.lo), 2 * ceilHalf(samples.hi)};
}

} // namespace

Interval halvedSupport(Interval samples, int reach)
{
    return {ceilHalf(samples.lo - reach), floorHalf(samples.hi - 1 + reach) + 1};
}

Interval neededByDoubling(Interval samples, int reach)
{
    return halvedSupport(alignedToEven(samples), reach);
}

Interval doubledSupport(Interval samples, int reach)
{
    return {2 * samples.lo - reach, 2 * (samples.hi - 1) + reach + 1};
}

void RowMemory::reset(std::size_t rows, std::size_t samples)
{
    _stride = (samples + kLane - 1) / kLane * kLane + kLane;
    _used = 0;
    if (_samples.size() < rows * _stride)
        _samples.resize(rows * _stride);
}

float* RowMemory::take()
{
    float* row = _samples.data() + _used;
    _used += _stride;
    return row;
}

float* RowMemory::takeZeros()
{
    float* row = take();
    std::fill_n(row, _stride, 0.0F);
    return row;
}

void clearBand(const Output& out, Interval y, RowMemory& memory)
{
    memory.reset(1, static_cast<std::size_t>(out.asked.size()));
    writeRows(out, y, memory, [&out](int, float* row) { std::fill_n(row, out.rect.width(), 0.0F); });
}

namespace {

/// Halves columns only, row by row.
void halveColumnsBand(const Input& in, const StepWeights& step, const Output& out, Interval y, RowMemory& memory)
{
    const auto columnsRoom = static_cast<std::size_t>(ColumnHalver::rowSize(out.rect.width(), step.reach()));
    memory.reset(2 * kHalvedRows + 2, std::max(roomFor(in, out), columnsRoom));
    ColumnHalver columns(columnsOf(in.rect), columnsOf(out.rect), step, memory);
    float* buffer = memory.take();
    writeRows(out, y, memory, [&](int v, float* row) {
        const Interval taken = columns.takeRow(in.rows.row(v, buffer));
        columns.run(0, taken, row);
    });
}

/// Halves rows only, n columns of them. Returns the columns that are not zero.
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
    return forStrips(rows, n, sum, clear);
}

} // namespace

Math::Box2di halveBand(const Input& in, const StepWeights& xStep, const StepWeights& yStep, const Output& out,
                       Interval y, RowMemory& memory)
{
    const Interval outX = columnsOf(out.rect);
    if (!yStep.active()) {
        halveColumnsBand(in, xStep, out, y, memory);
        return boxOf(outX, y);
    }
    const int reach = yStep.reach();
    const int kept = PyramidKernels::rowsToHalve(reach);
    const int columnsRoom = ColumnHalver::rowSize(outX.size(), std::max(xStep.reach(), 0));
    memory.reset(static_cast<std::size_t>(kept) + 3 * kHalvedRows + 1,
                 std::max(roomFor(in, out), static_cast<std::size_t>(columnsRoom)));

    PaddedRows rows(in, kept, memory);
    OutputRows<kHalvedRows> outputs(out, y, memory);
    ColumnHalver columns(columnsOf(in.rect), outX, xStep, memory);
    std::vector<const float*> around(static_cast<std::size_t>(kept));
    Math::Box2di box;
    for (int v = y.lo; v < y.hi; v += kHalvedRows) {
        // The last few rows may need fewer.
        const int end = std::min(v + kHalvedRows, y.hi);
        rows.collect({2 * v - reach, 2 * end - 1 + reach}, around);
        const PyramidKernels::HalvedRows& results = outputs.begin(v);
        Interval done;
        if (xStep.active()) {
            done = columns.sumRows(around, yStep.weights);
            for (std::size_t j = 0; j < kHalvedRows; ++j)
                columns.run(j, done, results[j]);
        } else {
            done = halveRowsOnly(around, yStep.weights, results, outX.size());
        }
        outputs.end();
        box.add(boxOf({outX.lo + done.lo, outX.lo + done.hi}, {v, end}));
    }
    return box;
}

namespace {

/// The short filter of both axes, on a few rows at a time.
class BlockFilter
{
public:
    BlockFilter(Interval in, Interval out, std::span<const float> xWeights, std::span<const float> yWeights,
                RowMemory& memory)
        : _in(in), _out(out), _padded(paddedColumns(in, out, xWeights)), _xWeights(xWeights), _yWeights(yWeights)
    {
        std::generate(_sums.begin(), _sums.end(), [&memory] { return memory.takeZeros(); });
    }

    /// The columns that the rows of memory must hold.
    static Interval paddedColumns(Interval in, Interval out, std::span<const float> xWeights)
    {
        const int reach = static_cast<int>(xWeights.size()) - 1;
        return {std::min(in.lo, out.lo - reach), std::max(in.hi, out.hi + reach)};
    }

    /// Results are made of the rows around those that come after as many as the filter reaches.
    void run(std::span<const float* const> rows, std::span<float* const> results)
    {
        const auto sum = [&](int x, int columns) {
            for (std::size_t j = 0; j < results.size(); ++j)
                sumRows(rows.data() + j + _yWeights.size() - 1, x, columns, sumsFrom(j, x));
        };
        const auto clear = [&](int x, int columns) {
            for (std::size_t j = 0; j < results.size(); ++j)
                std::fill_n(sumsFrom(j, x), columns, 0.0F);
        };
        const Interval done = forStrips(rows, _in.size(), sum, clear);
        for (std::size_t j = 0; j < results.size(); ++j)
            sumColumns(_sums[j] + (_out.lo - _padded.lo), resultOf(done), results[j]);
    }

private:
    float* sumsFrom(std::size_t j, int x) { return _sums[j] + (_in.lo - _padded.lo) + x; }

    /// The columns of the result that are not zero when those of the input are, each counted from its left.
    Interval resultOf(Interval columns) const
    {
        if (columns.size() == 0)
            return {};
        const int reach = static_cast<int>(_xWeights.size()) - 1;
        const int lo = std::clamp(_in.lo + columns.lo - reach, _out.lo, _out.hi);
        const int hi = std::clamp(_in.lo + columns.hi + reach, lo, _out.hi);
        return {lo - _out.lo, hi - _out.lo};
    }

    /// One strip of columns, from x on, of the sum of the rows around the middle.
    void sumRows(const float* const* middle, int x, int columns, float* out)
    {
        _pairs.clear();
        for (std::size_t d = 1; d < _yWeights.size(); ++d)
            _pairs.push_back({*(middle - d) + x, *(middle + d) + x, _yWeights[d]});
        RowKernels::weightedSum(*middle + x, _yWeights[0], _pairs, out, columns);
    }

    void sumColumns(const float* row, Interval columns, float* out)
    {
        const float* middle = row + columns.lo;
        _pairs.clear();
        for (std::size_t d = 1; d < _xWeights.size(); ++d)
            _pairs.push_back({middle - d, middle + d, _xWeights[d]});
        std::fill_n(out, columns.lo, 0.0F);
        RowKernels::weightedSum(middle, _xWeights[0], _pairs, out + columns.lo, columns.size());
        std::fill(out + columns.hi, out + _out.size(), 0.0F);
    }

    Interval _in;
    Interval _out;
    Interval _padded;
    std::span<const float> _xWeights;
    std::span<const float> _yWeights;
    std::array<float*, kFilteredRows> _sums;
    std::vector<Pair> _pairs;
};

} // namespace

void filterBand(const Input& in, std::span<const float> xWeights, std::span<const float> yWeights, const Output& out,
                Interval y, RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const int reach = static_cast<int>(yWeights.size()) - 1;
    const int kept = 2 * reach + kFilteredRows;
    const auto paddedRoom = static_cast<std::size_t>(BlockFilter::paddedColumns(inX, outX, xWeights).size());
    memory.reset(static_cast<std::size_t>(kept) + 2 * kFilteredRows + 1, std::max(roomFor(in, out), paddedRoom));

    PaddedRows rows(in, kept, memory);
    OutputRows<kFilteredRows> outputs(out, y, memory);
    BlockFilter filter(inX, outX, xWeights, yWeights, memory);
    std::vector<const float*> around(static_cast<std::size_t>(kept));
    for (int v = y.lo; v < y.hi; v += kFilteredRows) {
        const int end = std::min(v + kFilteredRows, y.hi);
        const std::span<float* const> results = std::span(outputs.begin(v)).first(static_cast<std::size_t>(end - v));
        rows.collect({v - reach, end + reach}, around);
        filter.run(around, results);
        outputs.end();
    }
}

namespace {

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

} // namespace

void doubleBand(const Input& in, const StepWeights& xStep, const StepWeights& yStep, const Output& out, Interval y,
                RowMemory& memory)
{
    if (!yStep.active())
        return doubleColumnsBand(in, xStep, out, y, memory);

    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const int kept = PyramidKernels::rowsToDouble(yStep.reach());
    const auto wideRoom = static_cast<std::size_t>(ColumnDoubler::bufferSize(outX));
    memory.reset(static_cast<std::size_t>(kept) + kDoubledRows + 2, std::max(roomFor(in, out), wideRoom));

    const ColumnDoubler columns(inX, outX, xStep);
    RowWindow wideRows(takeRows(memory, kept));
    OutputRows<kDoubledRows> outputs(out, y, memory);
    float* narrow = memory.take();
    const float* zeros = memory.takeZeros();
    const auto wideRow = [&](int k) {
        return wideRows.row(k, [&](int v, float* wide) { return columns.run(in.rows.row(v, narrow), wide); });
    };
    std::vector<const float*> around(static_cast<std::size_t>(kept));
    for (int v = 2 * floorHalf(y.lo); v < y.hi; v += kDoubledRows) {
        // Rows beyond the input's are for results that nobody asked for.
        for (int i = 0; i < kept; ++i) {
            const int k = v / 2 - yStep.reach() / 2 + i;
            around[static_cast<std::size_t>(i)] = rowsOf(in.rect).contains(k) ? wideRow(k) : zeros;
        }
        PyramidKernels::doubleRows(around, yStep.weights, outputs.begin(v), outX.size());
        outputs.end();
    }
}

} // namespace BlurAlgo
