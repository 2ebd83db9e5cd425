// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the objects of a scene are in a rendered frame. Places and rectangles are in pixels of the full picture,
// whatever size the frame was rendered in.
#pragma once

#include "studio/objects/SceneObjects.h"
#include "studio/preview/RenderedFrame.h"

#include <QPainterPath>

/// The objects at a place, the topmost first; a cut-out stands where it lies. Each object once.
std::vector<SceneObject> objectsAt(const RenderedFrame& frame, const std::vector<SceneObject>& objects,
                                   const QPointF& place);

/// The rectangle around what is seen of the object or lies below others; empty when it is not in the frame.
QRectF boundsOf(const RenderedFrame& frame, const SceneObject& object);

/// The line around the object.
QPainterPath outlineOf(const RenderedFrame& frame, const SceneObject& object);
