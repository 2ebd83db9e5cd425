// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The short filter, a few rows at a time: rows are summed first, then columns. Pictures to be blurred are mostly flat,
// so a sum over equal samples is computed once and reused. The same kernel computes it with the same weights in the
// same order, so the result has the same bits.
#include "BlurAlgo/private/FilterStage.h"

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

/// The weighted sums of equal samples, cached for the few values that occur in a flat picture.
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

/// Sums of a few rows, and the strips in which all of them have one value.
struct SummedRows
{
    /// The input's columns, with zeros around them as far as the filter reaches.
    std::array<float*, kFilteredRows> samples{};
    std::vector<LevelStrip> levels;
};

/// Filters vertically: sums rows of n columns.
class RowSummer
{
public:
    RowSummer(int n, std::span<const float> weights)
        : _n(n), _weights(weights), _constants(weights), _levels(static_cast<std::size_t>(stripsOf(n)))
    {}

    /// Makes the first count rows of sums: row j is the sum of the rows around rows[j + reach]. The next call continues
    /// below.
    void run(std::span<const float* const> rows, std::size_t count, SummedRows& sums)
    {
        rows = rows.first(count + static_cast<std::size_t>(2 * reachOf(_weights)));
        const std::span<const float* const> news = _begun ? rows.last(count) : rows;
        _begun = true;
        VL_forStrips(_n, kStrip, [&](int x, int columns) {
            LevelKernels::followLevels(news, x, columns, _levels.data() + x / kLevelStrip);
            sumStrips(rows, {x, x + columns}, sums, count);
        });
    }

private:
    /// The sums in the columns x, which begin at a strip.
    void sumStrips(std::span<const float* const> rows, Interval x, SummedRows& sums, std::size_t count)
    {
        Interval others{x.lo, x.lo};
        for (int lo = x.lo; lo < x.hi; lo += kLevelStrip) {
            const LevelStrip& level = _levels[static_cast<std::size_t>(lo / kLevelStrip)];
            LevelStrip& sumLevel = sums.levels[static_cast<std::size_t>(lo / kLevelStrip)];
            const int hi = std::min(lo + kLevelStrip, x.hi);
            if (level.rows < static_cast<int>(rows.size())) {
                sumLevel = {};
                others.hi = hi;
                continue;
            }
            work(rows, others, sums, count);
            others = {hi, hi};
            setLevel({lo, hi}, _constants.of(level.value()), sums, sumLevel);
        }
        work(rows, others, sums, count);
    }

    static void setLevel(Interval x, float value, SummedRows& sums, LevelStrip& level)
    {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        // Most strips keep the value of the rows before.
        if (level.rows > 0 && level.bits == bits)
            return;
        level = {bits, 1};
        for (float* row : sums.samples)
            std::fill_n(row + x.lo, x.size(), value);
    }

    void work(std::span<const float* const> rows, Interval x, SummedRows& sums, std::size_t count)
    {
        if (x.size() == 0)
            return;
        for (std::size_t j = 0; j < count; ++j) {
            const float* const* middle = rows.data() + j + _weights.size() - 1;
            _pairs.clear();
            for (std::size_t d = 1; d < _weights.size(); ++d)
                _pairs.push_back({*(middle - d) + x.lo, *(middle + d) + x.lo, _weights[d]});
            RowKernels::weightedSum(*middle + x.lo, _weights[0], _pairs, sums.samples[j] + x.lo, x.size());
        }
    }

    int _n;
    std::span<const float> _weights;
    ConstantSums _constants;
    std::vector<LevelStrip> _levels;
    bool _begun = false;
    std::vector<Pair> _pairs;
};

/// Filters horizontally: sums the columns of rows of n samples, with zeros around them, to the columns out, counted
/// from the first sample.
class ColumnSummer
{
public:
    ColumnSummer(int n, Interval out, std::span<const float> weights)
        : _n(n), _out(out), _weights(weights), _constants(weights)
    {}

