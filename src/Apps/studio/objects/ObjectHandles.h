// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The three handles of an object in the picture: one on its right side, pulled inwards for a wider bevel; one at its
// top, pulled up for more elevation; one at its lower right corner, pulled to the right for more smoothness. This file
// defines where they are, how they look, and how a pull changes the value.
#pragma once

#include "studio/objects/ObjectChanges.h"

#include <QPainter>
#include <QRectF>

#include <optional>

/// The places of the handles in a view.
class ObjectHandles
{
public:
    /// No handles.
    ObjectHandles() = default;
    /// @param object the rectangle around the object, in the view's coordinates
    /// @param view the usable part of the view; handles outside it are moved inside
    ObjectHandles(const QRectF& object, const QRectF& view);

    bool isEmpty() const { return _isEmpty; }
    QPointF place(ObjectValue value) const { return _places[static_cast<std::size_t>(value)]; }
    /// The handle at a place, if there is one.
    std::optional<ObjectValue> at(const QPointF& place) const;

    /// @param hot the handle under the mouse or in its grip
    void paint(QPainter& painter, const QPalette& palette, std::optional<ObjectValue> hot) const;

private:
    bool _isEmpty = true;
    QPointF _places[3];
};

/// The number after a pull; with `carefully`, the pull has a tenth of its effect.
///
/// @param way the movement of the mouse, in the view's units
/// @param unit the size of a scene unit in the view
double pulled(double from, ObjectValue value, const QPointF& way, double unit, bool carefully);

/// Paints a text beside the mouse, legible on any picture.
void paintBesideMouse(QPainter& painter, const QPointF& mouse, const QRectF& view, const QString& text);
