// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// All counts come from two passes over the pixels; joining regions adds their counts.
#include "form/bitmap/regions/RegionGraph.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// A line on a seam is darker than both regions by at least this much.
constexpr double kInkContrast = 0.12;

// Angles are measured in a disc of this radius, as a part of the largest region's extent, and of at least
// kLeastAngleRadius pixels.
constexpr double kAngleRadius = 0.05;
constexpr double kLeastAngleRadius = 3.0;

double lumaOf(QRgb colour)
{
    return (54 * qRed(colour) + 183 * qGreen(colour) + 19 * qBlue(colour)) / (256.0 * 255.0);
}

struct RowEnds
{
    int first = -1;
    int last = -1;
};

} // namespace

RegionGraph::RegionGraph(const BitmapRegions& regions, const PixelPlane<QRgb>& colours)
    : _labels(regions.labels), _regions(regions.colours.size()), _seams(regions.colours.size())
{
    for (std::size_t i = 0; i < _regions.size(); ++i) {
        const QRgb colour = regions.colours[i].average();
        _regions[i].colour = SeenColour::of(QColor::fromRgb(colour));
        _regions[i].luma = lumaOf(colour);
        _regions[i].alpha = qAlpha(colour) / 255.0;
        _regions[i].corePixels = regions.colours[i].pixels;
        _joinedTo.push_back(static_cast<int>(i));
    }
    countEdges(colours);
    measure();
    findPoints();
}

void RegionGraph::meet(int a, int b, bool inked)
{
    for (const auto& [own, other] : {std::pair(a, b), std::pair(b, a)}) {
        Seam& seam = _seams[static_cast<std::size_t>(own)][other];
        ++seam.edges;
        seam.inked += inked ? 1 : 0;
    }
}

void RegionGraph::countEdges(const PixelPlane<QRgb>& colours)
{
    const auto edge = [&](int i, int j) {
        const int a = _labels[i];
        const int b = _labels[j];
        if (a == b)
            return;
        if (a < 0 || b < 0) {
            ++_regions[static_cast<std::size_t>(std::max(a, b))].clearEdges;
            return;
        }
        const double darkest = std::min(lumaOf(colours[i]), lumaOf(colours[j]));
        meet(a, b, darkest < std::min(region(a).luma, region(b).luma) - kInkContrast);
    };
    const auto frame = [&](int x, int y) {
        if (const int own = _labels.at(x, y); own >= 0)
            ++_regions[static_cast<std::size_t>(own)].frameEdges;
    };
    const int width = _labels.width();
    for (int y = 0; y < _labels.height(); ++y) {
        for (int x = 0; x < width; ++x) {
            const int i = y * width + x;
            if (_labels[i] >= 0) {
                ++_regions[static_cast<std::size_t>(_labels[i])].pixels;
                ++_covered;
            }
            if (x > 0)
                edge(i, i - 1);
            if (y > 0)
                edge(i, i - width);
        }
        frame(0, y);
        frame(width - 1, y);
    }
    for (int x = 0; x < width; ++x) {
        frame(x, 0);
        frame(x, _labels.height() - 1);
    }
}

void RegionGraph::measure()
{
    const PixelPlane<int> depths = depthsInside(_labels);
    std::vector<std::vector<QPoint>> corners(_regions.size());
    std::vector<RowEnds> ends(_regions.size());
    std::vector<int> met;
    for (int y = 0; y < _labels.height(); ++y) {
        met.clear();
        for (int x = 0; x < _labels.width(); ++x) {
            const int own = _labels.at(x, y);
            if (own < 0)
                continue;
            const auto index = static_cast<std::size_t>(own);
            _regions[index].deepest = std::max(_regions[index].deepest, depths.at(x, y) / double(kPixelStep));
            if (ends[index].first < 0) {
                ends[index].first = x;
                met.push_back(own);
            }
            ends[index].last = x;
        }
        for (const int own : met) {
            const auto index = static_cast<std::size_t>(own);
            const auto [first, last] = std::exchange(ends[index], {});
            for (const QPoint& corner :
                 {QPoint(first, y), QPoint(first, y + 1), QPoint(last + 1, y), QPoint(last + 1, y + 1)})
                corners[index].push_back(corner);
        }
    }
    for (std::size_t i = 0; i < _regions.size(); ++i)
        _regions[i].hull = ConvexHull(std::move(corners[i]));
}

void RegionGraph::findPoints()
{
    double extent = 0.0;
    for (const Region& one : _regions)
        extent = std::max(extent, one.hull.span());
    _points = seamPointsOf(_labels, std::max(kLeastAngleRadius, kAngleRadius * extent));
    _pointsOf.resize(_regions.size());
    for (std::size_t i = 0; i < _points.size(); ++i)
        for (const int label : _points[i].meeting)
            if (label >= 0)
                _pointsOf[static_cast<std::size_t>(label)].push_back(static_cast<int>(i));
}

std::vector<SeamEnd> RegionGraph::seamEnds(int first, int second) const
{
    std::vector<SeamEnd> ends;
    for (const int index : _pointsOf[static_cast<std::size_t>(first)]) {
        const SeamPoint& point = _points[static_cast<std::size_t>(index)];
        bool meetsSecond = false;
        bool meetsThird = false;
        bool open = false;
        for (const int label : point.meeting) {
            const int whose = label < 0 ? label : now(label);
            meetsSecond = meetsSecond || whose == second;
            meetsThird = meetsThird || (whose != first && whose != second);
            open = open || label < 0;
        }
        if (!meetsSecond || !meetsThird)
            continue;
        SeamEnd end{0.0, 0.0, open};
        for (const auto& [label, angle] : point.angles) {
            const int whose = label < 0 ? label : now(label);
            end.first += whose == first ? angle : 0.0;
            end.second += whose == second ? angle : 0.0;
        }
        ends.push_back(end);
    }
    return ends;
}

