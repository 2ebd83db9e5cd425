// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The order is built from pairs, the clearest first; a pair that contradicts clearer ones is left out.
#include "form/bitmap/regions/StackingOrder.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace {

// Hulls are compared with the labels on about this many rows and columns.
constexpr int kSamples = 256;

// The weight of an outline that continues straight; a smaller region that lies completely in the larger one's hull has
// weight 1.
constexpr double kStraightness = 0.6;
// The weight of a seam that lies on the outline of a round region.
constexpr double kOnRound = 1.0;

// The number of samples of each other region inside a region's hull.
std::map<int, int> insideHull(const ConvexHull& hull, int own, const PixelPlane<int>& labels, int stride)
{
    std::map<int, int> counts;
    for (int y = hull.top() + stride / 2; y < hull.bottom(); y += stride) {
        const auto [first, last] = hull.pixelsIn(y);
        for (int x = std::max(0, first) + stride / 2; x < std::min(last, labels.width()); x += stride)
            if (const int other = labels.at(x, y); other >= 0 && other != own)
                ++counts[other];
    }
    return counts;
}

struct Precedence
{
    double clearness;
    int below;
    int above;
};

// The known pairs of lower and higher regions.
class PartialOrder
{
public:
    explicit PartialOrder(std::size_t count) : _above(count) {}

    bool isAbove(int low, int high) const
    {
        std::vector<char> seen(_above.size(), 0);
        return reaches(low, high, seen);
    }
    void add(int low, int high) { _above[static_cast<std::size_t>(low)].push_back(high); }
    const std::vector<int>& above(int low) const { return _above[static_cast<std::size_t>(low)]; }

private:
    bool reaches(int from, int to, std::vector<char>& seen) const
    {
        if (from == to)
            return true;
        if (std::exchange(seen[static_cast<std::size_t>(from)], 1))
            return false;
        return std::ranges::any_of(above(from), [&](int next) { return reaches(next, to, seen); });
    }

    std::vector<std::vector<int>> _above;
};

std::vector<int> leftOf(const RegionGraph& graph)
{
    std::vector<int> left;
    for (int i = 0; i < static_cast<int>(graph.regions().size()); ++i)
        if (graph.isLeft(i))
            left.push_back(i);
    return left;
}

// Above 0 if the seam lies on the outline of b, which is round, below 0 if on that of a; -1 to 1.
double roundness(const RoundOutlines& outlines, const std::map<int, std::optional<Ellipse>>& round, int a, int b)
{
    const auto share = [&](int own) {
        const std::optional<Ellipse>& ellipse = round.at(own);
        // Where another region cuts a round one off, the ends of the seam lie near the ellipse, too.
        return ellipse ? std::max(0.0, 2.0 * outlines.seamShare(a, b, *ellipse) - 1.0) : 0.0;
    };
    return share(b) - share(a);
}

std::vector<Precedence> pairsOf(const RegionGraph& graph, const PixelPlane<int>& labels, const RoundOutlines& outlines)
{
    const int stride = std::max(1, std::max(labels.width(), labels.height()) / kSamples);
    const std::vector<int> left = leftOf(graph);
    std::map<int, std::map<int, int>> inside;
    std::map<int, std::optional<Ellipse>> round;
    for (const int number : left) {
        inside[number] = insideHull(graph.region(number).hull, number, labels, stride);
        round[number] = outlines.of(number);
    }
    std::vector<Precedence> pairs;
    for (const int a : left)
        for (const auto& [b, seam] : graph.seamsOf(a)) {
            if (b < a)
                continue;
            const int smaller = std::min(graph.region(a).pixels, graph.region(b).pixels);
            const double unit = static_cast<double>(stride) * stride / smaller;
            // Numbers are ordered by size, so for two regions without any evidence, the smaller one lies on top.
            const double clearness = unit * (inside[a][b] - inside[b][a]) + kStraightness * graph.straightness(a, b) +
                                     kOnRound * roundness(outlines, round, a, b) + 0.02;
            pairs.push_back({std::abs(clearness), clearness > 0 ? a : b, clearness > 0 ? b : a});
        }
    std::ranges::stable_sort(pairs, std::greater(), &Precedence::clearness);
    return pairs;
}

