// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InnerFacts: measures what the rules for shapes inside a part need (InnerRules.h).
#pragma once

#include "form/choice/InnerRules.h"
#include "form/choice/LaterShapes.h"
#include "form/choice/PartMap.h"

#include <vector>

/// Whether a shape is a smaller copy of a region, around the same centre.
///
/// @param share the shape's area, divided by the region's
bool isConcentric(const ShapeFacts& shape, const CellMask& region, double share);

/// Whether a shape reaches across a region, so that what is left of it lies on two sides of the shape or more.
bool divides(const ShapeFacts& shape, const CellMask& region);

/// Whether most of a shape lies inside a region.
bool liesInside(const ShapeFacts& shape, const CellMask& region);

class InnerFacts
{
public:
    /// @param facts, grid must outlive this
    InnerFacts(const std::vector<ShapeFacts>& facts, const Grid& grid) : _facts(facts), _grid(grid), _later(facts, grid)
    {}

    /// Measures a shape inside a part.
    ///
    /// @param around the surroundings of the shape or of a sibling
    InnerShape of(int shape, const Part& base, const Surroundings& around, int siblings) const;

    /// A shape and its siblings: the later shapes inside the part with its paint, its opacity and about its size.
    std::vector<int> siblings(int shape, const Part& base) const;

private:
    const ShapeFacts& facts(int shape) const { return _facts[static_cast<std::size_t>(shape)]; }
    int largestPiece(const Part& part) const;
    bool isOpenMouth(int shape, const Part& base) const;
    double following(const ShapeFacts& shape, const Part& base) const;

    const std::vector<ShapeFacts>& _facts;
    const Grid& _grid;
    LaterShapes _later;
};
