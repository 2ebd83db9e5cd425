// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the drawings of a scene lie. The estimates of a frame's memory and margin need this before the frame is
// rendered.
#pragma once

#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QRectF>

#include <utility>
#include <vector>

/// The rectangle around the control points of a drawing, in its own units; a null one where it has no shapes.
QRectF extentOf(const CELVEC_Kvd& drawing);

/// The rectangle that the drawing of an element may touch at a frame, in pixels of a frame of the resolution: x right,
/// y down, the origin at the upper left corner. It may lie outside the frame, and may be somewhat larger than what
/// is painted. Empty when nothing is shown.
QRectF extentOf(const MO_ElementModule& element, double frame, const std::pair<int, int>& resolution);

/// The elements upstream of an input port, each once.
std::vector<const MO_ElementModule*> elementsBehind(const MO_Port& input);
