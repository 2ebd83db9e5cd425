// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Flags.h"

#include "form/choice/InnerFacts.h"
#include "form/choice/JoinedParts.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace {

constexpr double kNarrowest = 1.35; // width to height: pictures are 4 to 3
constexpr double kWidest = 2.2;     // width to height
constexpr double kFull = 0.95;      // of the board's box
constexpr double kLeast = 0.02;     // of the board's area: smaller prints at its edge are no colours of the ground
constexpr double kMost = 0.8;       // of the board's area
constexpr int kBeyond = 2;          // cells that what lies on a board may reach beyond it
constexpr double kLine = 6.0;       // elongation
constexpr double kContrast = 10.0;  // distance of colours
constexpr double kAtEdge = 0.025;   // of the board's width: a line around the board may lie between

std::size_t placeOf(int index)
{
    return static_cast<std::size_t>(index);
}

bool reachesEdge(const QRect& box, const QRect& board)
{
    const int edge = std::max(2, static_cast<int>(std::lround(kAtEdge * board.width())));
    return !board.adjusted(edge, edge, -edge, -edge).contains(box);
}

// Whether a shape gives a board a second colour along its border: it reaches the edge, and is neither a line around the
// board nor what lies inside a frame.
bool isColourAtEdge(const ShapeFacts& shape, const ShapeFacts& ground, const CellMask& board)
{
    const bool isFrame = shape.elongation() > kLine && shape.mask.box().contains(ground.mask.box());
    return !isFrame && shape.opacity >= kSolid && shape.area > kLeast * board.area() &&
           shape.area < kMost * board.area() && colourDistance(shape.colour, ground.colour) > kContrast &&
           reachesEdge(shape.mask.box(), board.box());
}

bool hasSeveralColours(const Part& board, std::span<const Part> parts, const std::vector<ShapeFacts>& facts)
{
    const ShapeFacts& ground = facts[placeOf(board.body.front())];
    const auto isAnother = [&](int index) { return isColourAtEdge(facts[placeOf(index)], ground, board.region); };
    return std::ranges::any_of(board.worn, isAnother, &WornShape::shape) ||
           std::ranges::any_of(parts, [&](const Part& part) {
               return !part.ink && !part.isBackdrop && std::ranges::any_of(part.body, isAnother);
           });
}

// The board, if the drawing is a flag; else kNone.
int flagAmong(const FoundParts& found, const std::vector<ShapeFacts>& facts)
{
    const auto isFlag = [&](int index) {
        const Part& part = found.parts[placeOf(index)];
        return part.role == ObjectRole::SLAB && hasFlagShape(part.region.box().size()) &&
               hasSeveralColours(part, found.parts, facts);
    };
    const auto board = std::ranges::find_if(found.order, isFlag);
    if (board == found.order.end())
        return PartMap::kNone;
    CellMask together = found.parts[placeOf(*board)].region;
    const QRect box = together.box();
    const QRect around = box.adjusted(-kBeyond, -kBeyond, kBeyond, kBeyond);
    for (auto above = board + 1; above != found.order.end(); ++above) {
        const Part& part = found.parts[placeOf(*above)];
        if (!part.ink && !around.contains(part.region.box()))
            return PartMap::kNone;
        together.unite(part.region);
    }
    return together.areaInside(box) > kFull * box.width() * box.height() ? *board : PartMap::kNone;
}

} // namespace

bool hasFlagShape(const QSize& box)
{
    return box.width() >= kNarrowest * box.height() && box.width() <= kWidest * box.height();
}

FoundParts printedFlag(FoundParts found, const std::vector<ShapeFacts>& facts)
{
    const int board = flagAmong(found, facts);
    if (board == PartMap::kNone)
        return found;
    std::vector<int> homes(found.parts.size());
    std::iota(homes.begin(), homes.end(), 0);
    for (auto above = std::ranges::find(found.order, board) + 1; above != found.order.end(); ++above)
        if (!found.parts[placeOf(*above)].ink)
            homes[placeOf(*above)] = board;
    const QString reason = found.parts[placeOf(board)].reason;
    return joinedParts(std::move(found), homes, reason);
}
