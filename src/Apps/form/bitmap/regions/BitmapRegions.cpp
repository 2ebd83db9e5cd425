// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each region grows from a core. The cores are chosen among the areas of colour; every other covered pixel goes to the
// nearest core.
#include "form/bitmap/regions/BitmapRegions.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/bitmap/pixels/Grain.h"
#include "form/bitmap/pixels/PixelDistances.h"
#include "form/bitmap/regions/RegionCores.h"

#include <algorithm>
#include <cmath>

namespace {

// The reach of the areas, in half line widths: pixels within it are the areas' edges or outlines.
constexpr double kReach = 4.0;
// In a picture with a smaller share of cores, dark lines not counted, the pixels do not form areas: it is painted.
constexpr double kLeastCores = 0.6;
// A picture with more than this share of pixels outside the reach of its areas, or with more than kMostCores areas, is
// painted too.
constexpr double kPaintedShare = 0.3;
constexpr std::size_t kMostCores = 400;
// A picture with more grain, of its pixels and of squares of them, is a photograph, whose areas are highlights and
// shades of one body. The pixels alone may have the noise of a scan.
constexpr double kPhotograph = 0.6;
constexpr int kSquare = 4;
constexpr int kLeastPixels = 2000; // of each three in a row or column
constexpr int kLeastSquares = 100;
// Smaller parts of painted pictures, as a share of the covered pixels, belong to the nearest larger part.
constexpr double kPaintedSpeck = 0.004;

PixelPlane<char> coveredOf(const PixelPlane<QRgb>& colours)
{
    PixelPlane<char> covered(colours.width(), colours.height(), 0);
    for (int i = 0; i < colours.count(); ++i)
        covered[i] = qAlpha(colours[i]) > 0 ? 1 : 0;
    return covered;
}

int countOf(const PixelPlane<int>& labels)
{
    int count = 0;
    for (int i = 0; i < labels.count(); ++i)
        count = std::max(count, labels[i] + 1);
    return count;
}

// Renumbers by size, because the lower number decides between equally near areas.
void sortBySize(PixelPlane<int>& labels, const PixelPlane<QRgb>& colours)
{
    std::vector<AreaSum> sums(static_cast<std::size_t>(countOf(labels)));
    for (int i = 0; i < labels.count(); ++i)
        if (labels[i] >= 0)
            sums[static_cast<std::size_t>(labels[i])].add(colours[i]);
    const std::vector<int> places = placesBySize(sums);
    for (int i = 0; i < labels.count(); ++i)
        if (labels[i] >= 0)
            labels[i] = places[static_cast<std::size_t>(labels[i])];
}

// The connected parts of the covered pixels, without those smaller than kPaintedSpeck. The largest part is never left
// out.
PixelPlane<int> islands(const PixelPlane<char>& covered, int coveredCount)
{
    ConnectedParts parts = connectedPartsOf(covered);
    const int largest = parts.pixels.empty() ? 0 : std::ranges::max(parts.pixels);
    const int least = std::min(largest, static_cast<int>(std::lround(kPaintedSpeck * coveredCount)));
    for (int i = 0; i < covered.count(); ++i)
        if (parts.labels[i] >= 0 && parts.pixels[static_cast<std::size_t>(parts.labels[i])] < least)
            parts.labels[i] = kNoLabel;
    std::vector<int> numbers(parts.pixels.size(), kNoLabel);
    int next = 0;
    for (int i = 0; i < covered.count(); ++i)
        if (int& label = parts.labels[i]; label >= 0) {
            int& number = numbers[static_cast<std::size_t>(label)];
            number = number < 0 ? next++ : number;
            label = number;
        }
    return parts.labels;
}

// Makes cores of the connected pieces outside the reach of all cores, if they are large enough.
void addFarPieces(PixelPlane<int>& cores, const NearestAreas& nearest, const PixelPlane<char>& covered, int reach,
                  int leastPixels)
{
    PixelPlane<char> far(cores.width(), cores.height(), 0);
    for (int i = 0; i < cores.count(); ++i)
        far[i] = covered[i] && nearest.distances[i] > reach ? 1 : 0;
    const ConnectedParts parts = connectedPartsOf(far);
    std::vector<int> numbers;
    int next = countOf(cores);
    std::vector<int> farthest(parts.pixels.size(), 0);
    for (int i = 0; i < cores.count(); ++i)
        if (parts.labels[i] >= 0) {
            int& own = farthest[static_cast<std::size_t>(parts.labels[i])];
            own = std::max(own, nearest.distances[i]);
        }
    for (std::size_t i = 0; i < farthest.size(); ++i)
        numbers.push_back(parts.pixels[i] >= leastPixels && farthest[i] > 2 * reach ? next++ : kNoLabel);
    for (int i = 0; i < cores.count(); ++i)
        if (parts.labels[i] >= 0)
            cores[i] = numbers[static_cast<std::size_t>(parts.labels[i])];
}

double shareBeyond(const NearestAreas& nearest, const PixelPlane<char>& covered, int reach)
{
    int beyond = 0;
    int all = 0;
    for (int i = 0; i < covered.count(); ++i) {
        all += covered[i] ? 1 : 0;
        beyond += covered[i] && nearest.distances[i] > reach ? 1 : 0;
    }
    return all == 0 ? 0.0 : double(beyond) / all;
}

// The share of cores among the covered pixels, dark pixels outside the cores not counted.
double shareOfCores(const PixelPlane<int>& cores, const PixelPlane<QRgb>& colours)
{
    constexpr int kDark = 100;
    int inCores = 0;
    int others = 0;
    for (int i = 0; i < cores.count(); ++i) {
        inCores += cores[i] >= 0 ? 1 : 0;
        others += cores[i] < 0 && qAlpha(colours[i]) > 0 && qGray(colours[i]) > kDark ? 1 : 0;
    }
    return inCores == 0 ? 0.0 : double(inCores) / (inCores + others);
}

// Gives every covered pixel to the nearest core. Small islands without a core go to the nearest region across the gap.
PixelPlane<int> cutByCores(const PixelPlane<int>& cores, const PixelPlane<char>& covered)
{
    PixelPlane<int> labels = grown(cores, covered).labels;
    const PixelPlane<char> everywhere(cores.width(), cores.height(), 1);
    bool left = false;
    for (int i = 0; i < labels.count() && !left; ++i)
        left = covered[i] && labels[i] < 0;
    if (!left)
        return labels;
    const PixelPlane<int> across = grown(labels, everywhere).labels;
    for (int i = 0; i < labels.count(); ++i)
        if (covered[i])
            labels[i] = across[i];
    return labels;
}

// A photograph of one body. One that is opaque up to its borders shows a scene, of which its areas tell more.
bool isPhotograph(const ColourAreas& areas, const PixelPlane<QRgb>& colours)
{
    return !areas.hard && areas.covered < colours.count() && grainOf(colours, kLeastPixels) > kPhotograph &&
           grainOf(averagesOf(colours, kSquare), kLeastSquares) > kPhotograph;
}

} // namespace

