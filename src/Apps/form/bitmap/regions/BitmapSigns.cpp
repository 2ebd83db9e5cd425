// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/regions/BitmapSigns.h"

#include "form/bitmap/regions/InnerRegions.h"
#include "form/choice/InnerFacts.h"
#include "form/choice/Signs.h"

#include <algorithm>

namespace {

constexpr double kSameColour = 4.0;
constexpr std::size_t kMostMarks = 8; // a painted ball, such as a planet, has more patches

// The largest region with what it surrounds.
int largestOf(const RegionGraph& graph)
{
    int largest = kNoLabel;
    int pixels = 0;
    for (int number = 0; number < static_cast<int>(graph.regions().size()); ++number)
        if (graph.isLeft(number) && graph.filledPixels(number) > pixels) {
            largest = number;
            pixels = graph.filledPixels(number);
        }
    return largest;
}

// The regions that lie on a disc. Regions of one colour have one paint.
//
// @param[out] numbers of the regions
std::vector<ShapeFacts> marksOn(const ShapeFacts& disc, const RegionGraph& found, std::vector<int>& numbers)
{
    const InnerRegions measured(found);
    std::vector<ShapeFacts> marks;
    for (int number = 0; number < static_cast<int>(found.regions().size()); ++number) {
        if (found.region(number).clearEdges + found.region(number).frameEdges > 0)
            continue;
        ShapeFacts mark = measured.filledFacts(number);
        if (mark.opacity < kSolid || mark.area == 0 || !liesInside(mark, disc.mask))
            continue;
        const auto same = std::ranges::find_if(
            marks, [&](const ShapeFacts& other) { return colourDistance(other.colour, mark.colour) < kSameColour; });
        mark.paint = same == marks.end() ? number : same->paint;
        marks.push_back(std::move(mark));
        numbers.push_back(number);
    }
    return marks;
}

} // namespace

int findSign(const RegionGraph& graph, const RegionGraph& found)
{
    const int largest = largestOf(graph);
    if (largest == kNoLabel)
        return kNoLabel;
    const InnerRegions measured(graph);
    const ShapeFacts disc = measured.filledFacts(largest);
    if (!isLargeDisc(disc, disc.mask.box()))
        return kNoLabel;
    QRect drawn;
    for (int number = 0; number < static_cast<int>(graph.regions().size()); ++number)
        if (graph.isLeft(number))
            drawn |= measured.filledFacts(number).mask.box();
    if (!isLargeDisc(disc, drawn))
        return kNoLabel;
    std::vector<int> numbers;
    const std::vector<ShapeFacts> shapes = marksOn(disc, found, numbers);
    std::vector<const ShapeFacts*> marks;
    std::vector<const ShapeFacts*> objects; // those that were not joined to others
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        marks.push_back(&shapes[i]);
        if (numbers[i] != largest && graph.isLeft(numbers[i]))
            objects.push_back(&shapes[i]);
    }
    return marks.size() <= kMostMarks && isSign(disc, marks, objects) ? largest : kNoLabel;
}
