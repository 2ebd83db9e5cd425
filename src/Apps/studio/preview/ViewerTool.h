// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ViewerTool: what the left mouse button does in the picture, and what is painted over it. The viewer knows pictures
// and lights; what a picture is of, and what is done to that, is a tool's affair.
#pragma once

#include <QPointF>
#include <Qt>

class QPainter;

/// The tool of a viewer. All places are the viewer's coordinates.
class ViewerTool
{
public:
    ViewerTool() = default;
    ViewerTool(const ViewerTool&) = delete;
    ViewerTool& operator=(const ViewerTool&) = delete;
    virtual ~ViewerTool() = default;

    /// The left button went down, was moved while it was down, and went up again.
    virtual void press(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    virtual void drag(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    virtual void release(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    /// The mouse moved with no button down, or left the view.
    virtual void hover(const QPointF& place) = 0;
    virtual void leave() = 0;
    /// Ends what was begun and takes it back. @return whether there was anything
    virtual bool cancel() = 0;

    /// What the mouse looks like at a place.
    virtual Qt::CursorShape cursor(const QPointF& place) const = 0;
    /// Paints over the picture.
    virtual void paint(QPainter& painter) = 0;
};
