// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the objects of a scene in a rendered frame. Places and rectangles are in pixels of the full picture, whatever
// the rendered size is.
#pragma once

#include "studio/objects/CoverageOutline.h"
#include "studio/objects/SceneObjects.h"
#include "studio/preview/RenderedFrame.h"

#include <QPainterPath>

/// The objects at a place, the topmost first, including cut-outs. Each object once.
std::vector<SceneObject> objectsAt(const RenderedFrame& frame, const std::vector<SceneObject>& objects,
                                   const QPointF& place);

/// Whether any object, cut-outs included, is at a place.
bool showsObject(const RenderedFrame& frame, const QPointF& place);

/// The rectangle around the visible and the covered parts of the object; empty if it is not in the frame.
QRectF boundsOf(const RenderedFrame& frame, const SceneObject& object);

/// The outline of the object.
QPainterPath outlineOf(const RenderedFrame& frame, const SceneObject& object, OutlineForm form);
