// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How each operation of a painter becomes fills and strokes. Text needs nothing here: the base class makes paths of it.
#include "QuarvelDrawingIO/private/DIO_RecordingEngine.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

bool DIO_RecordingEngine::begin(QPaintDevice*)
{
    setActive(true);
    return true;
}

bool DIO_RecordingEngine::end()
{
    setActive(false);
    return true;
}

void DIO_RecordingEngine::updateState(const QPaintEngineState& newState)
{
    const DirtyFlags changed = newState.state();
    if (changed & DirtyPen)
        _pen = newState.pen();
    if (changed & DirtyBrush)
        _brush = newState.brush();
    if (changed & DirtyTransform)
        _toDevice = newState.transform();
    if (changed & DirtyOpacity)
        _opacity = newState.opacity();
}

void DIO_RecordingEngine::drawPath(const QPainterPath& path)
{
    fill(path, _brush);
    stroke(path);
}

void DIO_RecordingEngine::drawRects(const QRectF* rects, int count)
{
    for (const QRectF& rect : std::span(rects, static_cast<std::size_t>(count))) {
        QPainterPath path;
        path.addRect(rect);
        drawPath(path);
    }
}

void DIO_RecordingEngine::drawEllipse(const QRectF& rect)
{
    QPainterPath path;
    path.addEllipse(rect);
    drawPath(path);
}

void DIO_RecordingEngine::drawLines(const QLineF* lines, int count)
{
    for (const QLineF& line : std::span(lines, static_cast<std::size_t>(count))) {
        QPainterPath path(line.p1());
        path.lineTo(line.p2());
        stroke(path);
    }
}

void DIO_RecordingEngine::drawPoints(const QPointF* points, int count)
{
    for (const QPointF& point : std::span(points, static_cast<std::size_t>(count))) {
        QPainterPath path(point);
        path.lineTo(point);
        stroke(path);
    }
}

void DIO_RecordingEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    const std::span corners(points, static_cast<std::size_t>(count));
    if (corners.empty() || (mode == PolylineMode && _sink.polyline(corners)))
        return;
    QPainterPath path(corners.front());
    for (const QPointF& corner : corners.subspan(1))
        path.lineTo(corner);
    if (mode == PolylineMode) {
        stroke(path);
        return;
    }
    path.closeSubpath();
    path.setFillRule(mode == OddEvenMode ? Qt::OddEvenFill : Qt::WindingFill);
    drawPath(path);
}

void DIO_RecordingEngine::drawImage(const QRectF& rect, const QImage& image, const QRectF& source,
                                    Qt::ImageConversionFlags)
{
    QPainterPath path;
    path.addRect(rect);
    fill(path, QBrush(image.copy(source.toAlignedRect())));
}

void DIO_RecordingEngine::drawPixmap(const QRectF& rect, const QPixmap& pixmap, const QRectF& source)
{
    drawImage(rect, pixmap.toImage(), source, Qt::AutoColor);
}

void DIO_RecordingEngine::drawTiledPixmap(const QRectF& rect, const QPixmap& pixmap, const QPointF&)
{
    drawImage(rect, pixmap.toImage(), pixmap.rect(), Qt::AutoColor);
}

void DIO_RecordingEngine::fill(const QPainterPath& path, const QBrush& brush)
{
    if (brush.style() != Qt::NoBrush)
        record(_toDevice.map(path), brush);
}

void DIO_RecordingEngine::stroke(const QPainterPath& path)
{
    if (_pen.style() != Qt::NoPen && _pen.brush().style() != Qt::NoBrush)
        record(_outliner.outline(path, _pen, _toDevice), _pen.brush());
}

void DIO_RecordingEngine::record(const QPainterPath& devicePath, const QBrush& brush)
{
    DIO_RecordedShape shape{devicePath, brush, _opacity, {}, false};
    // The painter knows its whole clip, in its current coordinates.
    if (painter() && painter()->hasClipping()) {
        shape.clipped = true;
        shape.clip = _toDevice.map(painter()->clipPath());
    }
    _sink.shape(std::move(shape));
}
