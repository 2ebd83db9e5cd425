// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartExtent: the measurements that the law of form needs of a part, from the cells that its shapes were found to cover
// while it was looked for. Painting the part's layer once more would measure the same.
#pragma once

#include "form/ObjectExtent.h"
#include "form/choice/Part.h"

#include <optional>

/// The cells that a part's layer shows: its body and what it wears, held to the body's outline.
///
/// @param facts of all shapes
/// @param bounds of the grid
CellMask shownCells(const Part& part, const std::vector<ShapeFacts>& facts, const QRect& bounds);

/// The extent of a part; none if it is too small for the grid, or in pieces.
std::optional<ObjectExtent> extentOf(const Part& part, const std::vector<ShapeFacts>& facts, const Grid& grid);
