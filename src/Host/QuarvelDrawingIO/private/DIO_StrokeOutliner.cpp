// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of strokes by Qt's path stroker, which widens Bézier curves as Bézier curves.
#include "QuarvelDrawingIO/private/DIO_StrokeOutliner.h"

#include <QPainterPathStroker>

#include <cmath>
#include <numeric>

namespace {

constexpr double kMaxDashesPerPath = 50000;

// How far a widened curve may be from the true one, as a part of half the pen's width. Drawings are shown at any size,
// so this is finer than a screen needs.
constexpr double kCurveTolerance = 0.02;

// The length of the control polygon, which the path's own length never exceeds.
double lengthAtMost(const QPainterPath& path)
{
    double length = 0.0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPainterPath::Element& to = path.elementAt(i);
        const QPainterPath::Element& from = path.elementAt(i - 1);
        if (to.type != QPainterPath::MoveToElement)
            length += std::hypot(to.x - from.x, to.y - from.y);
    }
    return length;
}

} // namespace

bool DIO_StrokeOutliner::affordsDashes(const QPainterPath& path, const QPen& pen, double width)
{
    const QList<qreal> pattern = pen.dashPattern();
    const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0) * width;
    const double dashes = lengthAtMost(path) / period * static_cast<double>(pattern.size());
    // Written so that a period of 0 or NaN is refused, too.
    if (!(period > 0.0 && dashes <= kMaxDashesPerPath && dashes <= _dashesLeft)) {
        ++_undashed;
        return false;
    }
    _dashesLeft -= dashes;
    return true;
}

QPainterPath DIO_StrokeOutliner::outline(const QPainterPath& path, const QPen& pen, const QTransform& toDevice)
{
    const bool cosmetic = pen.isCosmetic() || pen.widthF() == 0.0;
    const double width = pen.widthF() == 0.0 ? 1.0 : pen.widthF();
    if (pen.style() == Qt::NoPen || path.isEmpty() || !std::isfinite(width))
        return {};
    const QPainterPath centre = cosmetic ? toDevice.map(path) : path;

    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(pen.capStyle());
    stroker.setJoinStyle(pen.joinStyle());
    stroker.setMiterLimit(pen.miterLimit());
    stroker.setCurveThreshold(kCurveTolerance);
    if (pen.style() != Qt::SolidLine && affordsDashes(centre, pen, width)) {
        stroker.setDashPattern(pen.dashPattern());
        stroker.setDashOffset(pen.dashOffset());
    }
    const QPainterPath outline = stroker.createStroke(centre);
    return cosmetic ? outline : toDevice.map(outline);
}
