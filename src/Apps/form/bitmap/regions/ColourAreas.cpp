// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Linking all neighbours that hardly differ would be wrong: where an edge runs almost along the rows, antialiasing
// fades one colour into the other in arbitrarily small steps. So only calm pixels are linked, which hardly differ from
// any of their four neighbours; a pixel of an antialiased edge has different colours on its two sides.
#include "form/bitmap/regions/ColourAreas.h"

#include "form/bitmap/pixels/ConnectedPixels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <unordered_set>

namespace {

// How much neighbours within an area may differ: in a flat drawing they are equal, in a clean one they differ by the
// steps of a gradient, in others by noise too. Colours that differ by twice as much are kept apart.
constexpr int kFlatStep = 1;
constexpr int kCleanStep = 4;
constexpr int kNoisyStep = 10;
// The shares of equal neighbours above which a drawing counts as flat or as clean.
constexpr double kFlatShare = 0.85;
constexpr double kCleanShare = 0.5;

// Pixel art has few colours and hardly any partly covered pixels.
constexpr std::size_t kMostColoursOfPixelArt = 96;
constexpr double kMostPartlyCovered = 0.02;

int step(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

struct Statistics
{
    int covered = 0;
    int partly = 0;
    int equalNeighbours = 0;
    int neighbours = 0;
    std::unordered_set<QRgb> colours; // counted only until there are too many for pixel art

    bool isHard() const { return colours.size() <= kMostColoursOfPixelArt && partly <= kMostPartlyCovered * covered; }
    int tolerance() const
    {
        if (isHard())
            return 0;
        if (equalNeighbours >= kFlatShare * neighbours)
            return kFlatStep;
        return equalNeighbours >= kCleanShare * neighbours ? kCleanStep : kNoisyStep;
    }
};

void count(QRgb pixel, Statistics& statistics)
{
    if (qAlpha(pixel) == 0)
        return;
    ++statistics.covered;
    statistics.partly += qAlpha(pixel) < 255 ? 1 : 0;
    if (statistics.colours.size() <= kMostColoursOfPixelArt)
        statistics.colours.insert(pixel);
}

void countNeighbours(QRgb a, QRgb b, Statistics& statistics)
{
    if (qAlpha(a) == 0 || qAlpha(b) == 0)
        return;
    ++statistics.neighbours;
    statistics.equalNeighbours += a == b ? 1 : 0;
}

Statistics statisticsOf(const PixelPlane<QRgb>& colours)
{
    Statistics statistics;
    for (int y = 0; y < colours.height(); ++y) {
        const auto row = colours.row(y);
        for (std::size_t x = 0; x < row.size(); ++x) {
            count(row[x], statistics);
            if (x > 0)
                countNeighbours(row[x - 1], row[x], statistics);
        }
    }
    return statistics;
}

PixelPlane<char> calmPixels(const PixelPlane<QRgb>& colours, int tolerance)
{
    PixelPlane<char> calm(colours.width(), colours.height(), 0);
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x) {
            const QRgb own = colours.at(x, y);
            bool isCalm = qAlpha(own) > 0;
            forEachNeighbour(colours, x, y,
                             [&](int other) { isCalm = isCalm && step(own, colours[other]) <= tolerance; });
            calm.at(x, y) = isCalm ? 1 : 0;
        }
    return calm;
}

PixelPlane<char> coveredPixels(const PixelPlane<QRgb>& colours)
{
    PixelPlane<char> covered(colours.width(), colours.height(), 0);
    for (int i = 0; i < colours.count(); ++i)
        covered[i] = qAlpha(colours[i]) > 0 ? 1 : 0;
    return covered;
}

PixelSets linked(const PixelPlane<QRgb>& colours, const PixelPlane<char>& linkable, int tolerance)
{
    PixelSets sets(colours.count());
    const int width = colours.width();
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 0; x < width; ++x) {
            const int i = y * width + x;
            if (!linkable[i])
                continue;
            if (x > 0 && linkable[i - 1] && step(colours[i], colours[i - 1]) <= tolerance)
                sets.join(i, i - 1);
            if (y > 0 && linkable[i - width] && step(colours[i], colours[i - width]) <= tolerance)
                sets.join(i, i - width);
        }
    return sets;
}

