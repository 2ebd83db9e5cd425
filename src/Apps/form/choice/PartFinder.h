// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartFinder: goes through a drawing's shapes in the order of painting and decides about each what it is, from what it
// finds on the grid where it is about to be painted.
#pragma once

#include "form/choice/InnerRules.h"
#include "form/choice/Part.h"
#include "form/choice/PartMap.h"

#include <map>
#include <vector>

/// What was found in a drawing.
struct FoundParts
{
    std::vector<Part> parts;
    std::vector<int> order; ///< the parts bottom up
    PartMap map;            ///< the whole drawing
};

/// Finds the parts. Every shape with an area on the grid ends up in at least one of them.
FoundParts findParts(const std::vector<ShapeFacts>& facts, const Grid& grid);
