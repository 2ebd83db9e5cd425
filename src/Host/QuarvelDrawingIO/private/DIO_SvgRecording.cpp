// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The document's viewBox is 100 x 100, and so is the device: what is recorded is in the document's own units.
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_RecordingDevice.h"
#include "QuarvelDrawingIO/private/DIO_ShapeCollector.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

class Bounds : public DIO_ShapeSink
{
public:
    void shape(DIO_RecordedShape shape) override { all |= shape.path.boundingRect(); }
    bool polyline(std::span<const QPointF>) override { return true; }

    QRectF all;
};

// What is averaged is painted this large.
constexpr int kSide = 64;

DIO_Drawing drawingOf(const QByteArray& document, const std::vector<DIO_PaintServer>& servers)
{
    constexpr qint64 kPicturePixels = 1024 * 1024;
    const DIO_SvgLayers noLayers;
    DIO_ShapeCollector collector(noLayers, servers, kPicturePixels);
    int undashed = 0;
    DIO_recordSvg(document, 1.0, collector, undashed);
    return collector.takeDrawing();
}

} // namespace

bool DIO_recordSvg(const QByteArray& document, double stretchY, DIO_ShapeSink& sink, int& undashed)
{
    QSvgRenderer renderer;
    if (!renderer.load(document))
        return false;
    const QSize side(100, 100);
    DIO_RecordingDevice device(sink, side);
    QPainter painter(&device);
    painter.scale(1.0, stretchY);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(side)));
    painter.end();
    undashed = device.undashedPaths();
    return true;
}

QColor DIO_averageOfSvg(const QByteArray& document, const QRectF& tile, const std::vector<DIO_PaintServer>& servers)
{
    const DIO_Drawing drawing = drawingOf(document, servers);
    QImage picture(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(kSide / tile.width(), kSide / tile.height());
    painter.translate(-tile.topLeft());
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes) {
            QColor colour = drawing.palette[static_cast<std::size_t>(shape.paint)].colour;
            colour.setAlphaF(static_cast<float>(shape.opacity));
            painter.setClipping(shape.clip.has_value());
            if (shape.clip)
                painter.setClipPath(*shape.clip);
            if (shape.picture.isNull()) {
                painter.fillPath(shape.path, colour);
            } else {
                painter.setOpacity(shape.opacity);
                painter.drawImage(shape.path.boundingRect(), shape.picture);
                painter.setOpacity(1.0);
            }
        }
    painter.end();
    return DIO_averageColour(picture);
}

std::optional<QPainterPath> DIO_areaOfSvg(const QByteArray& document, const std::vector<DIO_PaintServer>& servers)
{
    const DIO_Drawing drawing = drawingOf(document, servers);
    std::vector<QPainterPath> areas;
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes) {
            if (!shape.picture.isNull())
                return std::nullopt;
            const auto area = shape.clip ? DIO_intersected(shape.path, *shape.clip) : std::optional(shape.path);
            if (!area)
                return std::nullopt;
            areas.push_back(*area);
        }
    return DIO_united(std::move(areas));
}

double DIO_shareOf(const QPainterPath& area, const QRectF& place)
{
    QImage picture(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kSide / place.width(), kSide / place.height());
    painter.translate(-place.topLeft());
    painter.fillPath(area, Qt::black);
    painter.end();
    return static_cast<double>(DIO_averageColour(picture).alphaF());
}

QRectF DIO_boundsOfSvg(const QByteArray& document)
{
    Bounds bounds;
    int undashed = 0;
    DIO_recordSvg(document, 1.0, bounds, undashed);
    return bounds.all;
}
