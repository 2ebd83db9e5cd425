// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The document's viewBox is 100 x 100, and so is the device: what is recorded is in the document's own units.
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"

#include "QuarvelDrawingIO/private/DIO_RecordingDevice.h"

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

QRectF DIO_boundsOfSvg(const QByteArray& document)
{
    Bounds bounds;
    int undashed = 0;
    DIO_recordSvg(document, 1.0, bounds, undashed);
    return bounds.all;
}
