// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The click counts when the button goes up, as for all buttons.
#include "studio/preview/ColourPicker.h"

#include "studio/preview/Viewer.h"

ColourPicker::ColourPicker(Viewer& viewer, QObject* parent) : QObject(parent), _viewer(viewer) {}

ColourPicker::~ColourPicker() = default;

QColor ColourPicker::colourAt(const QPointF& place) const
{
    const RenderedFramePtr& frame = _viewer.frame();
    if (!frame || frame->fullSize.isEmpty())
        return {};
    const QPoint pixel = frame->pixelAt(_viewer.transform().toPicture(place), frame->drawing.size());
    if (!frame->drawing.rect().contains(pixel))
        return {};
    const QColor colour = frame->drawing.pixelColor(pixel);
    return colour.alpha() > 0 ? colour : QColor();
}

void ColourPicker::press(const QPointF&, Qt::KeyboardModifiers) {}

void ColourPicker::drag(const QPointF&, Qt::KeyboardModifiers) {}

void ColourPicker::release(const QPointF& place, Qt::KeyboardModifiers)
{
    Q_EMIT picked(colourAt(place));
}

void ColourPicker::hover(const QPointF&) {}

void ColourPicker::leave() {}

bool ColourPicker::cancel()
{
    Q_EMIT picked(QColor());
    return true;
}

Qt::CursorShape ColourPicker::cursor(const QPointF&) const
{
    return Qt::CrossCursor;
}

void ColourPicker::paint(QPainter&) {}
