// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StackingOrder: which of a bitmap's regions lies over which, and beneath which others a region continues.
//
// Of two regions that meet, the one that reaches into the other's convex hull lies on top: a partly hidden region looks
// cut out, the region that hides it looks complete (Kanizsa, "Organization in Vision", 1979, on how people see it). The
// outline of the upper region also continues straight where their seam ends. If one of them is round (RoundOutlines.h)
// and the seam lies on its outline, it is complete and lies on top.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"
#include "form/bitmap/regions/RoundOutlines.h"

/// The order of the regions.
struct StackingOrder
{
    std::vector<int> bottomUp; ///< the numbers of the remaining regions
    /// For each region of bottomUp, the numbers of the regions above it beneath which it continues.
    std::vector<std::vector<int>> beneath;
    /// Those of `beneath` that lie inside the region: without them, it would have a hole.
    std::vector<std::vector<int>> inside;
    /// For each region of bottomUp that is round, its whole outline, seen and hidden.
    std::vector<std::optional<Ellipse>> round;
};

/// @param labels graph.labels()
StackingOrder stackingOrderOf(const RegionGraph& graph, const PixelPlane<int>& labels);
