// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InnerRegions: measures the regions of a bitmap that lie inside others, so that the rules for shapes inside a part of
// a vector drawing (InnerRules.h) decide about them too: the same drawing gets the same objects from either kind of
// file.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"
#include "form/choice/InnerRules.h"

#include <map>

class InnerRegions
{
public:
    /// @param graph must outlive this; regions may be joined between calls
    explicit InnerRegions(const RegionGraph& graph);

    /// Decides about a region that lies inside another.
    ///
    /// @param onBoard the other is a board
    Verdict judge(int number, int base, bool onBoard = false);
    /// The regions inside a base that have a region's colour and about its size, the region itself among them.
    std::vector<int> siblings(int number, int base) const;
    /// Measures a region with what it surrounds.
    ShapeFacts filledFacts(int number) const { return factsOf(number, _graph.filledMask(number, _scale)); }

    /// Measures a line that was joined to the region that it lies on.
    ///
    /// @param number the region
    /// @param mask the line's cells, scale() for each pixel
    ShapeFacts lineFacts(int number, CellMask mask) const { return factsOf(number, std::move(mask)); }
    /// The number of cells along a pixel's side.
    int scale() const { return _scale; }

private:
    // What is known of a base. It stays the same while regions inside the base are joined to it.
    struct Base
    {
        int filled = 0;
        ShapeFacts facts;
        CellMask insides; // the cells that are farther from its outline than kNear
    };

    ShapeFacts factsOf(int number, CellMask mask) const;
    const Base& base(int number);
    double following(const ShapeFacts& facts, const Base& base) const;
    double held(int number) const;

    const RegionGraph& _graph;
    int _scale; // cells along a pixel's side
    QRect _grid;
    std::map<int, Base> _bases;
};
