// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Thickness decides: the depth of an area's pixels is compared with the width of lines, which is derived from the
// drawing's extent.
#include "form/bitmap/regions/RegionCores.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/bitmap/pixels/PixelDistances.h"
#include "form/choice/Colour.h"

#include <algorithm>
#include <cmath>

namespace {

// A dark area is a line up to this half width, as a part of the drawing's extent; the limit is at least kLeastHalfLine
// pixels.
constexpr double kHalfLine = 0.022;
constexpr double kLeastHalfLine = 1.5;
constexpr double kLeastHalfLineOfPixelArt = 1.0;
// The same for all other areas: narrower ones are highlights or seams.
constexpr double kHalfSliver = 0.007;
// An area with fewer pixels is a speck; as a part of the covered pixels, and at least kLeastPixels.
constexpr double kSpeck = 0.0012;
constexpr double kSpeckOfPixelArt = 0.006;
constexpr int kLeastPixels = 8;
constexpr int kLeastPixelsOfPixelArt = 4;
// A dark area that is kNet times as long as wide is a net of lines even if its half width is up to kHalfNet of the
// extent.
constexpr double kNet = 14.0;
constexpr double kHalfNet = 0.045;
// A dark area is a body, not lines, if at least kMostlyThick of it is thicker than lines. Of other dark areas, the
// parts are kept that are kClearlyThick times as thick as lines.
constexpr double kMostlyThick = 0.6;
constexpr double kClearlyThick = 1.6;
// Ink is darker than this lightness.
constexpr double kDarkest = 33.0;

struct Thresholds
{
    double halfLine;
    double halfNet;
    double halfSliver;
    int leastPixels;
};

int extentOf(const PixelPlane<QRgb>& colours)
{
    int left = colours.width();
    int right = -1;
    int top = colours.height();
    int bottom = -1;
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x)
            if (qAlpha(colours.at(x, y)) > 0) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = y;
            }
    return std::max({0, right - left + 1, bottom - top + 1});
}

Thresholds thresholdsFor(const ColourAreas& areas, int extent)
{
    const auto least = [&](double share, int pixels) {
        return std::max(pixels, static_cast<int>(std::lround(share * areas.covered)));
    };
    if (areas.hard)
        return {std::max(kLeastHalfLineOfPixelArt, 0.6 * kHalfLine * extent), kHalfNet * extent, 0.0,
                least(kSpeckOfPixelArt, kLeastPixelsOfPixelArt)};
    return {std::max(kLeastHalfLine, kHalfLine * extent), kHalfNet * extent, std::max(1.0, kHalfSliver * extent),
            least(kSpeck, kLeastPixels)};
}

bool isDark(const AreaSum& sum)
{
    return SeenColour::of(QColor::fromRgb(sum.average())).lightness < kDarkest;
}

// Chooses the cores of the regions.
class Cores
{
public:
    Cores(const ColourAreas& areas, const Thresholds& thresholds)
        : _areas(areas), _thresholds(thresholds), _depths(depthsInside(areas.labels))
    {}

    // Marks the pixels that belong to cores. A dark area may be a net of lines with thick parts in it: then only these
    // count.
    PixelPlane<char> find() const
    {
        const std::vector<char> thick = thickAreas();
        const std::vector<char> dark = darkAreas();
        const PixelPlane<char> openedDark = opened(dark);
        PixelPlane<char> cores(_areas.labels.width(), _areas.labels.height(), 0);
        for (int i = 0; i < cores.count(); ++i) {
            const int area = _areas.labels[i];
            if (area >= 0)
                cores[i] = is(dark, area) ? openedDark[i] : (is(thick, area) ? 1 : 0);
        }
        return cores;
    }

private:
    static bool is(const std::vector<char>& property, int area)
    {
        return property[static_cast<std::size_t>(area)] != 0;
    }

    // Half of an antialiased edge belongs to the area, so its depth is half a pixel more.
    double depth(int pixel) const { return _depths[pixel] / double(kPixelStep) + (_areas.hard ? 0.0 : 0.5); }

    std::vector<char> darkAreas() const
    {
        std::vector<char> dark;
        for (const AreaSum& sum : _areas.areas)
            dark.push_back(isDark(sum) ? 1 : 0);
        return dark;
    }

    std::vector<char> thickAreas() const
    {
        return _areas.hard ? areasWithSquares() : areasDeeperThan(_thresholds.halfSliver);
    }

    std::vector<char> areasDeeperThan(double limit) const
    {
        std::vector<char> deep(_areas.areas.size(), 0);
        for (int i = 0; i < _areas.labels.count(); ++i)
            if (_areas.labels[i] >= 0 && depth(i) > limit)
                deep[static_cast<std::size_t>(_areas.labels[i])] = 1;
        return deep;
    }

    // Lines in pixel art are one pixel wide, so an area that has two by two pixels anywhere is not a line.
    std::vector<char> areasWithSquares() const
    {
        const PixelPlane<int>& labels = _areas.labels;
        std::vector<char> found(_areas.areas.size(), 0);
        for (int y = 1; y < labels.height(); ++y)
            for (int x = 1; x < labels.width(); ++x) {
                const int own = labels.at(x, y);
                if (own >= 0 && labels.at(x - 1, y) == own && labels.at(x, y - 1) == own &&
                    labels.at(x - 1, y - 1) == own)
                    found[static_cast<std::size_t>(own)] = 1;
            }
        return found;
    }

