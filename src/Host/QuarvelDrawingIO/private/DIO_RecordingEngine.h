// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_RecordingEngine: the paint engine of the recording device. It claims every feature, so that the painter hands
// over all operations as they are, and reduces each of them to fills and strokes of paths.
#pragma once

#include "QuarvelDrawingIO/private/DIO_ShapeSink.h"
#include "QuarvelDrawingIO/private/DIO_StrokeOutliner.h"

#include <QPaintEngine>
#include <QPen>
#include <QTransform>

class DIO_RecordingEngine : public QPaintEngine
{
public:
    explicit DIO_RecordingEngine(DIO_ShapeSink& sink) : QPaintEngine(AllFeatures), _sink(sink) {}

    const DIO_StrokeOutliner& outliner() const { return _outliner; }

    bool begin(QPaintDevice* device) override;
    bool end() override;
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& newState) override;

    void drawPath(const QPainterPath& path) override;
    void drawRects(const QRectF* rects, int count) override;
    void drawEllipse(const QRectF& rect) override;
    void drawLines(const QLineF* lines, int count) override;
    void drawPoints(const QPointF* points, int count) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawImage(const QRectF& rect, const QImage& image, const QRectF& source,
                   Qt::ImageConversionFlags flags) override;
    void drawPixmap(const QRectF& rect, const QPixmap& pixmap, const QRectF& source) override;
    void drawTiledPixmap(const QRectF& rect, const QPixmap& pixmap, const QPointF& origin) override;

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPoints;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

private:
    void fill(const QPainterPath& path, const QBrush& brush);
    void stroke(const QPainterPath& path);
    void record(const QPainterPath& devicePath, const QBrush& brush);

    DIO_ShapeSink& _sink;
    DIO_StrokeOutliner _outliner;
    QPen _pen;
    QBrush _brush;
    QTransform _toDevice;
    double _opacity = 1.0;
};
