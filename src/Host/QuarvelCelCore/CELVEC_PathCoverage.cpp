// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every line adds, row by row, the area between itself and the right end of the row, with the sign of its direction: to
// the cells that it passes a part, to the next one the rest. The sum from the left is each cell's winding number,
// averaged over the cell.
#include "QuarvelCelCore/CELVEC_PathCoverage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

constexpr double kTolerance = 0.05; // cells
constexpr int kMostLines = 128;     // that replace a curve
// Levels of coverage: sums in single precision differ by less, so a cell that is half covered stays so when mirrored.
template<typename Step>
constexpr Step kRounding = static_cast<Step>(0.01F);

// A path may have numbers that no cell can have.
double limited(double value)
{
    constexpr double kFarthest = 1e9;
    return std::isnan(value) ? 0.0 : std::clamp(value, -kFarthest, kFarthest);
}

template<typename Step>
Step insideByWinding(Step winding)
{
    return std::min(std::abs(winding), Step(1));
}

template<typename Step>
Step insideByParity(Step winding)
{
    const Step turns = std::abs(winding) / 2;
    const Step rest = 2 * (turns - std::floor(turns));
    return rest > 1 ? 2 - rest : rest;
}

constexpr std::size_t kTogether = 8; // cells

template<typename Step>
bool areZero(std::span<const Step, kTogether> steps)
{
    std::array<std::uint64_t, sizeof(steps[0]) * kTogether / sizeof(std::uint64_t)> bits{};
    std::memcpy(bits.data(), steps.data(), sizeof bits);
    std::uint64_t any = 0;
    for (const std::uint64_t word : bits)
        any |= word;
    return any == 0;
}

// Most cells lie between lines, and are covered as the ones before.
template<typename Step, Step inside(Step)>
void sumRow(std::span<const Step> steps, std::span<std::uint8_t> covered)
{
    Step winding = 0;
    std::uint8_t level = 0;
    const auto addUpTo = [&](std::size_t x, std::size_t end) {
        for (; x < end; ++x) {
            winding += steps[x];
            covered[x] = level = static_cast<std::uint8_t>(255 * inside(winding) + (Step(0.5) + kRounding<Step>));
        }
    };
    std::size_t x = 0;
    for (; x + kTogether <= covered.size(); x += kTogether)
        if (areZero(steps.subspan(x).template first<kTogether>()))
            std::ranges::fill(covered.subspan(x).template first<kTogether>(), level);
        else
            addUpTo(x, x + kTogether);
    addUpTo(x, covered.size());
}

} // namespace

template<typename Step>
CELVEC_PathCoverage<Step>::CELVEC_PathCoverage(const QPointF& origin, const QPointF& cellsPerUnit)
    : _cellsPerUnit{cellsPerUnit.x(), cellsPerUnit.y()}, _origin{origin.x(), origin.y()}
{}

template<typename Step>
void CELVEC_PathCoverage<Step>::find(const QPainterPath& path, const QRect& box, std::span<std::uint8_t> covered)
{
    _box = box;
    const auto width = static_cast<std::size_t>(box.width());
    // A line at the right end of a row reaches two cells beyond it.
    _stride = width + 2;
    const std::size_t cells = _stride * static_cast<std::size_t>(box.height());
    _steps.resize(std::max(_steps.size(), cells));
    std::memset(_steps.data(), 0, cells * sizeof(Step));
    addLoops(path);
    const auto sum = path.fillRule() == Qt::WindingFill ? sumRow<Step, insideByWinding> : sumRow<Step, insideByParity>;
    for (std::size_t row = 0; row * width < covered.size(); ++row)
        sum(std::span<const Step>(_steps).subspan(row * _stride, width), covered.subspan(row * width, width));
}

template<typename Step>
typename CELVEC_PathCoverage<Step>::Point CELVEC_PathCoverage<Step>::inBox(const QPainterPath::Element& element) const
{
    return {limited((element.x - _origin.x) * _cellsPerUnit.x) - _box.left(),
            limited((element.y - _origin.y) * _cellsPerUnit.y) - _box.top()};
}