BitmapRegions bitmapRegionsOf(const PixelPlane<QRgb>& colours)
{
    const ColourAreas areas = colourAreasOf(colours);
    const RegionCores chosen = regionCoresOf(areas, colours);
    const PixelPlane<char> covered = coveredOf(colours);
    PixelPlane<int> cores = chosen.labels;
    const NearestAreas nearest = grown(cores, covered);
    const int reach = static_cast<int>(std::lround(kPixelStep * kReach * chosen.halfLine));

    BitmapRegions regions;
    regions.hard = areas.hard;
    regions.painted = isPhotograph(areas, colours) || shareOfCores(cores, colours) < kLeastCores ||
                      shareBeyond(nearest, covered, reach) > kPaintedShare ||
                      static_cast<std::size_t>(countOf(cores)) > kMostCores;
    if (regions.painted)
        cores = islands(covered, areas.covered);
    else
        addFarPieces(cores, nearest, covered, reach, 2 * chosen.leastPixels);
    sortBySize(cores, colours);
    regions.labels = cutByCores(cores, covered);
    regions.colours.resize(static_cast<std::size_t>(countOf(cores)));
    for (int i = 0; i < cores.count(); ++i)
        if (cores[i] >= 0)
            regions.colours[static_cast<std::size_t>(cores[i])].add(colours[i]);
    return regions;
}
