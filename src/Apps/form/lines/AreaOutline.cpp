// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The outline is walked with the area on the right. The middles of the edges are averaged along it, which removes the
// steps, and points that hardly change the outline are left out (U. Ramer, "An iterative procedure for the polygonal
// approximation of plane curves", 1972).
#include "form/lines/AreaOutline.h"

#include <QPolygonF>

#include <cmath>

namespace {

constexpr int kAveraged = 2;        // edges on either side that a point is averaged over
constexpr double kTolerance = 0.25; // cells

// A step along an edge between cells: from a corner, in a direction.
struct Step
{
    QPoint corner;
    QPoint direction;

    friend bool operator==(const Step&, const Step&) = default;
};

QPoint turnedRight(const QPoint& direction)
{
    return {-direction.y(), direction.x()};
}

// The cell on the right (or left) of a step along an edge.
QPoint cellBeside(const Step& step, bool right)
{
    const QPoint across = right ? turnedRight(step.direction) : -turnedRight(step.direction);
    const QPoint twice = 2 * step.corner + step.direction + across;
    return {(twice.x() - 1) / 2, (twice.y() - 1) / 2};
}

bool isCovered(const CellMask& mask, const QPoint& cell)
{
    return mask.at(cell.x(), cell.y());
}

// The next edge of the outline. Cells that share only a corner are connected, so it turns left first.
Step next(const CellMask& mask, const Step& step)
{
    const QPoint corner = step.corner + step.direction;
    const QPoint right = turnedRight(step.direction);
    if (isCovered(mask, cellBeside({corner, step.direction}, false)))
        return {corner, -right};
    if (isCovered(mask, cellBeside({corner, step.direction}, true)))
        return {corner, step.direction};
    return {corner, right};
}

// The first covered cell has an uncovered one above it.
Step firstStep(const CellMask& mask)
{
    const QRect& box = mask.box();
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
            if (mask.at(x, y))
                return {{x, y}, {1, 0}};
    return {};
}

QPolygonF middlesOfEdges(const CellMask& mask)
{
    QPolygonF middles;
    const Step first = firstStep(mask);
    Step step = first;
    do {
        middles.append(QPointF(step.corner) + QPointF(step.direction) / 2.0);
        step = next(mask, step);
    } while (step != first);
    return middles;
}

QPolygonF averaged(const QPolygonF& points)
{
    QPolygonF smooth;
    const qsizetype count = points.size();
    for (qsizetype i = 0; i < count; ++i) {
        QPointF sum;
        for (int k = -kAveraged; k <= kAveraged; ++k)
            sum += points[(i + k + count) % count];
        smooth.append(sum / (2.0 * kAveraged + 1.0));
    }
    return smooth;
}

// The distances of points from a line.
class Line
{
public:
    Line(const QPointF& from, const QPointF& to)
        : _from(from), _along(to - from), _length(std::hypot(_along.x(), _along.y()))
    {}

    double distanceOf(const QPointF& point) const
    {
        const QPointF off = point - _from;
        if (_length == 0.0)
            return std::hypot(off.x(), off.y());
        return std::abs(_along.x() * off.y() - _along.y() * off.x()) / _length;
    }

private:
    QPointF _from;
    QPointF _along;
    double _length;
};

// The points that a line from the first to the last one needs on its way.
QPolygonF simplified(const QPolygonF& points)
{
    std::vector<bool> kept(static_cast<std::size_t>(points.size()));
    kept.front() = kept.back() = true;
    std::vector<std::pair<qsizetype, qsizetype>> open{{0, points.size() - 1}};
    while (!open.empty()) {
        const auto [from, to] = open.back();
        open.pop_back();
        const Line line(points[from], points[to]);
        double farthest = kTolerance;
        qsizetype at = -1;
        for (qsizetype i = from + 1; i < to; ++i)
            if (const double far = line.distanceOf(points[i]); far > farthest) {
                farthest = far;
                at = i;
            }
        if (at < 0)
            continue;
        kept[static_cast<std::size_t>(at)] = true;
        open.emplace_back(from, at);
        open.emplace_back(at, to);
    }
    QPolygonF simple;
    for (qsizetype i = 0; i < points.size(); ++i)
        if (kept[static_cast<std::size_t>(i)])
            simple.append(points[i]);
    return simple;
}

} // namespace

QPainterPath outlineOf(const CellMask& mask)
{
    QPainterPath path;
    if (mask.area() == 0)
        return path;
    QPolygonF loop = averaged(middlesOfEdges(mask));
    loop.append(loop.first());
    path.addPolygon(simplified(loop));
    path.closeSubpath();
    return path;
}