template<typename Step>
void CELVEC_PathCoverage<Step>::addLoops(const QPainterPath& path)
{
    Point start{};
    Point last{};
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const Point point = inBox(element);
        if (element.isMoveTo()) {
            addLine(last, start);
            start = last = point;
        } else if (element.isLineTo()) {
            addLine(last, point);
            last = point;
        } else {
            const Point end = inBox(path.elementAt(i + 2));
            addCurve(last, point, inBox(path.elementAt(i + 1)), end);
            last = end;
            i += 2;
        }
    }
    addLine(last, start);
}

// The number of lines follows from the curve's second derivative, which bounds how far it leaves them.
template<typename Step>
void CELVEC_PathCoverage<Step>::addCurve(const Point& from, const Point& one, const Point& two, const Point& to)
{
    // A curve lies between its points; outside the rows of the box it adds nothing.
    const auto [highest, lowest] = std::minmax({from.y, one.y, two.y, to.y});
    if (lowest <= 0.0 || highest >= _box.height())
        return;
    const double bend = std::max(std::hypot(from.x - 2.0 * one.x + two.x, from.y - 2.0 * one.y + two.y),
                                 std::hypot(one.x - 2.0 * two.x + to.x, one.y - 2.0 * two.y + to.y));
    const double wanted = std::ceil(std::sqrt(0.75 * bend / kTolerance));
    const int lines = static_cast<int>(std::clamp<double>(wanted, 1, kMostLines));
    Point last = from;
    for (int i = 1; i < lines; ++i) {
        const double t = static_cast<double>(i) / lines;
        const double s = 1.0 - t;
        const double a = s * s * s;
        const double b = 3.0 * s * s * t;
        const double c = 3.0 * s * t * t;
        const double d = t * t * t;
        const Point next{a * from.x + b * one.x + c * two.x + d * to.x, a * from.y + b * one.y + c * two.y + d * to.y};
        addLine(last, next);
        last = next;
    }
    addLine(last, to);
}

template<typename Step>
void CELVEC_PathCoverage<Step>::addLine(const Point& from, const Point& to)
{
    if (from.y == to.y)
        return;
    const double sign = from.y < to.y ? 1.0 : -1.0;
    const Point& upper = from.y < to.y ? from : to;
    const Point& lower = from.y < to.y ? to : from;
    const double top = std::max(upper.y, 0.0);
    const double bottom = std::min(lower.y, static_cast<double>(_box.height()));
    if (top >= bottom)
        return;
    const double slope = (lower.x - upper.x) / (lower.y - upper.y);
    const double right = _box.width();
    const auto at = [&](double y) { return std::clamp(upper.x + slope * (y - upper.y), 0.0, right); };
    double y = top;
    double x = at(y);
    for (auto row = static_cast<std::size_t>(top); y < bottom; ++row) {
        const double end = std::min(static_cast<double>(row + 1), bottom);
        const double endX = at(end);
        addWithinRow(row, std::min(x, endX), std::max(x, endX), sign * (end - y));
        y = end;
        x = endX;
    }
}

// Adds a line within a row of cells.
//
// @param from, to its ends, from the left
// @param height   between its ends, below 0 for a line upwards
template<typename Step>
void CELVEC_PathCoverage<Step>::addWithinRow(std::size_t row, double from, double to, double height)
{
    const auto first = static_cast<std::size_t>(from);
    Step* const steps = &_steps[row * _stride + first];
    const auto left = static_cast<double>(first);
    if (to <= left + 1.0) {
        const double beside = height * (0.5 * (from + to) - left);
        steps[0] += static_cast<Step>(height - beside);
        steps[1] += static_cast<Step>(beside);
        return;
    }
    // The line crosses several cells: to the right end of each, the area that it has passed so far.
    const double perCell = height / (to - from);
    const auto areaUpTo = [&](double x) {
        const double passed = std::min(x, to) - from;
        return 0.5 * perCell * passed * passed + (x > to ? height * (x - to) : 0.0);
    };
    double area = 0.0;
    double covered = 0.0;
    const auto cells = static_cast<std::size_t>(std::ceil(to)) - first;
    for (std::size_t i = 0; i <= cells; ++i) {
        const double upTo = areaUpTo(left + static_cast<double>(i + 1));
        steps[i] += static_cast<Step>(upTo - area - covered);
        covered = upTo - area;
        area = upTo;
    }
}

template class CELVEC_PathCoverage<float>;
template class CELVEC_PathCoverage<double>;
