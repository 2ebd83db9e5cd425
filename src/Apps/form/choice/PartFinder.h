// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartFinder: goes through a drawing's shapes in the order of painting and decides about each from what the grid shows
// where the shape is about to be painted.
#pragma once

#include "form/choice/InnerRules.h"
#include "form/choice/Part.h"
#include "form/choice/PartMap.h"

#include <map>
#include <vector>

/// The parts of a drawing.
struct FoundParts
{
    std::vector<Part> parts;
    std::vector<int> order; ///< indices of the parts, bottom up
    PartMap map;            ///< the grid after the whole drawing was painted
};

/// Finds the parts. Every shape with an area on the grid ends up in at least one of them.
FoundParts findParts(const std::vector<ShapeFacts>& facts, const Grid& grid);
