// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Uniting and intersecting of clips. Qt's path operations are exact enough for clips but slow on detailed paths, so
// rectangles, which most clips are, go without them, and very detailed ones are not cut with each other at all.
#include "QuarvelDrawingIO/private/DIO_ClipStack.h"

namespace {

constexpr int kMaxElements = 2000;

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

void DIO_ClipStack::add(const QPainterPath& path)
{
    if (_gathered->isEmpty()) {
        _gathered = path;
    } else if (_gathered->elementCount() + path.elementCount() <= kMaxElements) {
        _gathered = _gathered->united(path);
    } else {
        _gathered->addPath(path);
        _gathered->setFillRule(Qt::WindingFill);
    }
}

void DIO_ClipStack::end()
{
    if (!_gathered)
        return;
    _clips.push_back(_clips.empty() ? *_gathered : intersection(_clips.back(), *_gathered));
    _gathered.reset();
}

void DIO_ClipStack::pop()
{
    if (!_clips.empty())
        _clips.pop_back();
}

QPainterPath DIO_ClipStack::intersection(const QPainterPath& outer, const QPainterPath& inner)
{
    const QRectF outerBounds = outer.controlPointRect();
    const QRectF innerBounds = inner.controlPointRect();
    if (outer == inner || (DIO_isRectangle(outer) && outerBounds.contains(innerBounds)))
        return inner;
    if (DIO_isRectangle(inner) && innerBounds.contains(outerBounds))
        return outer;
    if (DIO_isRectangle(outer) && DIO_isRectangle(inner)) {
        QPainterPath both;
        both.addRect(outerBounds & innerBounds);
        return both;
    }
    if (outer.elementCount() + inner.elementCount() > kMaxElements) {
        ++_skipped;
        return inner;
    }
    return outer.intersected(inner);
}
