// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of areas as paths, and strokes along them.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// The outline of what a shape paints, with closed loops: filling closes them anyway, stroking does not. A clip that is
/// too detailed to cut with (DIO_PathSets.h) is left out.
QPainterPath outlineOf(const DIO_Shape& shape);

/// A stroke along an outline, with round joins.
///
/// @param reach how far it reaches to either side, in the drawing's units
QPainterPath strokeAlong(const QPainterPath& outline, double reach);
