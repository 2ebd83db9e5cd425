// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartStack: the parts found so far, bottom up, and the cells that show them. It adds shapes so that the parts, painted
// one over the other, show the drawing:
//
//     a new part           lies above all others
//     a piece of a part    is permitted if no part above hides it
//     a mark               goes to every part that it is visible on, inside the outline; ink also to parts beside it
//     the rest of a mark   outside all parts becomes a part beneath them, or the whole mark a part above them
#pragma once

#include "form/choice/FoundParts.h"
#include "form/choice/OpenCells.h"

#include <map>
#include <vector>

class PartStack
{
public:
    /// @param facts must outlive this
    PartStack(const std::vector<ShapeFacts>& facts, const Grid& grid) : _facts(facts), _map(grid) {}

    PartMap& map() { return _map; }
    const PartMap& map() const { return _map; }
    const std::vector<Part>& parts() const { return _parts; }
    const Part& part(int index) const { return _parts[static_cast<std::size_t>(index)]; }
    /// The parts bottom up.
    const std::vector<int>& order() const { return _order; }
    /// Takes the parts, their order and the map out of the stack.
    FoundParts take() { return {std::move(_parts), std::move(_order), std::move(_map)}; }

    /// Makes a shape a part above all others.
    void add(int shape, const Verdict& verdict);
    /// Makes a shape a backdrop: a part that does not show on the map, so that later shapes are judged as if it
    /// were not there.
    void addBackdrop(int shape, const Verdict& verdict);
    /// Adds a piece to a part's body.
    void extend(int index, int shape);
    /// Whether a shape can be added to a part's body: no part above it may hide the shape.
    ///
    /// @param around the shape's surroundings
    bool mayExtend(int index, const Surroundings& around) const;
    /// Gives a shape to the parts that it is visible on.
    ///
    /// @param verdict a mark or ink
    void wear(int shape, const Surroundings& around, const Verdict& verdict);

private:
    // Cells of a row that go to a part; the one at `to` is left out.
    struct Claim
    {
        int y;
        int from;
        int to;
        int part;
    };
    // The distances to a part's region in a box around it.
    struct Distances
    {
        DistanceToCovered toRegion;
        std::size_t pieces = 0; // pieces of the body when they were found
    };

    const ShapeFacts& facts(int shape) const { return _facts[static_cast<std::size_t>(shape)]; }
    Part& changing(int index) { return _parts[static_cast<std::size_t>(index)]; }
    int insert(int shape, const Verdict& verdict, std::size_t place);
    std::vector<Claim> claimShown(int shape, OpenCells* open) const;
    InkReaches widestReaches(int shape, OpenCells& open);
    std::vector<Claim> claimLine(int shape, InkReaches& reaches);
    const DistanceToCovered& distancesTo(int index);
    bool wouldShowTwice(int shape, const std::map<int, int>& cells, int unclaimed) const;
    void standAlone(int shape, const Surroundings& around, Verdict verdict);
    void layBeneath(int shape, const Verdict& verdict, const std::map<int, int>& cells,
                    const std::vector<Claim>& claims);
    void growBy(int shape, int home);

    const std::vector<ShapeFacts>& _facts;
    PartMap _map;
    std::vector<Part> _parts;
    std::vector<int> _order;
    std::map<int, Distances> _distances;
};
