// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_RecordingDevice: a paint device that keeps shapes instead of pixels. Whatever a QPainter paints on it reaches a
// sink as filled paths in device coordinates. Its size is only what it reports; nothing is clipped to it. It
// reports 96 dots an inch, and a dot is a pixel.
#pragma once

#include "QuarvelDrawingIO/private/DIO_RecordingEngine.h"

#include <QPaintDevice>
#include <QSize>

class DIO_RecordingDevice : public QPaintDevice
{
public:
    /// @param sink takes the shapes; must outlive the device
    DIO_RecordingDevice(DIO_ShapeSink& sink, const QSize& size) : _engine(sink), _size(size) {}

    /// How many strokes were too finely dashed and became solid lines.
    int undashedPaths() const { return _engine.outliner().undashedPaths(); }

    QPaintEngine* paintEngine() const override { return &_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    mutable DIO_RecordingEngine _engine;
    QSize _size;
};
