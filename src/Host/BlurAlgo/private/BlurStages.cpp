// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The short filter, and what all stages need. Rows are summed first and columns then, so that the columns are summed in
// fewer rows where the result has fewer.
#include "BlurAlgo/private/BlurStages.h"

#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/RowKernels.h"

#include <algorithm>
#include <array>

namespace BlurAlgo {

namespace {

using RowKernels::Pair;

/// Rows that are filtered together.
constexpr int kFilteredRows = 8;

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
    // One line more keeps columns of rows from falling on the same places of the cache all the time.
    _stride = (samples + kLine - 1) / kLine * kLine + kLine;
    _next = _memory.room(rows * _stride);
}

float* RowMemory::take()
{
    float* row = _next;
    _next += _stride;
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
        const auto isEmpty = [&](int x, int columns) { return PyramidKernels::areZeros(rows, x, columns); };
        const Interval done = forStrips(_in.size(), isEmpty, sum, clear);
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

} // namespace BlurAlgo
