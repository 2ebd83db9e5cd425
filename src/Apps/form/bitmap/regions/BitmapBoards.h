// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Boards in bitmaps: a flag, a card or a tile fills a rectangle. The regions that reach across it or run along its
// border are its ground, one flat thing with a rim; Boards.h does the same for the shapes of other drawings.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"

/// The regions of a bitmap as they were found, before any were joined. They tell what is painted on what.
using FoundRegions = std::vector<Region>;

/// Joins the regions that are the ground of a board; on a flag also what lies on it.
///
/// @param found graph.regions() before any were joined
/// @return the number of the board's region; kNoLabel if the bitmap is no board. The graph is unchanged then.
int joinBoard(RegionGraph& graph, const FoundRegions& found);
