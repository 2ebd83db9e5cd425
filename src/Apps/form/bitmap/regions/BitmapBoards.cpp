// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/regions/BitmapBoards.h"

#include "form/choice/Flags.h"

#include <QRect>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace {

constexpr double kFilled = 0.95;    // of the box; the rest is rounded corners
constexpr double kGround = 0.5;     // of the box: what lies on the ground hides some of it
constexpr double kSmallest = 0.02;  // of the picture
constexpr double kLongest = 2.2;    // length to width: what is longer, such as a pencil, is round
constexpr double kAlong = 0.35;     // of a region's outline
constexpr double kLeastHeld = 0.03; // of the box: with less on it, a rectangle of one colour is a body like others
constexpr double kContrast = 33.0;  // in lightness: what differs less in the hue of its ground is a shade of it
constexpr double kInset = 0.035;    // of the width of the box: a line around the board may lie between
constexpr double kSameColour = 4.0;
constexpr int kFewest = 3; // pixels at a side that a region reaches

// The pixels of a region along the sides of a box: left, top, right, bottom.
using AtSides = std::array<int, 4>;

std::size_t placeOf(int number)
{
    return static_cast<std::size_t>(number);
}

QRect coveredBox(const PixelPlane<int>& labels)
{
    QRect box;
    for (int y = 0; y < labels.height(); ++y) {
        const std::span<const int> row = labels.row(y);
        const auto isCovered = [](int label) { return label >= 0; };
        const auto first = std::ranges::find_if(row, isCovered);
        if (first == row.end())
            continue;
        const auto last = std::find_if(row.rbegin(), row.rend(), isCovered);
        box |=
            QRect(QPoint(static_cast<int>(first - row.begin()), y), QPoint(static_cast<int>(row.rend() - last) - 1, y));
    }
    return box;
}

class BitmapBoard
{
public:
    BitmapBoard(const RegionGraph& graph, const FoundRegions& found)
        : _graph(graph), _found(found), _labels(graph.labels()), _box(coveredBox(_labels)), _sides(found.size())
    {
        const int inset = std::max(1, static_cast<int>(std::lround(kInset * _box.width())));
        const QRect inner = _box.adjusted(inset, inset, -inset, -inset);
        for (int y = inner.top(); y <= inner.bottom(); ++y) {
            count(inner.left(), y, 0);
            count(inner.right(), y, 2);
        }
        for (int x = inner.left(); x <= inner.right(); ++x) {
            count(x, inner.top(), 1);
            count(x, inner.bottom(), 3);
        }
    }

    // The regions of the ground, the largest first; empty if the bitmap is no board.
    std::vector<int> ground() const
    {
        std::vector<int> regions;
        if (!isRectangle())
            return regions;
        for (int number = 0; number < static_cast<int>(_sides.size()); ++number)
            if (_graph.isLeft(number) && isOfGround(number))
                regions.push_back(number);
        // Of equally large ones their colours decide, so that a mirrored flag is called after the same stripe.
        std::ranges::stable_sort(regions, {}, [&](int number) {
            const auto& [lightness, a, b] = _graph.region(number).colour;
            return std::tuple(-_graph.region(number).pixels, lightness, a, b);
        });
        if (!isWhole(regions) || hasInkedSeam(regions) ||
            (!hasSeveralColours(regions) && heldBy(regions.front()) < kLeastHeld))
            regions.clear();
        return regions;
    }

    // Whether it has several colours along its border and a flag's shape.
    bool isFlag(const std::vector<int>& ground) const { return hasSeveralColours(ground) && hasFlagShape(_box.size()); }

private:
    void count(int x, int y, std::size_t side)
    {
        if (_labels.contains(x, y) && _labels.at(x, y) >= 0)
            ++_sides[placeOf(_labels.at(x, y))][side];
    }

    double boxArea() const { return static_cast<double>(_box.width()) * _box.height(); }

    bool isRectangle() const
    {
        const auto [shorter, longer] = std::minmax({_box.width(), _box.height()});
        return boxArea() > kSmallest * _labels.count() && longer <= kLongest * shorter &&
               _graph.coveredPixels() >= kFilled * boxArea();
    }

    bool isOfGround(int number) const
    {
        const auto& [left, top, right, bottom] = _sides[placeOf(number)];
        // A stripe that ends beneath another region reaches two sides that meet.
        const bool isAcross =
            std::ranges::count_if(_sides[placeOf(number)], [](int pixels) { return pixels >= kFewest; }) > 1;
        const int outline = _graph.outline(number) + _graph.region(number).frameEdges;
        return isAcross || left + top + right + bottom > kAlong * outline;
    }

    bool isWhole(const std::vector<int>& ground) const
    {
        double pixels = 0.0;
        for (const int number : ground)
            pixels += _graph.region(number).pixels;
        return pixels >= kGround * boxArea();
    }

    bool hasSeveralColours(const std::vector<int>& ground) const
    {
        const SeenColour& first = _graph.region(ground.front()).colour;
        return std::ranges::any_of(ground, [&](int number) {
            const Region& region = _graph.region(number);
            return colourDistance(region.colour, first) > kSameColour;
        });
    }

    bool reachesSide(int number) const
    {
        return std::ranges::any_of(_sides[placeOf(number)], [](int pixels) { return pixels >= kFewest; });
    }

    // Whether a line parts an area of the ground from another one at the border: they are separate things, such as
    // drawers or the legs of a letter.
    bool hasInkedSeam(const std::vector<int>& ground) const
    {
        return std::ranges::any_of(ground, [&](int number) {
            return std::ranges::any_of(_graph.seamsOf(number), [&](const auto& met) {
                const auto& [other, seam] = met;
                return reachesSide(other) && seam.edges >= kFewest && seam.isInked();
            });
        });
    }

    // The share of the box that regions of other colours take. A line around the board does not count.
    double heldBy(int ground) const
    {
        const SeenColour& colour = _graph.region(ground).colour;
        int held = 0;
        for (const Region& region : _found) {
            const bool differs =
                !isSameHue(region.colour, colour) || std::abs(region.colour.lightness - colour.lightness) > kContrast;
            held += differs && region.clearEdges + region.frameEdges < _box.width() + _box.height() ? region.pixels : 0;
        }
        return held / boxArea();
    }

    const RegionGraph& _graph;
    const FoundRegions& _found;
    PixelPlane<int> _labels;
    QRect _box;                  // of what is covered
    std::vector<AtSides> _sides; // for each region
};

} // namespace

int joinBoard(RegionGraph& graph, const FoundRegions& found)
{
    const BitmapBoard board(graph, found);
    std::vector<int> ground = board.ground();
    if (ground.empty())
        return kNoLabel;
    const int lowest = ground.front();
    if (board.isFlag(ground))
        for (int number = 0; number < static_cast<int>(found.size()); ++number)
            if (graph.isLeft(number) && std::ranges::find(ground, number) == ground.end())
                ground.push_back(number);
    for (const int number : ground)
        if (number != lowest)
            graph.join(lowest, number);
    return lowest;
}
