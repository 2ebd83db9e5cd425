// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Small pictures are measured on several cells for each pixel, because the rules count in cells of a picture of some
// hundred cells.
#include "form/bitmap/regions/InnerRegions.h"

#include "form/choice/InnerFacts.h"
#include "form/raster/CellDistances.h"
#include "form/raster/OutlineDistance.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kCells = 256; // along the longer side of a small picture, about
// An outline that runs no farther than this part of the longer side from another one follows it.
constexpr double kNear = 1.0 / 110.0;
constexpr double kSameColour = 4.0;
constexpr double kAlike = 4.0; // ratio of two siblings' areas

} // namespace

InnerRegions::InnerRegions(const RegionGraph& graph)
    : _graph(graph)
    , _scale(std::max(1, kCells / std::max(graph.size().width(), graph.size().height())))
    , _grid(QPoint(), graph.size() * _scale)
{}

ShapeFacts InnerRegions::factsOf(int number, CellMask mask) const
{
    ShapeFacts facts;
    const OutlineDistance measured = measureOutlineDistance(mask, _grid);
    measureShape(measured, facts);
    facts.mask = std::move(mask);
    facts.mask.forEachAtOutline([&](int, int) { facts.outline += 1.0; });
    facts.colour = _graph.region(number).colour;
    facts.opacity = _graph.region(number).alpha;
    facts.paint = number;
    return facts;
}

const InnerRegions::Base& InnerRegions::base(int number)
{
    Base& known = _bases[number];
    CellMask mask = _graph.filledMask(number, _scale);
    if (const int filled = mask.area(); known.filled != filled) {
        known.filled = filled;
        known.facts = factsOf(number, std::move(mask));
        const double near = std::max(2.0, kNear * std::max(_grid.width(), _grid.height()));
        const QRect box = known.facts.mask.box().adjusted(-1, -1, 1, 1) & _grid;
        const std::vector<int> squares = squaredDistancesInside(known.facts.mask, box);
        const auto width = static_cast<std::size_t>(box.width());
        known.insides = CellMask::where(box, [&](int x, int y) {
            const std::size_t row = static_cast<std::size_t>(y - box.top()) * width;
            return squares[row + static_cast<std::size_t>(x - box.left())] > near * near;
        });
    }
    // The colour changes with what is joined.
    known.facts.colour = _graph.region(number).colour;
    return known;
}

double InnerRegions::following(const ShapeFacts& facts, const Base& base) const
{
    double along = 0.0;
    facts.mask.forEachAtOutline([&](int x, int y) { along += base.insides.at(x, y) ? 0.0 : 1.0; });
    return along / std::max(1.0, facts.outline);
}

double InnerRegions::held(int number) const
{
    return double(_graph.filledPixels(number)) / _graph.region(number).pixels - 1.0;
}

std::vector<int> InnerRegions::siblings(int number, int base) const
{
    const Region& own = _graph.region(number);
    std::vector<int> found;
    for (const auto& [other, seam] : _graph.seamsOf(base)) {
        const Region& sibling = _graph.region(other);
        if (_graph.seamShare(other, base) >= kInsideShare && sibling.pixels < kAlike * own.pixels &&
            own.pixels < kAlike * sibling.pixels && colourDistance(sibling.colour, own.colour) < kSameColour)
            found.push_back(other);
    }
    return found;
}

Verdict InnerRegions::judge(int number, int base, bool onBoard)
{
    const Base& around = this->base(base);
    const ShapeFacts own = filledFacts(number);
    const auto others = static_cast<int>(siblings(number, base).size()) - 1;
    const double share = own.area / std::max(1.0, double(around.facts.area));
    return judgeInner({own, around.facts, around.facts, share, following(own, around), 1.0,
                       isConcentric(own, around.facts.mask, share), held(number), std::max(0, others),
                       double(_grid.width()) * _grid.height(), onBoard});
}
