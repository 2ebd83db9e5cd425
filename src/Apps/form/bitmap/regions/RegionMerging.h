// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RegionMerging: decides which regions of a bitmap are parts of one object. Shading and marks are painted onto a body
// and follow its form: darker and lighter shapes of its colour, highlights, thin stripes, the pupil of an eye.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"

/// Joins the regions that are parts of one object.
///
/// @param hard the bitmap is pixel art, where shades are a few pixels wide
void joinShadesAndMarks(RegionGraph& graph, bool hard);
