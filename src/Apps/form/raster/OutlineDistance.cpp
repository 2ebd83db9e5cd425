// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Cells at the same distance are counted and added together, in the order of the distances, so that an area and its
// mirror image have the same sum. Of a broad area some rows are enough for the mean, since it changes little from row
// to row. They lie as far from the top as from the bottom, for the mirror image again.
#include "form/raster/OutlineDistance.h"

#include "form/raster/CellDistances.h"
#include "form/raster/CutSides.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

// Rows are measured that lie in the middle of so many, if the area is at least so broad for each of them.
constexpr std::array kSteps{5, 3, 1};
constexpr double kBreadthPerStep = 4.5; // cells

// The distances of the cells of an area, of which some rows are measured.
class MeasuredRows
{
public:
    // @param mask    inside the box; lives as long as the rows
    // @param longest what longer distances count as
    MeasuredRows(const CellMask& mask, const QRect& box, double longest)
        : _mask(mask), _box(box), _distances(mask, box), _longest(longest)
    {
        // From here on the limit is the distance.
        const int most = static_cast<int>((longest + 0.5) * (longest + 0.5)) + 1;
        const int steps = std::min(_distances.mostSteps(), most);
        _counts.resize(static_cast<std::size_t>(std::min(steps * steps, most)) + 1);
        _peaks.resize(static_cast<std::size_t>(_distances.rows()), kUnknown);
    }

    int rows() const { return _distances.rows(); }

    // Adds the cells of a row to those that the mean is taken of, for as many rows as it stands for.
    void count(int row, int rowsLikeIt)
    {
        const int last = lastSquare();
        const std::span<const int> squares = _distances.row(row);
        int peak = 0;
        for (const CellRun& run : _mask.runs(_box.top() + row))
            for (int x = run.from; x < run.to; ++x) {
                const int limited = std::min(squares[static_cast<std::size_t>(x - _box.left())], last);
                _counts[static_cast<std::size_t>(limited)] += rowsLikeIt;
                peak = std::max(peak, limited);
            }
        _peaks[static_cast<std::size_t>(row)] = peak;
    }

    double mean() const
    {
        double sum = 0.0;
        int cells = 0;
        for (std::size_t square = 1; square < _counts.size(); ++square)
            if (_counts[square] != 0) {
                sum += _counts[square] * distance(static_cast<int>(square));
                cells += _counts[square];
            }
        return cells > 0 ? sum / cells : 0.0;
    }

    // The largest distance, which is looked for in the rows around the upper and the lower one of the counted rows with
    // the largest distances.
    //
    // @param step how many rows apart the counted ones lie
    double largest(int step)
    {
        const auto upper = static_cast<int>(std::ranges::max_element(_peaks) - _peaks.begin());
        const auto lower =
            rows() - 1 - static_cast<int>(std::max_element(_peaks.rbegin(), _peaks.rend()) - _peaks.rbegin());
        int most = 0;
        for (const int peak : {upper, lower})
            for (int row = std::max(0, peak - step + 1); row < std::min(rows(), peak + step); ++row)
                most = std::max(most, peakOf(row));
        return most > 0 ? distance(most) : 0.0;
    }

private:
    static constexpr int kUnknown = -1;

    int lastSquare() const { return static_cast<int>(_counts.size()) - 1; }
    double distance(int square) const { return std::min(std::sqrt(static_cast<double>(square)) - 0.5, _longest); }

    int peakOf(int row)
    {
        int& peak = _peaks[static_cast<std::size_t>(row)];
        if (peak == kUnknown)
            peak = std::min(std::ranges::max(_distances.row(row)), lastSquare());
        return peak;
    }

    const CellMask& _mask;
    QRect _box;
    DistancesInside _distances;
    double _longest;
    std::vector<int> _counts; // cells of the counted rows, by their squared distances
    std::vector<int> _peaks;  // the largest square of each row
};

// How many rows apart an area is measured. The breadth of a strip counts half here: if it lies along the rows, nine of
// them are measured at the least.
int stepFor(int area, int outline)
{
    const double breadth = static_cast<double>(area) / std::max(1, outline);
    return *std::ranges::find_if(kSteps, [&](int step) { return step == 1 || breadth >= kBreadthPerStep * step; });
}

// Counts the rows from the first to the last of an area: from either end the middle one of every `step` rows, between
// them all.
void countRows(MeasuredRows& rows, int first, int last, int step)
{
    const int groups = (last - first + 1) / 2 / step;
    for (int group = 0; group < groups; ++group) {
        const int middle = group * step + step / 2;
        rows.count(first + middle, step);
        rows.count(last - middle, step);
    }
    for (int row = first + groups * step; row <= last - groups * step; ++row)
        rows.count(row, 1);
}

// The first and the last row of an area.
std::pair<int, int> rowsOf(const CellMask& mask)
{
    std::pair rows{mask.box().bottom(), mask.box().top()};
    mask.forEachRun([&](int y, int, int) { rows = {std::min(rows.first, y), std::max(rows.second, y)}; });
    return rows;
}

} // namespace

OutlineDistance measureOutlineDistance(const CellMask& mask, const QRect& grid)
{
    OutlineDistance measured;
    measured.area = mask.area();
    if (measured.area == 0)
        return measured;
    const CutSides cut = cutSides(mask, grid);
    measured.cut = cut.any();
    const QRect box = mask.box().adjusted(cut.left ? 0 : -1, cut.top ? 0 : -1, cut.right ? 0 : 1, cut.bottom ? 0 : 1);
    MeasuredRows rows(mask, box, std::max(grid.width(), grid.height()) / 2.0);
    mask.forEachAtOutline([&](int, int) { ++measured.outline; });
    const int step = stepFor(measured.area, measured.outline);
    const auto [first, last] = rowsOf(mask);
    countRows(rows, first - box.top(), last - box.top(), step);
    measured.mean = rows.mean();
    measured.largest = rows.largest(step);
    return measured;
}
