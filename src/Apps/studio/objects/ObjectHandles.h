// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The four handles of an object in the picture: one on its right side, pulled inwards for a wider bevel; one at its
// top, pulled up for more elevation; one at its lower right corner, pulled to the right for more smoothness; and on its
// left side a ball, rolled to where the object shall face. This file defines where they are, how they look, and how a
// pull changes the value.
#pragma once

#include "studio/objects/ObjectValues.h"

#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <optional>

/// What a handle changes.
enum class ObjectHandle
{
    BEVEL, ///< the first three in the order of ObjectValue
    ELEVATION,
    SMOOTHNESS,
    TILT
};

inline constexpr ObjectHandle kObjectHandles[] = {ObjectHandle::BEVEL, ObjectHandle::ELEVATION,
                                                  ObjectHandle::SMOOTHNESS, ObjectHandle::TILT};

/// The value that a handle changes; nothing for the tilt.
std::optional<ObjectValue> valueOf(ObjectHandle handle);

/// The places of the handles in a view.
class ObjectHandles
{
public:
    /// No handles.
    ObjectHandles() = default;
    /// @param object the rectangle around the object, in the view's coordinates
    /// @param view the usable part of the view; handles outside it are moved inside
    /// @param tilt of the object, which the ball shows
    ObjectHandles(const QRectF& object, const QRectF& view, const ObjectTilt& tilt = {});

    bool isEmpty() const { return _isEmpty; }
    QPointF place(ObjectHandle handle) const { return _places[static_cast<std::size_t>(handle)]; }
    /// The handle at a place, if there is one.
    std::optional<ObjectHandle> at(const QPointF& place) const;

    /// @param hot the handle under the mouse or in its grip
    void paint(QPainter& painter, const QPalette& palette, std::optional<ObjectHandle> hot) const;

private:
    QPainterPath pictogram(ObjectHandle handle) const;

    bool _isEmpty = true;
    ObjectTilt _tilt;
    QPointF _places[4];
};

/// The number after a pull; with `carefully`, the pull has a tenth of its effect.
///
/// @param way the movement of the mouse, in the view's units
/// @param unit the size of a scene unit in the view
double pulled(double from, ObjectValue value, const QPointF& way, double unit, bool carefully);

/// The tilt after a pull: to the right faces to the right, up faces upwards; with `carefully`, in tenths of a degree.
ObjectTilt pulledTilt(const ObjectTilt& from, const QPointF& way, bool carefully);

/// Paints a disc at a place that faces as an object with this tilt does, with a needle upright on it.
void paintFacing(QPainter& painter, const QPointF& place, const ObjectTilt& tilt);

/// Paints a text beside the mouse, legible on any picture.
void paintBesideMouse(QPainter& painter, const QPointF& mouse, const QRectF& view, const QString& text);