// The area of the neighbour whose colour is closest to a loose pixel's; kLoose if no neighbour is close enough, or if
// two areas are equally close.
int areaBeside(const PixelPlane<QRgb>& colours, const PixelPlane<int>& labels, int x, int y, int tolerance)
{
    const QRgb own = colours.at(x, y);
    int least = tolerance + 1;
    int best = kLoose;
    forEachNeighbour(colours, x, y, [&](int other) {
        if (labels[other] < 0 || labels[other] == best)
            return;
        const int apart = step(own, colours[other]);
        if (apart < least) {
            least = apart;
            best = labels[other];
        } else if (apart == least && apart <= tolerance)
            best = kLoose;
    });
    return best;
}

void addLikePixels(const PixelPlane<QRgb>& colours, int tolerance, ColourAreas& found)
{
    PixelPlane<int> added = found.labels;
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x) {
            if (found.labels.at(x, y) != kLoose)
                continue;
            int& label = added.at(x, y);
            label = areaBeside(colours, found.labels, x, y, tolerance);
            if (label >= 0)
                found.areas[static_cast<std::size_t>(label)].add(colours.at(x, y));
        }
    found.labels = std::move(added);
}

void sortBySize(ColourAreas& found)
{
    const std::vector<int> places = placesBySize(found.areas);
    for (int i = 0; i < found.labels.count(); ++i)
        if (found.labels[i] >= 0)
            found.labels[i] = places[static_cast<std::size_t>(found.labels[i])];
    std::vector<AreaSum> sorted(found.areas.size());
    for (std::size_t i = 0; i < sorted.size(); ++i)
        sorted[static_cast<std::size_t>(places[i])] = found.areas[i];
    found.areas = std::move(sorted);
}

} // namespace

void AreaSum::add(QRgb pixel)
{
    ++pixels;
    red += qRed(pixel);
    green += qGreen(pixel);
    blue += qBlue(pixel);
    alpha += qAlpha(pixel);
}

void AreaSum::add(const AreaSum& other)
{
    pixels += other.pixels;
    red += other.red;
    green += other.green;
    blue += other.blue;
    alpha += other.alpha;
}

QRgb AreaSum::average() const
{
    if (pixels == 0)
        return 0;
    const auto channel = [this](double sum) { return static_cast<int>(std::lround(sum / pixels)); };
    return qRgba(channel(red), channel(green), channel(blue), channel(alpha));
}

std::vector<int> placesBySize(const std::vector<AreaSum>& areas)
{
    std::vector<int> order(areas.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&](int i) {
        const AreaSum& area = areas[static_cast<std::size_t>(i)];
        return std::pair(-area.pixels, area.average());
    });
    std::vector<int> places(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        places[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    return places;
}

ColourAreas colourAreasOf(const PixelPlane<QRgb>& colours)
{
    const Statistics statistics = statisticsOf(colours);
    ColourAreas found;
    found.covered = statistics.covered;
    found.hard = statistics.isHard();
    const int tolerance = statistics.tolerance();
    const PixelPlane<char> linkable = found.hard ? coveredPixels(colours) : calmPixels(colours, tolerance);
    PixelSets sets = linked(colours, linkable, tolerance);
    found.labels = PixelPlane<int>(colours.width(), colours.height(), kNoLabel);
    for (int i = 0; i < colours.count(); ++i) {
        if (!linkable[i]) {
            found.labels[i] = qAlpha(colours[i]) > 0 ? kLoose : kNoLabel;
            continue;
        }
        // find() returns a set's first pixel, so the set's label is known before its other pixels are reached.
        const int first = sets.find(i);
        if (first == i) {
            found.labels[i] = static_cast<int>(found.areas.size());
            found.areas.emplace_back();
        } else
            found.labels[i] = found.labels[first];
        found.areas[static_cast<std::size_t>(found.labels[i])].add(colours[i]);
    }
    if (!found.hard)
        addLikePixels(colours, tolerance, found);
    sortBySize(found);
    return found;
}
