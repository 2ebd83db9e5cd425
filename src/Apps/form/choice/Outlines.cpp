// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Outlines.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"

#include <QPainterPathStroker>

#include <algorithm>

QPainterPath outlineOf(const DIO_Shape& shape)
{
    const QPainterPath path = shape.clip ? DIO_intersected(shape.path, *shape.clip).value_or(shape.path) : shape.path;
    QPainterPath loops;
    loops.setFillRule(path.fillRule());
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            loops.closeSubpath();
            loops.moveTo(element);
        } else if (element.isLineTo()) {
            loops.lineTo(element);
        } else if (element.type == QPainterPath::CurveToElement) {
            loops.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    loops.closeSubpath();
    return loops;
}

QPainterPath strokeAlong(const QPainterPath& outline, double reach)
{
    QPainterPathStroker stroker;
    stroker.setWidth(2.0 * reach);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setCurveThreshold(std::min(0.25, reach / 8.0));
    return stroker.createStroke(outline);
}
