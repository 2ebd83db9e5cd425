// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InkReach: how far outside a part's outline a line belongs to the part. A line that is drawn along the outline does as
// far as it is wide; a line that only comes from elsewhere, such as a whisker or the outline of a part behind, does
// not.
#pragma once

#include "form/choice/ShapeFacts.h"
#include "form/raster/CellDistances.h"

/// The farthest that a line reaches outside an outline that it belongs to, in cells.
double widestReach(const ShapeFacts& line);

/// The reach in cells; 0 for a line that leaves the part instead of following its outline.
///
/// @param line a line
/// @param part the distances to the part's region
double inkReach(const ShapeFacts& line, const DistanceToCovered& part);
