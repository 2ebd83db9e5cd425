// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A cell is covered or not, so along columns counting down the rows and up again does what the envelope does. Along
// rows, no uncovered cell beyond the ends of a run of covered cells is nearer than those ends.
#include "form/raster/CellDistances.h"

#include <algorithm>
#include <limits>
#include <span>

namespace {

using Steps = std::uint16_t;

constexpr Steps kNoCell = 1 << 14; // more than any grid has rows
constexpr int kFar = std::numeric_limits<int>::max();

Steps next(Steps steps)
{
    return static_cast<Steps>(steps + 1);
}

// The number of steps along its column from every cell of a box, row by row, to the nearest cell that is covered, or
// uncovered; kNoCell and above where the column has none.
std::vector<Steps> stepsAlongColumns(const CellMask& mask, const QRect& box, bool toCovered)
{
    if (box.isEmpty())
        return {};
    const auto width = static_cast<std::size_t>(box.width());
    std::vector<Steps> steps(width * static_cast<std::size_t>(box.height()));
    const CellRun all{box.left(), box.right() + 1};
    std::vector<Steps> before(width, kNoCell);
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const std::span row = std::span(steps).subspan(static_cast<std::size_t>(y - box.top()) * width, width);
        const auto part = [&](std::span<Steps> cells, int from, int to) {
            return cells.subspan(static_cast<std::size_t>(from - all.from), static_cast<std::size_t>(to - from));
        };
        if (toCovered)
            std::ranges::transform(before, row.begin(), next);
        for (const CellRun& run : mask.runs(y)) {
            const int from = std::max(run.from, all.from);
            const int to = std::min(run.to, all.to);
            if (from >= to)
                continue;
            if (toCovered)
                std::ranges::fill(part(row, from, to), Steps{0});
            else
                std::ranges::transform(part(before, from, to), part(row, from, to).begin(), next);
        }
        std::ranges::copy(row, before.begin());
    }
    for (std::size_t end = steps.size() - width; end > 0; end -= width) {
        const std::span row = std::span(steps).subspan(end - width, width);
        const std::span below = std::span(steps).subspan(end, width);
        for (std::size_t x = 0; x < width; ++x)
            row[x] = std::min(row[x], next(below[x]));
    }
    return steps;
}

// Calls a function with every run of steps above zero, and the zeros beside it.
template<typename Function>
void forEachRun(std::span<int> row, Function function)
{
    std::size_t x = 0;
    while (x < row.size()) {
        if (row[x] == 0) {
            ++x;
            continue;
        }
        const std::size_t first = x == 0 ? 0 : x - 1;
        while (x < row.size() && row[x] != 0)
            ++x;
        function(row.subspan(first, std::min(x + 1, row.size()) - first));
    }
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

DistancesInside::DistancesInside(const CellMask& mask, const QRect& box)
    : _box(box)
    , _steps(stepsAlongColumns(mask, box, false))
    , _row(static_cast<std::size_t>(std::max(0, box.width())))
    , _envelope(_row.size())
{
    if (!_steps.empty())
        _mostSteps = *std::ranges::max_element(_steps);
}

std::span<const int> DistancesInside::row(int row)
{
    const std::size_t start = static_cast<std::size_t>(row) * _row.size();
    std::ranges::copy(std::span(_steps).subspan(start, _row.size()), _row.begin());
    forEachRun(_row, [&](std::span<int> run) { _envelope.replace(run); });
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
    : _box(box), _steps(stepsAlongColumns(mask, box, true))
{}

int DistanceToCovered::squared(int x, int y, int most) const
{
    const auto width = static_cast<std::size_t>(_box.width());
    const std::span row = std::span(_steps).subspan(static_cast<std::size_t>(y - _box.top()) * width, width);
    const int place = x - _box.left();
    int nearest = most + 1;
    const auto look = [&](int at, int across) {
        if (at < 0 || at >= _box.width())
            return;
        if (const int steps = row[static_cast<std::size_t>(at)]; steps < kNoCell)
            nearest = std::min(nearest, across * across + steps * steps);
    };
    look(place, 0);
    for (int across = 1; across * across < nearest && across < _box.width(); ++across) {
        look(place - across, across);
        look(place + across, across);
    }
    return nearest;
}