    void run(const SummedRows& sums, std::span<float* const> results)
    {
        findPieces(sums.levels);
        for (std::size_t j = 0; j < results.size(); ++j)
            for (const Piece& piece : _pieces) {
                float* out = results[j] + (piece.x.lo - _out.lo);
                if (piece.isLevel)
                    LevelKernels::fillRow(out, piece.x.size(), piece.value);
                else
                    work(sums.samples[j], piece.x, out);
            }
    }

private:
    /// A run of columns of the result: to be computed, or known to be one value.
    struct Piece
    {
        Interval x;
        bool isLevel;
        float value;
    };

    /// The zeros on both sides of a row count as a level strip.
    static constexpr LevelStrip kZeros{0, 1};
    static constexpr int kEndless = std::numeric_limits<int>::max() / 2;
    /// Pieces to be computed are multiples of this many columns; shorter level pieces are not worth an interruption.
    static constexpr int kGrain = 16;

    void findPieces(std::span<const LevelStrip> levels)
    {
        _pieces.clear();
        _done = _out.lo;
        LevelStrip level = kZeros;
        int begin = -kEndless;
        const auto goOn = [&](int x, const LevelStrip& next) {
            if (level.rows > 0 && next.rows > 0 && level.bits == next.bits)
                return;
            if (level.rows > 0)
                addLevel({begin, x}, level.value());
            level = next;
            begin = x;
        };
        for (int x = 0; x < _n; x += kLevelStrip)
            goOn(x, levels[static_cast<std::size_t>(x / kLevelStrip)]);
        goOn(_n, kZeros);
        addLevel({begin, kEndless}, level.value());
        addOthers(_out.hi);
    }

    /// All samples in the columns x have this value, so all sums at least the filter's reach inside have one value too.
    void addLevel(Interval x, float value)
    {
        const int reach = reachOf(_weights);
        const int hi = std::min(x.hi - reach, _out.hi);
        const int others = std::max(x.lo + reach - _done, 0);
        const int lo = _done + (others + kGrain - 1) / kGrain * kGrain;
        if (hi - lo < kGrain)
            return;
        addOthers(lo);
        _pieces.push_back({{lo, hi}, true, _constants.of(value)});
        _done = hi;
    }

    /// Adds the columns before end that are not in a piece yet, as columns to compute.
    void addOthers(int end)
    {
        if (end > _done)
            _pieces.push_back({{_done, end}, false, 0.0F});
        _done = end;
    }

    void work(const float* row, Interval x, float* out)
    {
        const float* middle = row + x.lo;
        _pairs.clear();
        for (std::size_t d = 1; d < _weights.size(); ++d)
            _pairs.push_back({middle - d, middle + d, _weights[d]});
        RowKernels::weightedSum(middle, _weights[0], _pairs, out, x.size());
    }

    int _n;
    Interval _out;
    std::span<const float> _weights;
    ConstantSums _constants;
    std::vector<Piece> _pieces;
    int _done = 0; ///< columns before this one belong to a piece
    std::vector<Pair> _pairs;
};

/// The columns for which rows of sums need room.
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
        for (float*& row : _sums.samples)
            row = memory.takeZeros() + skipped;
        _sums.levels.assign(static_cast<std::size_t>(stripsOf(in.size())), {0, 1});
    }

    /// Makes results.size() rows; rows begins the filter's reach above the first of them. The next call continues
    /// below.
    void run(std::span<const float* const> rows, std::span<float* const> results)
    {
        _rows.run(rows, results.size(), _sums);
        _columns.run(_sums, results);
    }

private:
    RowSummer _rows;
    ColumnSummer _columns;
    SummedRows _sums;
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
    memory.reset(static_cast<std::size_t>(kept) + 2 * kFilteredRows + 1, std::max(roomFor(in.rect, out), paddedRoom));

    ReadyRows source(in.rows);
    PaddedRows rows(source, in.rect, kept, memory);
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
