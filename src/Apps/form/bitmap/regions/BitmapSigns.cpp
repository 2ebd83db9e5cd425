// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/regions/BitmapSigns.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/bitmap/regions/InnerRegions.h"
#include "form/choice/InnerFacts.h"
#include "form/choice/Signs.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSameColour = 4.0;
constexpr int kDarker = 70;           // levels of grey: how much darker than a disc the lines on it are
constexpr double kLeastLine = 0.002;  // of the disc's pixels: smaller ones are specks
constexpr double kRim = 0.94;         // of the disc's width: what reaches farther is the line around it
constexpr double kRing = 0.03;        // of the disc's width: how far inside a ring's outline it is looked at
constexpr double kLeastField = 0.04;  // of the disc: a field between ring and bar
constexpr double kAtRing = 0.2;       // of the outline of such a field
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

// The cells that stand for pixels of a plane.
CellMask cellsOf(const PixelPlane<int>& labels, int label, const QRect& pixels, int scale)
{
    const QRect box(pixels.topLeft() * scale, pixels.size() * scale);
    return CellMask::where(box, [&](int x, int y) { return labels.at(x / scale, y / scale) == label; });
}

// A connected part of the dark pixels on a disc.
struct DarkPart
{
    QRect box;
    bool isEdge = false; // of another region, which is a mark itself
};

std::vector<DarkPart> darkPartsOf(const ConnectedParts& parts, const PixelPlane<int>& regions, int disc)
{
    std::vector<DarkPart> found(parts.pixels.size());
    for (int y = 0; y < regions.height(); ++y)
        for (int x = 0; x < regions.width(); ++x)
            if (const int part = parts.labels.at(x, y); part >= 0) {
                DarkPart& dark = found[static_cast<std::size_t>(part)];
                dark.box |= QRect(x, y, 1, 1);
                forEachNeighbour(regions, x, y,
                                 [&](int near) { dark.isEdge |= regions[near] >= 0 && regions[near] != disc; });
            }
    return found;
}

// The dark lines on a disc, such as thin hands of a clock: they are no regions, since they are too thin.
std::vector<ShapeFacts> linesOn(int disc, const QRect& box, const RegionGraph& found, const PixelPlane<QRgb>& colours)
{
    const PixelPlane<int> regions = found.labels();
    const double grey = 255.0 * found.region(disc).luma;
    PixelPlane<char> dark(colours.width(), colours.height(), 0);
    for (int i = 0; i < colours.count(); ++i)
        dark[i] = regions[i] == disc && qGray(colours[i]) < grey - kDarker ? 1 : 0;
    const ConnectedParts parts = connectedPartsOf(dark);
    const std::vector<DarkPart> marks = darkPartsOf(parts, regions, disc);
    const InnerRegions measured(found);
    std::vector<ShapeFacts> lines;
    const QSize most = kRim * box.size() / measured.scale();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const QRect& pixels = marks[i].box;
        const bool isSpeck = parts.pixels[i] < kLeastLine * found.region(disc).pixels;
        if (isSpeck || marks[i].isEdge || pixels.width() > most.width() || pixels.height() > most.height())
            continue;
        const CellMask cells = cellsOf(parts.labels, static_cast<int>(i), pixels, measured.scale());
        lines.push_back(measured.lineFacts(disc, cells));
        lines.back().colour = SeenColour();
        lines.back().paint = kNoLabel; // all of one paint
    }
    return lines;
}

} // namespace

int findSign(const RegionGraph& graph, const RegionGraph& found, const PixelPlane<QRgb>& colours)
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
    const std::vector<ShapeFacts> lines = linesOn(largest, disc.mask.box(), found, colours);
    std::vector<const ShapeFacts*> marks;
    std::vector<const ShapeFacts*> objects; // those that were not joined to others
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        marks.push_back(&shapes[i]);
        if (numbers[i] != largest && graph.isLeft(numbers[i]))
            objects.push_back(&shapes[i]);
    }
    for (const ShapeFacts& line : lines)
        marks.push_back(&line);
    return marks.size() <= kMostMarks && isSign(disc, marks, objects) ? largest : kNoLabel;
}

std::vector<int> fieldsInRing(const RegionGraph& graph, int& ring)
{
    ring = largestOf(graph);
    if (ring == kNoLabel)
        return {};
    const PixelPlane<int> labels = graph.labels();
    const CellMask own =
        CellMask::where(QRect(QPoint(), graph.size()), [&](int x, int y) { return labels.at(x, y) == ring; });
    const CellMask disc = graph.filledMask(ring, 1);
    const QRect box = disc.box();
    const int rim = static_cast<int>(std::lround(kRing * box.width()));
    if (disc.area() == own.area() || !isRingWithBar(own, box.adjusted(rim, rim, -rim, -rim)))
        return {};
    std::vector<int> fields;
    for (int number = 0; number < static_cast<int>(graph.regions().size()); ++number)
        if (graph.isLeft(number) && number != ring && graph.seamShare(number, ring) > kAtRing &&
            graph.region(number).clearEdges == 0 && graph.filledPixels(number) > kLeastField * disc.area())
            fields.push_back(number);
    return fields.size() > 1 ? fields : std::vector<int>();
}
