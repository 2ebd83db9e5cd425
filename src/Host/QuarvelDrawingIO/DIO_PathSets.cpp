// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The shortcuts, and the limit on detail. The bounds are those of the control points, which are never too small.
//
// Qt's operations lose parts of areas whose corners differ by what rounding leaves, as those of two areas do that were
// cut at the same edge. Coordinates are therefore put on a grid before and after each operation, so fine that nobody
// sees it: such corners become one.
#include "QuarvelDrawingIO/DIO_PathSets.h"

#include "QuarvelDrawingIO/private/DIO_PathCrossings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMaxElements = 2000;

// A hundred lines across a hundred others take a sixth of a second to be combined.
constexpr int kMaxCrossings = 10'000;

// Measured on stripes: an element of long paths takes ten times the time of one of short paths, and where stripes
// cross, each crossing takes the longer, the more of them there are.
int unitsForElements(int elements)
{
    constexpr int kLong = 256;
    return elements + elements * elements / kLong;
}

int unitsForCrossings(int crossings)
{
    constexpr int kMany = 1024;
    return crossings + crossings * crossings / kMany;
}

// The elements are paid for first: where nothing is left for them, their crossings need not be counted either.
bool areTooDetailed(const QPainterPath& a, const QPainterPath& b, DIO_PathWork* work)
{
    const int elements = a.elementCount() + b.elementCount();
    if (elements > kMaxElements || (work && !work->take(unitsForElements(elements))))
        return true;
    const int crossings = DIO_crossings(a, b, kMaxCrossings);
    return crossings > kMaxCrossings || (work && !work->take(unitsForCrossings(crossings)));
}

// QRectF::intersects() is false for rectangles that are empty in one direction; a closed comparison is not.
bool meet(const QPainterPath& a, const QPainterPath& b)
{
    const QRectF first = a.controlPointRect();
    const QRectF second = b.controlPointRect();
    return first.left() <= second.right() && second.left() <= first.right() && first.top() <= second.bottom() &&
           second.top() <= first.bottom();
}

// Both areas as one path. It is their union as long as overlapping parts run the same way around.
QPainterPath sideBySide(const QPainterPath& a, const QPainterPath& b)
{
    QPainterPath both = a;
    both.addPath(b);
    both.setFillRule(Qt::WindingFill);
    return both;
}

bool contains(const QPainterPath& outer, const QPainterPath& inner)
{
    return DIO_isRectangle(outer) && outer.controlPointRect().contains(inner.controlPointRect());
}

double reachOf(const QPainterPath& path)
{
    const QRectF bounds = path.controlPointRect();
    return std::max(
        {std::abs(bounds.left()), std::abs(bounds.right()), std::abs(bounds.top()), std::abs(bounds.bottom())});
}

// A power of two, about a four millionth of how far the paths reach from the origin.
double gridFor(const QPainterPath& a, const QPainterPath& b)
{
    constexpr int kBits = 22;
    const double reach = std::max(reachOf(a), reachOf(b));
    return reach > 0.0 && std::isfinite(reach) ? std::ldexp(1.0, std::ilogb(reach) - kBits) : 1.0;
}

QPainterPath onGrid(QPainterPath path, double grid)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        path.setElementPositionAt(i, std::round(element.x / grid) * grid, std::round(element.y / grid) * grid);
    }
    return path;
}

QPainterPath combined(const QPainterPath& a, const QPainterPath& b,
                      QPainterPath (QPainterPath::*operation)(const QPainterPath&) const)
{
    const double grid = gridFor(a, b);
    return onGrid((onGrid(a, grid).*operation)(onGrid(b, grid)), grid);
}

} // namespace

bool DIO_isRectangle(const QPainterPath& path)
{
    const int count = path.elementCount();
    if (count != 4 && count != 5)
        return false;
    const QRectF bounds = path.controlPointRect();
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element& element = path.elementAt(i);
        const bool corner = (element.x == bounds.left() || element.x == bounds.right()) &&
                            (element.y == bounds.top() || element.y == bounds.bottom());
        if (!corner || (element.type != QPainterPath::LineToElement && i > 0))
            return false;
        if (i > 0 && element.x != path.elementAt(i - 1).x && element.y != path.elementAt(i - 1).y)
            return false;
    }
    // Four corners, each one step along an axis from the last, and back or one step from the start.
    return QPointF(path.elementAt(0)) != QPointF(path.elementAt(2)) &&
           QPointF(path.elementAt(1)) != QPointF(path.elementAt(3)) &&
           (count == 4 || QPointF(path.elementAt(4)) == QPointF(path.elementAt(0)));
}

QPainterPath DIO_rectangle(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

std::optional<QPainterPath> DIO_united(const QPainterPath& a, const QPainterPath& b, DIO_PathWork* work)
{
    if (b.isEmpty() || a == b || contains(a, b))
        return a;
    if (a.isEmpty() || contains(b, a))
        return b;
    if (areTooDetailed(a, b, work))
        return std::nullopt;
    return combined(a, b, &QPainterPath::united);
}

// Neighbours are united first, then their unions: each area takes part in few operations, and most of those are on
// small ones.
QPainterPath DIO_united(std::vector<QPainterPath> areas, DIO_PathWork* work)
{
    while (areas.size() > 1) {
        std::vector<QPainterPath> pairs;
        for (std::size_t i = 0; i + 1 < areas.size(); i += 2) {
            const std::optional<QPainterPath> both = DIO_united(areas[i], areas[i + 1], work);
            pairs.push_back(both ? *both : sideBySide(areas[i], areas[i + 1]));
        }
        if (areas.size() % 2 == 1)
            pairs.push_back(std::move(areas.back()));
        areas = std::move(pairs);
    }
    return areas.empty() ? QPainterPath() : areas.front();
}

std::optional<QPainterPath> DIO_intersected(const QPainterPath& a, const QPainterPath& b, DIO_PathWork* work)
{
    if (a.isEmpty() || b.isEmpty() || !meet(a, b))
        return QPainterPath();
    if (a == b || contains(a, b))
        return b;
    if (contains(b, a))
        return a;
    if (DIO_isRectangle(a) && DIO_isRectangle(b))
        return DIO_rectangle(a.controlPointRect() & b.controlPointRect());
    if (areTooDetailed(a, b, work))
        return std::nullopt;
    return combined(a, b, &QPainterPath::intersected);
}

std::optional<QPainterPath> DIO_subtracted(const QPainterPath& a, const QPainterPath& b, DIO_PathWork* work)
{
    if (a.isEmpty() || b.isEmpty() || !meet(a, b))
        return a;
    if (a == b || contains(b, a))
        return QPainterPath();
    if (areTooDetailed(a, b, work))
        return std::nullopt;
    return combined(a, b, &QPainterPath::subtracted);
}
