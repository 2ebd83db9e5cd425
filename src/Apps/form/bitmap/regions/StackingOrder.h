// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StackingOrder: which of a bitmap's regions lies over which, and beneath which others a region goes on.
//
// Of two regions that meet, the one that reaches into the other's convex hull lies on top: what is hidden in part looks
// cut out, what hides is complete (Kanizsa, "Organization in Vision", 1979, for how people see it). And its outline
// goes straight on where their seam ends.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"

/// The order of regions.
struct StackingOrder
{
    std::vector<int> bottomUp; ///< the regions that are left
    /// For each region of bottomUp the regions above it, by number, beneath which it goes on.
    std::vector<std::vector<int>> beneath;
    /// Of these, those that lie inside the region: it would have a hole without them.
    std::vector<std::vector<int>> inside;
};

/// @param labels the graph's
StackingOrder stackingOrderOf(const RegionGraph& graph, const PixelPlane<int>& labels);
