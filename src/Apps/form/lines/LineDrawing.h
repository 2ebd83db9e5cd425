// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LineDrawing: a drawing of lines alone, without filled areas, shows its objects by the areas that the lines enclose.
// These areas are filled with the colour of the paper, so that they can be found and shaped as painted areas are.
#pragma once

#include "form/choice/ShapeFacts.h"

/// Fills the closed areas of a line drawing beneath its lines. The paper has the colour of the light backdrop, or is
/// white where there is none. Other drawings, and line drawings that enclose too little, stay as they are.
///
/// @param drawing not empty
/// @param facts   of the drawing's shapes; receives those of the fills, which have ShapeFacts::closedArea set
void fillBetweenLines(DIO_Drawing& drawing, std::vector<ShapeFacts>& facts, const Grid& grid);