    // Marks the thick parts of the chosen areas at their full thickness, and the whole of areas that are mostly thick:
    // a morphological opening by half a line width.
    PixelPlane<char> opened(const std::vector<char>& chosen) const
    {
        const PixelPlane<int>& labels = _areas.labels;
        PixelPlane<int> inner(labels.width(), labels.height(), kNoLabel);
        PixelPlane<char> open(labels.width(), labels.height(), 0);
        for (int i = 0; i < labels.count(); ++i) {
            open[i] = labels[i] >= 0 && is(chosen, labels[i]) ? 1 : 0;
            if (open[i] && depth(i) > _thresholds.halfLine)
                inner[i] = labels[i];
        }
        const NearestAreas back = grown(inner, open);
        const int reach = static_cast<int>(std::lround(kPixelStep * _thresholds.halfLine));
        PixelPlane<char> thick(labels.width(), labels.height(), 0);
        std::vector<int> thickPixels(_areas.areas.size(), 0);
        for (int i = 0; i < labels.count(); ++i)
            if (back.labels[i] >= 0 && back.labels[i] == labels[i] && back.distances[i] <= reach) {
                thick[i] = 1;
                ++thickPixels[static_cast<std::size_t>(labels[i])];
            }
        const std::vector<char> nets = areasThatAreNets();
        const std::vector<char> clearly = partsDeeperThan(thick, kClearlyThick * _thresholds.halfLine);
        PixelPlane<char> result(labels.width(), labels.height(), 0);
        for (int i = 0; i < labels.count(); ++i) {
            if (!open[i])
                continue;
            const auto area = static_cast<std::size_t>(labels[i]);
            const bool body = thickPixels[area] > kMostlyThick * _areas.areas[area].pixels;
            const bool net = is(nets, labels[i]);
            result[i] = !net && (body || (thick[i] && clearly[static_cast<std::size_t>(i)])) ? 1 : 0;
        }
        return result;
    }

    std::vector<char> areasThatAreNets() const
    {
        std::vector<double> deepest(_areas.areas.size(), 0.0);
        for (int i = 0; i < _areas.labels.count(); ++i)
            if (_areas.labels[i] >= 0) {
                double& own = deepest[static_cast<std::size_t>(_areas.labels[i])];
                own = std::max(own, depth(i));
            }
        std::vector<char> nets;
        for (std::size_t i = 0; i < deepest.size(); ++i) {
            const double width = 2.0 * deepest[i];
            nets.push_back(deepest[i] <= _thresholds.halfNet && _areas.areas[i].pixels > kNet * width * width ? 1 : 0);
        }
        return nets;
    }

    // For every marked pixel, whether its connected part of the marked pixels is deeper than the limit anywhere.
    std::vector<char> partsDeeperThan(const PixelPlane<char>& marked, double limit) const
    {
        const ConnectedParts parts = connectedPartsOf(marked);
        std::vector<char> deep(parts.pixels.size(), 0);
        for (int i = 0; i < marked.count(); ++i)
            if (marked[i] && depth(i) > limit)
                deep[static_cast<std::size_t>(parts.labels[i])] = 1;
        std::vector<char> result(static_cast<std::size_t>(marked.count()), 0);
        for (int i = 0; i < marked.count(); ++i)
            result[static_cast<std::size_t>(i)] = marked[i] ? deep[static_cast<std::size_t>(parts.labels[i])] : 0;
        return result;
    }

    const ColourAreas& _areas;
    Thresholds _thresholds;
    PixelPlane<int> _depths;
};

// The connected parts of the chosen pixels, separated where areas meet, without the small ones.
PixelPlane<int> largeParts(const PixelPlane<char>& chosen, const PixelPlane<int>& areas, int leastPixels)
{
    const int width = chosen.width();
    PixelSets sets(chosen.count());
    const auto joined = [&](int a, int b) { return chosen[a] && chosen[b] && areas[a] == areas[b]; };
    for (int y = 0; y < chosen.height(); ++y)
        for (int x = 0; x < width; ++x) {
            const int i = y * width + x;
            if (x > 0 && joined(i, i - 1))
                sets.join(i, i - 1);
            if (y > 0 && joined(i, i - width))
                sets.join(i, i - width);
        }
    std::vector<int> sizes(static_cast<std::size_t>(chosen.count()), 0);
    for (int i = 0; i < chosen.count(); ++i)
        if (chosen[i])
            ++sizes[static_cast<std::size_t>(sets.find(i))];
    PixelPlane<int> parts(width, chosen.height(), kNoLabel);
    int next = 0;
    for (int i = 0; i < chosen.count(); ++i) {
        if (!chosen[i])
            continue;
        const int first = sets.find(i);
        if (sizes[static_cast<std::size_t>(first)] >= leastPixels)
            parts[i] = first == i ? next++ : parts[first];
    }
    return parts;
}

} // namespace

RegionCores regionCoresOf(const ColourAreas& areas, const PixelPlane<QRgb>& colours)
{
    const Thresholds thresholds = thresholdsFor(areas, extentOf(colours));
    return {largeParts(Cores(areas, thresholds).find(), areas.labels, thresholds.leastPixels), thresholds.halfLine,
            thresholds.leastPixels};
}
