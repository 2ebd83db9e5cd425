// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A cell is covered or not, so along columns counting down the rows and up again does what the envelope does. Along
// rows, no uncovered cell beyond the ends of a run of covered cells is nearer than those ends. Where an uncovered cell
// is near all cells of a run, comparing the few columns around each of them takes less time than the envelope.
#include "form/raster/CellDistances.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

namespace {

using Steps = std::uint16_t;

constexpr Steps kNoCell = 1 << 14; // more than any grid has rows
constexpr int kFar = std::numeric_limits<int>::max();
constexpr int kNear = 16;                 // cells: up to here comparing all columns takes less time than the envelope
constexpr std::int16_t kBeside = 1 << 14; // more than the square of any such distance

Steps next(Steps steps)
{
    return static_cast<Steps>(steps + 1);
}

Steps shorter(Steps own, Steps fromBelow)
{
    return std::min(own, next(fromBelow));
}

// A comparison of values, where std::ranges::max_element() remembers a place, can be done for many at a time.
Steps mostOf(std::span<const Steps> steps)
{
    Steps most = 0;
    for (const Steps own : steps)
        most = std::max(most, own);
    return most;
}

// The cells of a run from `from` to `to` in a row of a box.
template<typename Value>
std::span<Value> cellsOf(std::span<Value> row, const QRect& box, int from, int to)
{
    return row.subspan(static_cast<std::size_t>(from - box.left()), static_cast<std::size_t>(to - from));
}

// Calls a function with the ends of every run of a mask in a row of a box.
template<typename Function>
void forEachRun(const CellMask& mask, const QRect& box, int y, Function function)
{
    for (const CellRun& run : mask.runs(y))
        if (const int from = std::max(run.from, box.left()), to = std::min(run.to, box.right() + 1); from < to)
            function(from, to);
}

// Steps along columns, row by row.
class ColumnSteps
{
public:
    explicit ColumnSteps(const QRect& box)
        : _width(static_cast<std::size_t>(box.width()))
        , _steps(_width * static_cast<std::size_t>(box.height()))
        , _none(_width, kNoCell)
    {}

    std::span<Steps> row(int row) { return std::span(_steps).subspan(static_cast<std::size_t>(row) * _width, _width); }
    std::span<const Steps> before(int row) { return row > 0 ? this->row(row - 1) : std::span(_none); }
    std::vector<Steps> take() { return std::move(_steps); }

private:
    std::size_t _width;
    std::vector<Steps> _steps;
    std::vector<Steps> _none;
};

// The number of steps along its column from every cell of a box, row by row, to the nearest uncovered cell; kNoCell and
// above where the column has none.
std::vector<Steps> stepsToUncovered(const CellMask& mask, const QRect& box)
{
    if (box.isEmpty())
        return {};
    ColumnSteps steps(box);
    const int rows = box.height();
    for (int row = 0; row < rows; ++row)
        forEachRun(mask, box, box.top() + row, [&](int from, int to) {
            std::ranges::transform(cellsOf(steps.before(row), box, from, to),
                                   cellsOf(steps.row(row), box, from, to).begin(), next);
        });
    for (int row = rows - 2; row >= 0; --row)
        forEachRun(mask, box, box.top() + row, [&](int from, int to) {
            const std::span<Steps> own = cellsOf(steps.row(row), box, from, to);
            const std::span<const Steps> below = cellsOf(steps.row(row + 1), box, from, to);
            std::transform(own.begin(), own.end(), below.begin(), own.begin(), shorter);
        });
    return steps.take();
}

// The same to the nearest covered cell.
std::vector<Steps> stepsToCovered(const CellMask& mask, const QRect& box)
{
    if (box.isEmpty())
        return {};
    ColumnSteps steps(box);
    const int rows = box.height();
    for (int row = 0; row < rows; ++row) {
        std::ranges::transform(steps.before(row), steps.row(row).begin(), next);
        forEachRun(mask, box, box.top() + row,
                   [&](int from, int to) { std::ranges::fill(cellsOf(steps.row(row), box, from, to), Steps{0}); });
    }
    for (int row = rows - 2; row >= 0; --row) {
        const std::span<Steps> own = steps.row(row);
        std::transform(own.begin(), own.end(), steps.row(row + 1).begin(), own.begin(), shorter);
    }
    return steps.take();
}

} // namespace

LowerEnvelope::LowerEnvelope(std::size_t longest)
    : _places(longest), _heights(longest), _starts(longest + 1), _reciprocals(longest + 1)
{
    for (std::size_t i = 1; i <= longest; ++i)
        _reciprocals[i] = 0.5 / static_cast<double>(i);
}

void LowerEnvelope::replace(std::span<int> line)
{
    find(line);
    if (_count == 0) {
        std::ranges::fill(line, kFar);
        return;
    }
    std::size_t at = 0;
    for (std::size_t x = 0; x < line.size(); ++x) {
        while (at + 1 < _count && _starts[at + 1] < static_cast<double>(x))
            ++at;
        const int distance = static_cast<int>(x) - _places[at];
        line[x] = distance * distance + _heights[at];
    }
}

