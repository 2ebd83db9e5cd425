// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The short filter, a few rows at a time: rows are summed first and columns then. Sums over one and the same value are
// not worked out for every sample but once: pictures to be blurred are mostly flat. The same kernel does it with the
// same weights in the same order, so it makes no difference to the result, not in a bit.
#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/BlurStages.h"
#include "BlurAlgo/private/LevelKernels.h"
#include "BlurAlgo/private/RowKernels.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>

namespace BlurAlgo {

namespace {

using LevelKernels::kLevelStrip;
using LevelKernels::LevelStrip;
using LevelKernels::stripsOf;
using RowKernels::Pair;

static_assert(kStrip % kLevelStrip == 0);

/// Rows that are filtered together.
constexpr int kFilteredRows = 8;

int reachOf(std::span<const float> weights)
{
    return static_cast<int>(weights.size()) - 1;
}

/// The weighted sums of nothing but one value, kept for the few values that a flat picture has.
class ConstantSums
{
public:
    explicit ConstantSums(std::span<const float> weights) : _weights(weights)
    {
        for (Known& known : _known)
            known.sum = sumOf(known.value);
    }

    float of(float value)
    {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        // The upper bits of a product depend on all bits of its factors.
        Known& known = _known[(bits * 0x9E3779B1U) >> (32 - kKnownBits)];
        if (bits != std::bit_cast<std::uint32_t>(known.value))
            known = {value, sumOf(value)};
        return known.sum;
    }

private:
    static constexpr unsigned kKnownBits = 3;
    struct Known
    {
        float value = 0.0F;
        float sum = 0.0F;
    };

    float sumOf(float value)
    {
        _pairs.clear();
        for (const float weight : _weights.subspan(1))
            _pairs.push_back({&value, &value, weight});
        float sum = 0.0F;
        RowKernels::weightedSum(&value, _weights[0], _pairs, &sum, 1);
        return sum;
    }

    std::span<const float> _weights;
    std::array<Known, std::size_t{1} << kKnownBits> _known;
    std::vector<Pair> _pairs;
};

/// A row of sums of rows, and where it is level.
struct SummedRow
{
    float* samples = nullptr; ///< of the input's columns; zeros lie around them as far as the columns' filter reaches
    std::vector<LevelStrip> levels;
    bool isLevelSomewhere = true;
};

/// Sums rows of n columns.
class RowSummer
{
public:
    RowSummer(int n, std::span<const float> weights)
        : _n(n), _weights(weights), _constants(weights), _levels(static_cast<std::size_t>(stripsOf(n)))
    {}

    /// sums[j] = the sum of the rows around rows[j + reach]. The next call goes on where this one ends.
    void run(std::span<const float* const> rows, std::span<SummedRow> sums)
    {
        const auto others = static_cast<std::size_t>(2 * reachOf(_weights));
        if (!_begun)
            for (const float* row : rows.first(others))
                LevelKernels::followLevels(row, _n, _levels.data());
        _begun = true;
        for (SummedRow& sum : sums)
            sum.isLevelSomewhere = false;
        for (int x = 0; x < _n; x += kStrip)
            for (std::size_t j = 0; j < sums.size(); ++j)
                sumStrips(rows.subspan(j, others + 1), {x, std::min(x + kStrip, _n)}, sums[j]);
    }

private:
    /// The sum of the rows in the columns x, which are those of whole strips.
    void sumStrips(std::span<const float* const> rows, Interval x, SummedRow& sum)
    {
        const int first = x.lo / kLevelStrip;
        if (!LevelKernels::followLevels(rows.back() + x.lo, x.size(), levelsFrom(_levels, first))) {
            work(rows, x, sum);
            std::fill(levelsFrom(sum.levels, first), levelsFrom(sum.levels, stripsOf(x.hi)), LevelStrip());
            return;
        }
        Interval unlevel{x.lo, x.lo};
        for (int strip = first; strip < stripsOf(x.hi); ++strip) {
            const LevelStrip& level = *levelsFrom(_levels, strip);
            const Interval columns{strip * kLevelStrip, std::min((strip + 1) * kLevelStrip, x.hi)};
            if (level.rows < static_cast<int>(rows.size())) {
                unlevel.hi = columns.hi;
                continue;
            }
            workAndLook(rows, unlevel, sum);
            setLevel(columns, _constants.of(level.value()), sum);
            unlevel = {columns.hi, columns.hi};
        }
        workAndLook(rows, unlevel, sum);
    }

    static LevelStrip* levelsFrom(std::vector<LevelStrip>& levels, int strip)
    {
        return levels.data() + static_cast<std::ptrdiff_t>(strip);
    }

    static void setLevel(Interval x, float value, SummedRow& sum)
    {
        LevelStrip& level = *levelsFrom(sum.levels, x.lo / kLevelStrip);
        sum.isLevelSomewhere = true;
        const auto bits = std::bit_cast<std::uint32_t>(value);
        // Most strips are at the value that they had in the rows before.
        if (level.rows > 0 && level.bits == bits)
            return;
        level = {bits, 1};
        std::fill_n(sum.samples + x.lo, x.size(), value);
    }

    void work(std::span<const float* const> rows, Interval x, SummedRow& sum)
    {
        if (x.size() == 0)
            return;
        const float* const* middle = rows.data() + rows.size() / 2;
        _pairs.clear();
        for (std::size_t d = 1; d < _weights.size(); ++d)
            _pairs.push_back({*(middle - d) + x.lo, *(middle + d) + x.lo, _weights[d]});
        RowKernels::weightedSum(*middle + x.lo, _weights[0], _pairs, sum.samples + x.lo, x.size());
    }

