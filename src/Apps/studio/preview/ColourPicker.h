// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourPicker: the tool of the viewer with which one colour of the drawing is chosen by a click. Whatever the viewer
// shows, the colour is that of the drawing.
#pragma once

#include "studio/preview/ViewerTool.h"

#include <QColor>
#include <QObject>

class Viewer;

/// Lives as long as the viewer at most, unless it is not the viewer's tool any more.
class ColourPicker : public QObject, public ViewerTool
{
    Q_OBJECT

public:
    explicit ColourPicker(Viewer& viewer, QObject* parent = nullptr);
    ~ColourPicker() override;

    void press(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void drag(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void release(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void hover(const QPointF& place) override;
    void leave() override;
    void aim(const QPointF&) override {}
    bool cancel() override;
    Qt::CursorShape cursor(const QPointF& place) const override;
    void paint(QPainter& painter) override;

Q_SIGNALS:
    /// A colour was clicked; invalid when nothing is drawn there, or when picking was given up.
    void picked(const QColor& colour);

private:
    QColor colourAt(const QPointF& place) const;

    Viewer& _viewer;
};