void LowerEnvelope::find(std::span<const int> line)
{
    _count = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] >= kNoCell)
            continue;
        const int place = static_cast<int>(i);
        const int height = line[i] * line[i];
        double start = -std::numeric_limits<double>::infinity();
        while (_count > 0 && (start = meeting(place, height)) <= _starts[_count - 1])
            --_count;
        _places[_count] = place;
        _heights[_count] = height;
        _starts[_count] = _count == 0 ? -std::numeric_limits<double>::infinity() : start;
        ++_count;
    }
}

// Where a parabola meets the last one. The product may be off by its rounding, which matters nowhere: at a whole
// number both parabolas are equally high there, or the place lies farther from it than the error.
double LowerEnvelope::meeting(int place, int height) const
{
    const int last = _places[_count - 1];
    const int difference = (height + place * place) - (_heights[_count - 1] + last * last);
    return difference * _reciprocals[static_cast<std::size_t>(place - last)];
}

NearestInRow::NearestInRow(std::size_t longest) : _squares(longest + 2 * kNear), _nearest(longest) {}

void NearestInRow::replace(std::span<int> line, int farthest)
{
    const std::size_t count = line.size();
    const std::span all = std::span(_squares).first(count + 2 * kNear);
    std::ranges::fill(all.first(kNear), kBeside);
    std::ranges::fill(all.last(kNear), kBeside);
    const std::span<std::int16_t> squares = all.subspan(kNear, count);
    const int limit = farthest + 1;
    std::ranges::transform(line, squares.begin(), [limit](int steps) {
        const int limited = std::min(steps, limit);
        return static_cast<std::int16_t>(limited * limited);
    });
    const std::span nearest = std::span(_nearest).first(count);
    std::ranges::copy(squares, nearest.begin());
    for (int across = 1; across <= farthest; ++across) {
        const auto apart = static_cast<std::size_t>(across);
        const std::int16_t* const left = squares.data() - apart;
        const std::int16_t* const right = squares.data() + apart;
        const auto added = static_cast<std::int16_t>(across * across);
        for (std::size_t x = 0; x < count; ++x) {
            const std::int16_t beside = std::min(left[x], right[x]);
            nearest[x] = std::min(nearest[x], static_cast<std::int16_t>(beside + added));
        }
    }
    std::ranges::copy(nearest, line.begin());
}

DistancesInside::DistancesInside(const CellMask& mask, const QRect& box)
    : _mask(mask)
    , _box(box)
    , _steps(stepsToUncovered(mask, box))
    , _row(static_cast<std::size_t>(std::max(0, box.width())))
    , _nearest(_row.size())
    , _envelope(_row.size())
{
    _mostSteps = mostOf(_steps);
}

std::span<const int> DistancesInside::row(int row)
{
    std::ranges::fill(_row, 0);
    const std::span steps = std::span(_steps).subspan(static_cast<std::size_t>(row) * _row.size(), _row.size());
    forEachRun(_mask, _box, _box.top() + row, [&](int from, int to) {
        // The uncovered cells at its ends belong to the run.
        const bool startsInside = from > _box.left();
        const bool endsInside = to <= _box.right();
        const std::span run = cellsOf(std::span(_row), _box, from - (startsInside ? 1 : 0), to + (endsInside ? 1 : 0));
        const std::span own = cellsOf(steps, _box, from, to);
        std::ranges::copy(own, run.begin() + (startsInside ? 1 : 0));
        int farthest = mostOf(own);
        if (startsInside || endsInside)
            farthest = std::min(farthest, (startsInside && endsInside ? (to - from + 1) / 2 : to - from));
        if (farthest <= kNear)
            _nearest.replace(run, farthest);
        else
            _envelope.replace(run);
    });
    return _row;
}

std::vector<int> squaredDistancesInside(const CellMask& mask, const QRect& box)
{
    DistancesInside distances(mask, box);
    std::vector<int> squares;
    squares.reserve(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()));
    for (int y = 0; y < distances.rows(); ++y) {
        const std::span<const int> row = distances.row(y);
        squares.insert(squares.end(), row.begin(), row.end());
    }
    return squares;
}

DistanceToCovered::DistanceToCovered(const CellMask& mask, const QRect& box)
    : _box(box), _steps(stepsToCovered(mask, box))
{}

int DistanceToCovered::squared(int x, int y, int most) const
{
    const int width = _box.right() - _box.left() + 1;
    const int place = x - _box.left();
    const Steps* const own = &_steps[static_cast<std::size_t>(y - _box.top()) * static_cast<std::size_t>(width) +
                                     static_cast<std::size_t>(place)];
    int nearest = most + 1;
    const auto look = [&](int across) {
        if (const int steps = own[across]; steps < kNoCell)
            nearest = std::min(nearest, across * across + steps * steps);
    };
    look(0);
    const int left = place;
    const int right = width - 1 - place;
    const int both = std::min(left, right);
    int across = 1;
    for (; across * across < nearest && across <= both; ++across) {
        look(-across);
        look(across);
    }
    const int side = left > right ? -1 : 1;
    for (; across * across < nearest && across <= std::max(left, right); ++across)
        look(side * across);
    return nearest;
}
