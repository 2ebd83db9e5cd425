// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The shortcuts, and the limit on detail. The bounds are those of the control points, which are never too small.
#include "QuarvelDrawingIO/private/DIO_PathSets.h"

namespace {

constexpr int kMaxElements = 2000;

bool areTooDetailed(const QPainterPath& a, const QPainterPath& b)
{
    return a.elementCount() + b.elementCount() > kMaxElements;
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

std::optional<QPainterPath> DIO_united(const QPainterPath& a, const QPainterPath& b)
{
    if (b.isEmpty() || a == b || contains(a, b))
        return a;
    if (a.isEmpty() || contains(b, a))
        return b;
    if (areTooDetailed(a, b))
        return std::nullopt;
    return a.united(b);
}

// Neighbours are united first, then their unions: each area takes part in few operations, and most of those are on
// small ones.
QPainterPath DIO_united(std::vector<QPainterPath> areas)
{
    while (areas.size() > 1) {
        std::vector<QPainterPath> pairs;
        for (std::size_t i = 0; i + 1 < areas.size(); i += 2) {
            const std::optional<QPainterPath> both = DIO_united(areas[i], areas[i + 1]);
            pairs.push_back(both ? *both : sideBySide(areas[i], areas[i + 1]));
        }
        if (areas.size() % 2 == 1)
            pairs.push_back(std::move(areas.back()));
        areas = std::move(pairs);
    }
    return areas.empty() ? QPainterPath() : areas.front();
}

std::optional<QPainterPath> DIO_intersected(const QPainterPath& a, const QPainterPath& b)
{
    if (a.isEmpty() || b.isEmpty() || !meet(a, b))
        return QPainterPath();
    if (a == b || contains(a, b))
        return b;
    if (contains(b, a))
        return a;
    if (DIO_isRectangle(a) && DIO_isRectangle(b))
        return DIO_rectangle(a.controlPointRect() & b.controlPointRect());
    if (areTooDetailed(a, b))
        return std::nullopt;
    return a.intersected(b);
}

std::optional<QPainterPath> DIO_subtracted(const QPainterPath& a, const QPainterPath& b)
{
    if (a.isEmpty() || b.isEmpty() || !meet(a, b))
        return a;
    if (a == b || contains(b, a))
        return QPainterPath();
    if (areTooDetailed(a, b))
        return std::nullopt;
    return a.subtracted(b);
}
