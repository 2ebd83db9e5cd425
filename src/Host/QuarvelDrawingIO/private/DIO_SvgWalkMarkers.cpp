// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Markers: small drawings at the vertices of paths.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QScopeGuard>

#include <cmath>
#include <numbers>

namespace {

// The direction in the middle between those of the two segments at a vertex.
QPointF between(const DIO_PathVertex& vertex)
{
    const auto unit = [](const QPointF& p) { return p.isNull() ? p : p / std::hypot(p.x(), p.y()); };
    const QPointF both = unit(vertex.into) + unit(vertex.onwards);
    return both.isNull() ? vertex.onwards : both;
}

} // namespace

bool DIO_SvgWalk::hasMarkers(const DIO_XmlNode& node, const DIO_SvgStyle& style)
{
    const bool mayHave =
        node.name == u"path" || node.name == u"line" || node.name == u"polyline" || node.name == u"polygon";
    const auto isOne = [](const QString& marker) { return marker.startsWith(u"url("); };
    return mayHave && (isOne(style.markerStart) || isOne(style.markerMid) || isOne(style.markerEnd));
}

void DIO_SvgWalk::writeMarkers(const QString& data, const DIO_SvgStyle& style, const Surroundings& around)
{
    const std::vector<DIO_PathVertex> vertices = DIO_pathVertices(data);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const bool isFirst = i == 0;
        const bool isLast = i + 1 == vertices.size();
        if (isFirst)
            writeMarker(style.markerStart, {vertices[i].at, vertices[i].onwards, true}, style, around);
        if (isLast)
            writeMarker(style.markerEnd, {vertices[i].at, vertices[i].into, false}, style, around);
        if (!isFirst && !isLast)
            writeMarker(style.markerMid, {vertices[i].at, between(vertices[i]), false}, style, around);
    }
}

void DIO_SvgWalk::writeMarker(const QString& reference, const MarkerPlace& place, const DIO_SvgStyle& style,
                              const Surroundings& around)
{
    const DIO_XmlNode* const marker = referenced(reference, u"marker", "line-end marker");
    if (!marker || !countInstance() || !withinLimits())
        return;
    _ancestry.push_back(marker);
    const auto leave = qScopeGuard([this] { _ancestry.pop_back(); });
    const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
    const auto length = [&](const char* name, double otherwise) {
        return DIO_readLength(marker->attribute(QLatin1String(name)), {otherwise, style.fontSize}).value_or(otherwise);
    };
    const QRectF frame(0.0, 0.0, length("markerWidth", 3.0), length("markerHeight", 3.0));
    if (!(frame.width() > 0.0 && frame.height() > 0.0))
        return;
    const std::optional<QRectF> viewBox = DIO_readViewBox(marker->attribute(QLatin1String("viewBox")));
    const DIO_AspectFit fit = DIO_readAspectFit(marker->attribute(QLatin1String("preserveAspectRatio")));
    const QTransform content = viewBox ? DIO_fitTransform(*viewBox, frame, fit) : QTransform();
    const QPointF fixed = content.map(QPointF(length("refX", 0.0), length("refY", 0.0)));
    const bool isFixed = marker->attribute(QLatin1String("markerUnits")) == u"userSpaceOnUse";
    const double scale = isFixed ? 1.0 : style.strokeWidth;
    QTransform toPlace;
    toPlace.translate(place.at.x(), place.at.y());
    toPlace.rotate(turnOf(*marker, place));
    toPlace.scale(scale, scale);
    toPlace.translate(-fixed.x(), -fixed.y());

    Surroundings inner = around;
    inner.inUse = true;
    inner.viewport = viewBox ? viewBox->size() : frame.size();
    DIO_SvgStyle own;
    own.contextFill = style.fill;
    own.contextStroke = style.stroke;
    const bool clipped = properties.value(QStringLiteral("overflow"), QStringLiteral("hidden")) == u"hidden";
    _writer->beginGroup(DIO_matrixText(toPlace));
    if (clipped) {
        _writer->clipTo(frame);
    }
    _writer->beginGroup(DIO_matrixText(content));
    visitContent(*marker, own.inheritedBy(properties, inner.diagonal()), inner);
    _writer->endGroup();
    if (clipped)
        _writer->mark(DIO_SvgMark::Command::CLIP_POP);
    _writer->endGroup();
}

double DIO_SvgWalk::turnOf(const DIO_XmlNode& marker, const MarkerPlace& place)
{
    const QString orient = marker.attribute(QLatin1String("orient")).trimmed();
    if (!orient.startsWith(u"auto"))
        return DIO_readNumber(orient).value_or(0.0);
    const double along = std::atan2(place.direction.y(), place.direction.x()) * 180.0 / std::numbers::pi;
    return along + (place.isStart && orient == u"auto-start-reverse" ? 180.0 : 0.0);
}