double RegionGraph::straightness(int a, int b) const
{
    const std::vector<SeamEnd> ends = seamEnds(a, b);
    double sum = 0.0;
    for (const SeamEnd& end : ends)
        sum += (std::abs(end.first - 180.0) - std::abs(end.second - 180.0)) / 180.0;
    return ends.empty() ? 0.0 : sum / static_cast<double>(ends.size());
}

double RegionGraph::clearShare(const ConvexHull& hull) const
{
    int clear = 0;
    int all = 0;
    for (int y = hull.top(); y < hull.bottom(); ++y) {
        const auto [first, last] = hull.pixelsIn(y);
        for (int x = first; x < last; ++x) {
            clear += _labels.at(x, y) < 0 ? 1 : 0;
            ++all;
        }
    }
    return all == 0 ? 0.0 : double(clear) / all;
}

Seam RegionGraph::seam(int a, int b) const
{
    const auto found = seamsOf(a).find(b);
    return found == seamsOf(a).end() ? Seam() : found->second;
}

int RegionGraph::outline(int number) const
{
    int edges = region(number).clearEdges;
    for (const auto& [other, seam] : seamsOf(number))
        edges += seam.edges;
    return edges;
}

int RegionGraph::mainNeighbour(int number) const
{
    int longest = -1;
    for (const auto& [other, found] : seamsOf(number))
        if (longest < 0 || found.edges > seam(number, longest).edges)
            longest = other;
    return longest;
}

double RegionGraph::seamShare(int number, int other) const
{
    const int all = outline(number);
    return all == 0 ? 0.0 : double(seam(number, other).edges) / all;
}

int RegionGraph::filledPixels(int number) const
{
    int pixels = region(number).pixels;
    for (const auto& [other, seam] : seamsOf(number))
        if (region(other).pixels < region(number).pixels && seamShare(other, number) >= kInsideShare)
            pixels += region(other).pixels;
    return pixels;
}

CellMask RegionGraph::filledMask(int number, int scale) const
{
    const ConvexHull& hull = region(number).hull;
    QRect box;
    for (int y = hull.top(); y < hull.bottom(); ++y)
        if (const auto [first, last] = hull.pixelsIn(y); first < last)
            box |= QRect(first, y, last - first, 1);
    box &= QRect(QPoint(), size());

    // The others that can be reached from outside the box are not surrounded. A frame of one pixel stands for outside.
    PixelPlane<char> others(box.width() + 2, box.height() + 2, 1);
    for (int y = 0; y < box.height(); ++y)
        for (int x = 0; x < box.width(); ++x) {
            const int label = _labels.at(box.left() + x, box.top() + y);
            others.at(x + 1, y + 1) = label < 0 || now(label) != number ? 1 : 0;
        }
    const PixelPlane<int> parts = connectedPartsOf(others).labels;
    const auto isFilled = [&](int x, int y) {
        const int part = parts.at(x - box.left() + 1, y - box.top() + 1);
        return part != parts.at(0, 0) && _labels.at(x, y) >= 0;
    };
    CellMask mask({box.topLeft() * scale, box.size() * scale});
    for (int row = scale * box.top(); row < scale * (box.bottom() + 1); ++row)
        for (int x = box.left(); x <= box.right(); ++x)
            if (isFilled(x, row / scale))
                mask.append(row, scale * x, scale * (x + 1));
    return mask;
}

double RegionGraph::solidity(int number) const
{
    const double area = region(number).hull.area();
    return area > 0.0 ? std::min(1.0, filledPixels(number) / area) : 1.0;
}

void RegionGraph::join(int into, int part)
{
    Region& base = _regions[static_cast<std::size_t>(into)];
    Region& gone = _regions[static_cast<std::size_t>(part)];
    base.pixels += gone.pixels;
    base.corePixels += gone.corePixels;
    base.clearEdges += gone.clearEdges;
    base.frameEdges += gone.frameEdges;
    base.deepest = std::max(base.deepest, gone.deepest);
    base.hull = ConvexHull::around(base.hull, gone.hull);
    gone.pixels = 0;
    auto& baseSeams = _seams[static_cast<std::size_t>(into)];
    baseSeams.erase(part);
    for (const auto& [other, seam] : std::exchange(_seams[static_cast<std::size_t>(part)], {})) {
        auto& otherSeams = _seams[static_cast<std::size_t>(other)];
        otherSeams.erase(part);
        if (other == into)
            continue;
        for (Seam* sum : {&baseSeams[other], &otherSeams[into]}) {
            sum->edges += seam.edges;
            sum->inked += seam.inked;
        }
    }
    _joinedTo[static_cast<std::size_t>(part)] = into;
    auto& points = _pointsOf[static_cast<std::size_t>(into)];
    for (const int point : std::exchange(_pointsOf[static_cast<std::size_t>(part)], {}))
        points.push_back(point);
    std::ranges::sort(points);
    points.erase(std::unique(points.begin(), points.end()), points.end());
}

int RegionGraph::now(int number) const
{
    while (_joinedTo[static_cast<std::size_t>(number)] != number)
        number = _joinedTo[static_cast<std::size_t>(number)];
    return number;
}

PixelPlane<int> RegionGraph::labels() const
{
    PixelPlane<int> labels = _labels;
    for (int i = 0; i < labels.count(); ++i)
        if (labels[i] >= 0)
            labels[i] = now(labels[i]);
    return labels;
}
