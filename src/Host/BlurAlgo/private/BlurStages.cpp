// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Halving, filtering and doubling, row by row. Halving and filtering sum rows first and columns then, so that the
// columns are summed in fewer rows; doubling goes the other way round for the same reason.
#include "BlurAlgo/private/BlurStages.h"

#include "BlurAlgo/private/RowKernels.h"
#include "BlurAlgo/private/RowWindow.h"

#include <algorithm>
#include <array>

namespace BlurAlgo {

namespace {

using RowKernels::Pair;

constexpr std::size_t kLane = 16;

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

    const float* row(int y)
    {
        if (!rowsOf(_in.rect).contains(y))
            return _zeros;
        return _window.row(y, [this](int v, float* buffer) { return _in.rows.row(v, buffer); });
    }
    const float* zeros() const { return _zeros; }

private:
    const Input& _in;
    RowWindow _window;
    const float* _zeros;
};

/// The sum of the rows around row y, weighted from the middle outwards.
void sumRows(PaddedRows& rows, int y, std::span<const float> weights, std::vector<Pair>& pairs, float* out, int n)
{
    pairs.clear();
    for (int d = 1; d < static_cast<int>(weights.size()); ++d)
        pairs.push_back({rows.row(y - d), rows.row(y + d), weights[static_cast<std::size_t>(d)]});
    RowKernels::weightedSum(rows.row(y), weights[0], pairs, out, n);
}

/// Halves a row that lies in a longer row of zeros.
class ColumnHalver
{
public:
    ColumnHalver(Interval in, Interval out, const StepWeights& step, RowMemory& memory)
        : _margin(ceilHalf(step.reach()))
        , _n(out.size())
        , _step(step)
        , _padded(memory.takeZeros())
        , _input(step.active() ? _padded + (in.lo - 2 * (out.lo - _margin)) : _padded)
        , _even(memory.take())
        , _odd(memory.take())
    {}

    /// Samples that the rows of memory must hold for halving to this many.
    static int paddedSize(int n, int reach) { return 2 * (n + 2 * ceilHalf(reach)); }

    /// Where the row to be halved is to be put.
    float* input() { return _input; }

    void run(float* out)
    {
        RowKernels::split(_padded, _even, _odd, _n + 2 * _margin);
        _pairs.clear();
        const float* even = _even + _margin;
        const float* odd = _odd + _margin;
        for (int d = 1; d <= _step.reach(); ++d) {
            const float weight = _step.weights[static_cast<std::size_t>(d)];
            const int h = d / 2;
            if (d % 2 == 0)
                _pairs.push_back({even - h, even + h, weight});
            else
                _pairs.push_back({odd - h - 1, odd + h, weight});
        }
        RowKernels::weightedSum(even, _step.weights[0], _pairs, out, _n);
    }

private:
    int _margin;
    int _n;
    const StepWeights& _step;
    float* _padded;
    float* _input;
    float* _even;
    float* _odd;
    std::vector<Pair> _pairs;
};

/// Sums between samples: the new samples that lie on old ones take the filter's even weights, those between take the
/// odd ones. at(k) is the old sample or row k.
template<typename At>
void doublingPairs(const StepWeights& step, bool between, const At& at, std::vector<Pair>& pairs)
{
    pairs.clear();
    for (int d = between ? 1 : 2; d <= step.reach(); d += 2)
        pairs.push_back({at(-(d / 2)), at((d + 1) / 2), step.weights[static_cast<std::size_t>(d)]});
}

/// Doubles rows to the columns out, which start and end at even columns.
class ColumnDoubler
{
public:
    ColumnDoubler(Interval in, Interval out, const StepWeights& step, RowMemory& memory)
        : _offset(floorHalf(out.lo) - in.lo), _n(out.size() / 2), _step(step), _even(memory.take()), _odd(memory.take())
    {}

