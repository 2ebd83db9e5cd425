// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingThumbnail: a small picture of a vector drawing, for lists.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QPixmap>

/// A drawing in its palette's colours, fitted into a square; what is empty stays transparent.
///
/// @param side  the square's side in device-independent pixels
/// @param ratio device pixels a device-independent one
/// @param frame shapes that lie outside of it are left out unless all do; empty: none is
QPixmap drawingThumbnail(const CELVEC_Kvd& drawing, int side, double ratio, const QRectF& frame = {});

/// The scene's frame in the coordinates of an element's drawings; empty where the element is scaled to nothing.
QRectF frameInDrawing(const MO_Scene& scene, const MO_ElementModule& element, double frame);
