// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ViewerTool: defines what the left mouse button does in the picture, and paints over the picture. The viewer knows
// only pictures and lights; tools know the content of pictures and change it.
#pragma once

#include <QPointF>
#include <Qt>

class QPainter;

/// The tool of a viewer. All places are in the viewer's coordinates.
class ViewerTool
{
public:
    ViewerTool() = default;
    ViewerTool(const ViewerTool&) = delete;
    ViewerTool& operator=(const ViewerTool&) = delete;
    virtual ~ViewerTool() = default;

    /// The left button was pressed, the mouse was moved with the button down, the button was released.
    virtual void press(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    virtual void drag(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    virtual void release(const QPointF& place, Qt::KeyboardModifiers modifiers) = 0;
    /// The mouse was moved without a button, or left the view.
    virtual void hover(const QPointF& place) = 0;
    virtual void leave() = 0;
    /// The right button was pressed, and a menu for what is there comes next.
    virtual void aim(const QPointF& place) = 0;
    /// Cancels the current action and undoes it. @return whether there was anything to cancel
    virtual bool cancel() = 0;

    /// The mouse cursor at a place.
    virtual Qt::CursorShape cursor(const QPointF& place) const = 0;
    /// Paints over the picture.
    virtual void paint(QPainter& painter) = 0;
};