    void run(const float* row, float* out)
    {
        const float* first = row + _offset;
        const auto at = [first](int k) { return first + k; };
        doublingPairs(_step, false, at, _pairs);
        RowKernels::weightedSum(first, _step.weights[0], _pairs, _even, _n);
        doublingPairs(_step, true, at, _pairs);
        RowKernels::weightedSum(nullptr, 0.0F, _pairs, _odd, _n);
        RowKernels::merge(_even, _odd, out, _n);
    }

private:
    int _offset;
    int _n;
    const StepWeights& _step;
    float* _even;
    float* _odd;
    std::vector<Pair> _pairs;
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

void halveBand(const Input& in, const StepWeights& xStep, const StepWeights& yStep, const Output& out, Interval y,
               RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const int kept = yStep.active() ? 2 * yStep.reach() + 1 : 1;
    const int samples = std::max(inX.size(), ColumnHalver::paddedSize(outX.size(), std::max(xStep.reach(), 0)));
    memory.reset(static_cast<std::size_t>(kept) + 5, static_cast<std::size_t>(samples));

    PaddedRows rows(in, kept, memory);
    ColumnHalver columns(inX, outX, xStep, memory);
    float* buffer = memory.take();
    std::vector<Pair> pairs;
    const std::array<float, 1> same{1.0F};
    const std::span<const float> weights = yStep.active() ? std::span<const float>(yStep.weights) : same;
    for (int v = y.lo; v < y.hi; ++v) {
        float* row = out.rows.begin(v, buffer);
        const int middle = yStep.active() ? 2 * v : v;
        sumRows(rows, middle, weights, pairs, xStep.active() ? columns.input() : row, inX.size());
        if (xStep.active())
            columns.run(row);
        out.rows.end(v, row);
    }
}

void filterBand(const Input& in, std::span<const float> xWeights, std::span<const float> yWeights, const Output& out,
                Interval y, RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const int xReach = static_cast<int>(xWeights.size()) - 1;
    const int yReach = static_cast<int>(yWeights.size()) - 1;
    const Interval padded{std::min(inX.lo, outX.lo - xReach), std::max(inX.hi, outX.hi + xReach)};
    const int kept = 2 * yReach + 1;
    memory.reset(static_cast<std::size_t>(kept) + 3, static_cast<std::size_t>(padded.size()));

    PaddedRows rows(in, kept, memory);
    float* sums = memory.takeZeros();
    float* buffer = memory.take();
    const float* middle = sums + (outX.lo - padded.lo);
    std::vector<Pair> rowPairs;
    std::vector<Pair> columnPairs;
    for (int d = 1; d <= xReach; ++d)
        columnPairs.push_back({middle - d, middle + d, xWeights[static_cast<std::size_t>(d)]});

    for (int v = y.lo; v < y.hi; ++v) {
        float* row = out.rows.begin(v, buffer);
        if (v + yReach < in.rect.y1 || v - yReach >= in.rect.y2) {
            std::fill_n(row, outX.size(), 0.0F);
        } else {
            sumRows(rows, v, yWeights, rowPairs, sums + (inX.lo - padded.lo), inX.size());
            RowKernels::weightedSum(middle, xWeights[0], columnPairs, row, outX.size());
        }
        out.rows.end(v, row);
    }
}

void doubleBand(const Input& in, const StepWeights& xStep, const StepWeights& yStep, const Output& out, Interval y,
                RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const Interval wideX = xStep.active() ? alignedToEven(outX) : outX;
    const int kept = yStep.active() ? yStep.reach() + 2 : 1;
    memory.reset(static_cast<std::size_t>(2 * kept) + 3, static_cast<std::size_t>(std::max(wideX.size(), inX.size())));

    RowWindow wideRows(takeRows(memory, kept));
    float* narrow = memory.take();
    ColumnDoubler columns(inX, wideX, xStep, memory);
    float* buffer = memory.take();
    const auto wideRow = [&](int k) {
        return wideRows.row(k, [&](int v, float* wide) {
            const float* row = in.rows.row(v, narrow);
            if (!xStep.active())
                return row + (outX.lo - inX.lo);
            columns.run(row, wide);
            return static_cast<const float*>(wide) + (outX.lo - wideX.lo);
        });
    };

    std::vector<Pair> pairs;
    for (int v = y.lo; v < y.hi; ++v) {
        float* row = out.rows.begin(v, buffer);
        if (!yStep.active()) {
            RowKernels::weightedSum(wideRow(v), 1.0F, {}, row, outX.size());
        } else {
            const int k = floorHalf(v);
            const bool between = (v & 1) != 0;
            doublingPairs(
                yStep, between, [&](int d) { return wideRow(k + d); }, pairs);
            const float* middle = between ? nullptr : wideRow(k);
            RowKernels::weightedSum(middle, yStep.weights[0], pairs, row, outX.size());
        }
        out.rows.end(v, row);
    }
}

} // namespace BlurAlgo
