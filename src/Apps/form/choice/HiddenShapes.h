// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// HiddenShapes: shapes that one later shape hides whole, such as strokes that were left beneath an area when they were
// drawn again on it. They say nothing about what the picture shows, so the rules do not ask about them.
#pragma once

#include "form/choice/Part.h"

/// The later, opaque shape that hides each shape with a margin wider than its antialiased edge; -1 where none does. The
/// area of hidden shapes becomes 0.
///
/// @param facts of all shapes of a drawing, in the order of painting
std::vector<int> findHidden(std::vector<ShapeFacts>& facts, const Grid& grid);

/// Gives the hidden shapes to the parts whose bodies hide them, beneath these, so that the parts show the unchanged
/// drawing at any size.
///
/// @param hiders from findHidden()
void wearHidden(const std::vector<int>& hiders, std::vector<Part>& parts);
