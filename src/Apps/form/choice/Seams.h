// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Seams: where two antialiased areas abut, a quarter of what lies beneath shows through. Bevels of bodies are wider
// than such a line and hide it; on the flat face of a board it would be a groove.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <vector>

/// The shapes to paint beneath abutting areas so that no seam shows: along the outline of each area but the first a
/// line in its paint, away from the areas' common outline.
///
/// @param areas opaque, in the order of painting
/// @param width of the line on either side of the outline, in the drawing's units
std::vector<DIO_Shape> seamsBeneath(const std::vector<DIO_Shape>& areas, double width);
