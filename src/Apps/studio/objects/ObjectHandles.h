// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The three handles on an object in the picture: one on its right side, which is pulled inwards for a wider bevel; one
// on its top, which is pulled up for more elevation; one at its lower right corner, which is pulled to the right for
// more smoothness. This file says where they are, how they look, and what a pull is worth.
#pragma once

#include "studio/objects/ObjectChanges.h"

#include <QPainter>
#include <QRectF>

#include <optional>

/// Where the handles are in a view.
class ObjectHandles
{
public:
    /// There are none.
    ObjectHandles() = default;
    /// @param object the rectangle around the object, in the view's coordinates
    /// @param view   what of the view may be used; handles that would lie outside come in
    ObjectHandles(const QRectF& object, const QRectF& view);

    bool isEmpty() const { return _isEmpty; }
    QPointF place(ObjectValue value) const { return _places[static_cast<std::size_t>(value)]; }
    /// The handle at a place, if there is one.
    std::optional<ObjectValue> at(const QPointF& place) const;

    /// @param hot the handle that the mouse is on or holds
    void paint(QPainter& painter, const QPalette& palette, std::optional<ObjectValue> hot) const;

private:
    bool _isEmpty = true;
    QPointF _places[3];
};

/// The number that a pull makes of another one. With care, a tenth of it.
///
/// @param way  how far the mouse was moved, in the view's units
/// @param unit how large a unit of the scene is in the view
double pulled(double from, ObjectValue value, const QPointF& way, double unit, bool carefully);

/// A text beside the mouse, legible on any picture.
void paintBesideMouse(QPainter& painter, const QPointF& mouse, const QRectF& view, const QString& text);
