// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FoundParts: the parts of a drawing, and the cells that show them.
#pragma once

#include "form/choice/Part.h"
#include "form/choice/PartMap.h"

#include <vector>

/// The parts of a drawing.
struct FoundParts
{
    std::vector<Part> parts;
    std::vector<int> order; ///< indices of the parts, bottom up
    PartMap map;            ///< the grid after the whole drawing was painted
};