    /// The same, and where the sum is level because all rows are, if at several values.
    void workAndLook(std::span<const float* const> rows, Interval x, SummedRow& sum)
    {
        work(rows, x, sum);
        for (int strip = x.lo / kLevelStrip; strip < stripsOf(x.hi); ++strip) {
            LevelStrip& level = *levelsFrom(sum.levels, strip);
            level.rows = 0;
            if (levelsFrom(_levels, strip)->rows == 0)
                continue;
            const int begin = strip * kLevelStrip;
            const int columns = std::min(kLevelStrip, x.hi - begin);
            sum.isLevelSomewhere |= LevelKernels::followLevels(sum.samples + begin, columns, &level);
        }
    }

    int _n;
    std::span<const float> _weights;
    ConstantSums _constants;
    std::vector<LevelStrip> _levels;
    bool _begun = false;
    std::vector<Pair> _pairs;
};

/// Sums columns of rows of n samples, zeros around them, to the columns out, counted from the first sample.
class ColumnSummer
{
public:
    ColumnSummer(int n, Interval out, std::span<const float> weights)
        : _n(n), _out(out), _weights(weights), _constants(weights)
    {}

    void run(const SummedRow& row, float* out)
    {
        _done = _out.lo;
        _level = kZeros;
        _begin = -kEndless;
        if (row.isLevelSomewhere)
            for (int strip = 0; strip < stripsOf(_n); ++strip)
                goOn(row, strip * kLevelStrip, row.levels[static_cast<std::size_t>(strip)], out);
        else
            goOn(row, 0, {}, out);
        goOn(row, _n, kZeros, out);
        addLevel(row, {_begin, kEndless}, _level.value(), out);
        work(row, _out.hi, out);
    }

private:
    /// Around the row there are zeros as far as anyone looks.
    static constexpr LevelStrip kZeros{0, 1};
    static constexpr int kEndless = std::numeric_limits<int>::max() / 2;
    /// Sums are worked out for so many columns at least, and fewer than that are not worth an interruption.
    static constexpr int kGrain = 16;

    /// From column x on the samples are level at this, or not level.
    void goOn(const SummedRow& row, int x, const LevelStrip& level, float* out)
    {
        if (_level.rows > 0 && level.rows > 0 && _level.bits == level.bits)
            return;
        if (_level.rows > 0)
            addLevel(row, {_begin, x}, _level.value(), out);
        _level = level;
        _begin = x;
    }

    /// All samples in the columns x are of this value; the ones before them are dealt with here, too.
    void addLevel(const SummedRow& row, Interval x, float value, float* out)
    {
        const int reach = reachOf(_weights);
        const int end = std::min(x.hi - reach, _out.hi);
        int begin = std::max(x.lo + reach, _done);
        // The sums before end with whole vectors.
        begin = _done + (begin - _done + kGrain - 1) / kGrain * kGrain;
        if (end - begin < kGrain)
            return;
        work(row, begin, out);
        LevelKernels::fill(out + (begin - _out.lo), end - begin, _constants.of(value));
        _done = end;
    }

    /// What is not done yet of the columns before the end.
    void work(const SummedRow& row, int end, float* out)
    {
        if (end == _done)
            return;
        const float* middle = row.samples + _done;
        _pairs.clear();
        for (std::size_t d = 1; d < _weights.size(); ++d)
            _pairs.push_back({middle - d, middle + d, _weights[d]});
        RowKernels::weightedSum(middle, _weights[0], _pairs, out + (_done - _out.lo), end - _done);
        _done = end;
    }

    int _n;
    Interval _out;
    std::span<const float> _weights;
    ConstantSums _constants;
    int _done = 0;     ///< where the columns begin that have yet to be made
    LevelStrip _level; ///< what the samples are like at the column in question
    int _begin = 0;    ///< since which column
    std::vector<Pair> _pairs;
};

/// The columns that rows of sums must have room for.
Interval paddedColumns(Interval in, Interval out, std::span<const float> xWeights)
{
    const int reach = reachOf(xWeights);
    return {std::min(in.lo, out.lo - reach), std::max(in.hi, out.hi + reach)};
}

/// The short filter of both axes, on a few rows at a time.
class BlockFilter
{
public:
    BlockFilter(Interval in, Interval out, std::span<const float> xWeights, std::span<const float> yWeights,
                RowMemory& memory)
        : _rows(in.size(), yWeights), _columns(in.size(), {out.lo - in.lo, out.hi - in.lo}, xWeights)
    {
        const int skipped = in.lo - paddedColumns(in, out, xWeights).lo;
        for (SummedRow& sum : _sums) {
            sum.samples = memory.takeZeros() + skipped;
            sum.levels.assign(static_cast<std::size_t>(stripsOf(in.size())), {0, 1});
        }
    }

    /// Results are made of the rows around those that come after as many as the filter reaches. The next call goes on
    /// below.
    void run(std::span<const float* const> rows, std::span<float* const> results)
    {
        _rows.run(rows, std::span(_sums).first(results.size()));
        for (std::size_t j = 0; j < results.size(); ++j)
            _columns.run(_sums[j], results[j]);
    }

private:
    RowSummer _rows;
    ColumnSummer _columns;
    std::array<SummedRow, kFilteredRows> _sums;
};

} // namespace

void filterBand(const Input& in, std::span<const float> xWeights, std::span<const float> yWeights, const Output& out,
                Interval y, RowMemory& memory)
{
    const Interval inX = columnsOf(in.rect);
    const Interval outX = columnsOf(out.rect);
    const int reach = reachOf(yWeights);
    const int kept = 2 * reach + kFilteredRows;
    const auto paddedRoom = static_cast<std::size_t>(paddedColumns(inX, outX, xWeights).size());
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