// Places next the largest region that has no unplaced region below it.
std::vector<int> bottomUp(const RegionGraph& graph, const PartialOrder& order)
{
    std::vector<int> below(graph.regions().size(), 0);
    const std::vector<int> left = leftOf(graph);
    for (const int number : left)
        for (const int other : order.above(number))
            ++below[static_cast<std::size_t>(other)];
    const auto larger = [&](int a, int b) {
        return std::pair(-graph.region(a).pixels, a) < std::pair(-graph.region(b).pixels, b);
    };
    std::set<int, decltype(larger)> ready(larger);
    for (const int number : left)
        if (below[static_cast<std::size_t>(number)] == 0)
            ready.insert(number);
    std::vector<int> placed;
    while (!ready.empty()) {
        const int next = *ready.begin();
        ready.erase(ready.begin());
        placed.push_back(next);
        for (const int other : order.above(next))
            if (--below[static_cast<std::size_t>(other)] == 0)
                ready.insert(other);
    }
    return placed;
}

// The regions above a region that touch it, and the regions that lie inside these.
std::vector<int> regionsAbove(const RegionGraph& graph, const std::vector<int>& order, std::size_t place)
{
    const int own = order[place];
    std::vector<int> found;
    const auto has = [&](int number) { return number == own || std::ranges::find(found, number) != found.end(); };
    for (std::size_t i = place + 1; i < order.size(); ++i)
        if (graph.seam(own, order[i]).edges > 0)
            found.push_back(order[i]);
    bool more = true;
    while (more) {
        more = false;
        for (std::size_t i = place + 1; i < order.size(); ++i) {
            const auto& seams = graph.seamsOf(order[i]);
            const bool within = !has(order[i]) && graph.region(order[i]).clearEdges == 0 && !seams.empty() &&
                                std::ranges::all_of(seams, [&](const auto& seam) { return has(seam.first); });
            if (within)
                found.push_back(order[i]);
            more = more || within;
        }
    }
    return found;
}

// The candidates that touch only the region and each other.
std::vector<int> regionsInside(const RegionGraph& graph, int own, std::vector<int> candidates)
{
    std::erase_if(candidates,
                  [&](int number) { return graph.region(number).clearEdges + graph.region(number).frameEdges > 0; });
    const auto touchesAnother = [&](int number) {
        return std::ranges::any_of(graph.seamsOf(number), [&](const auto& seam) {
            return seam.first != own && std::ranges::find(candidates, seam.first) == candidates.end();
        });
    };
    std::vector<int> outside;
    do {
        outside.clear();
        std::ranges::copy_if(candidates, std::back_inserter(outside), touchesAnother);
        std::erase_if(candidates, [&](int number) { return std::ranges::find(outside, number) != outside.end(); });
    } while (!outside.empty());
    return candidates;
}

// The outline of a round region; its seams with regions that do not lie above it are a part of it.
std::optional<Ellipse> wholeOutline(const RegionGraph& graph, const RoundOutlines& outlines, int own,
                                    const std::vector<int>& above)
{
    std::vector<int> below;
    for (const auto& [other, seam] : graph.seamsOf(own))
        if (std::ranges::find(above, other) == above.end())
            below.push_back(other);
    return outlines.of(own, below);
}

} // namespace

StackingOrder stackingOrderOf(const RegionGraph& graph, const PixelPlane<int>& labels)
{
    const RoundOutlines outlines(labels, graph.regions().size());
    PartialOrder order(graph.regions().size());
    for (const Precedence& pair : pairsOf(graph, labels, outlines))
        if (!order.isAbove(pair.above, pair.below))
            order.add(pair.below, pair.above);
    StackingOrder stacking;
    stacking.bottomUp = bottomUp(graph, order);
    for (std::size_t i = 0; i < stacking.bottomUp.size(); ++i) {
        stacking.beneath.push_back(regionsAbove(graph, stacking.bottomUp, i));
        stacking.inside.push_back(regionsInside(graph, stacking.bottomUp[i], stacking.beneath.back()));
        stacking.round.push_back(wholeOutline(graph, outlines, stacking.bottomUp[i], stacking.beneath.back()));
    }
    return stacking;
}
