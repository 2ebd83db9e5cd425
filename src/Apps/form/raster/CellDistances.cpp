// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Squared distances are integers, so they are exact in double precision in any order of the steps.
#include "form/raster/CellDistances.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kFar = 1e12;
constexpr int kNoCell = 1 << 19; // steps: more than any grid has rows

// The lower envelope of the parabolas (x - i)^2 + heights[i], evaluated at every x, in place.
class Envelope
{
public:
    explicit Envelope(std::size_t longest) : _places(longest), _starts(longest + 1), _heights(longest) {}

    void replace(std::vector<double>& line, std::size_t count)
    {
        std::copy_n(line.begin(), count, _heights.begin());
        std::size_t last = 0;
        _places[0] = 0;
        _starts[0] = -std::numeric_limits<double>::infinity();
        for (std::size_t i = 1; i < count; ++i) {
            double start = meeting(i, _places[last]);
            while (start <= _starts[last])
                start = meeting(i, _places[--last]);
            _places[++last] = i;
            _starts[last] = start;
        }
        std::size_t at = 0;
        for (std::size_t x = 0; x < count; ++x) {
            while (at < last && _starts[at + 1] < static_cast<double>(x))
                ++at;
            const double distance = static_cast<double>(x) - static_cast<double>(_places[at]);
            line[x] = distance * distance + _heights[_places[at]];
        }
    }

private:
    double meeting(std::size_t i, std::size_t j) const
    {
        const auto a = static_cast<double>(i);
        const auto b = static_cast<double>(j);
        return ((_heights[i] + a * a) - (_heights[j] + b * b)) / (2.0 * (a - b));
    }

    std::vector<std::size_t> _places;
    std::vector<double> _starts;
    std::vector<double> _heights;
};

// The squared distances along every column. A cell is covered or not, so counting down the rows and up again does what
// the envelope does.
void measureColumns(const CellMask& mask, const QRect& box, bool toCovered, std::vector<double>& squares)
{
    const auto width = static_cast<std::size_t>(box.width());
    const auto height = static_cast<std::size_t>(box.height());
    std::vector<int> steps(width, kNoCell);
    const auto square = [](int count) { return count >= kNoCell ? kFar : static_cast<double>(count) * count; };
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) {
            const bool covered = mask.at(box.left() + static_cast<int>(x), box.top() + static_cast<int>(y));
            steps[x] = covered == toCovered ? 0 : std::min(steps[x] + 1, kNoCell);
            squares[y * width + x] = square(steps[x]);
        }
    std::ranges::fill(steps, kNoCell);
    for (std::size_t y = height; y-- > 0;)
        for (std::size_t x = 0; x < width; ++x) {
            double& above = squares[y * width + x];
            steps[x] = above == 0.0 ? 0 : std::min(steps[x] + 1, kNoCell);
            above = std::min(above, square(steps[x]));
        }
}

} // namespace

std::vector<double> squaredDistances(const CellMask& mask, const QRect& box, bool toCovered)
{
    const auto width = static_cast<std::size_t>(box.width());
    const auto height = static_cast<std::size_t>(box.height());
    std::vector<double> squares(width * height);
    measureColumns(mask, box, toCovered, squares);
    std::vector<double> line(width);
    Envelope envelope(width);
    for (std::size_t y = 0; y < height; ++y) {
        const auto row = squares.begin() + static_cast<std::ptrdiff_t>(y * width);
        std::copy_n(row, width, line.begin());
        envelope.replace(line, width);
        std::copy_n(line.begin(), width, row);
    }
    return squares;
}
