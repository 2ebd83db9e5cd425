// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The areas are found on the grid. Each loop of the path goes to the area that most of its points lie next to, so a
// hole stays in its area. Loops that lie inside each other stay together.
#include "form/choice/Islands.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/raster/ShapePainter.h"

#include <QtMath>

#include <algorithm>
#include <map>
#include <numeric>

namespace {

constexpr std::size_t kMostLoops = 48;
constexpr std::size_t kMostAreas = 16;
constexpr int kNone = kNoLabel;

// The loops of a path, with their curves.
std::vector<QPainterPath> loopsOf(const QPainterPath& path)
{
    std::vector<QPainterPath> loops;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo() || loops.empty()) {
            loops.emplace_back(element);
        } else if (element.isLineTo()) {
            loops.back().lineTo(element);
        } else if (element.type == QPainterPath::CurveToElement) {
            loops.back().cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return loops;
}

// The number of connected areas of a mask.
std::size_t areasOf(const CellMask& mask)
{
    std::vector<PixelRun> runs;
    mask.forEachRun([&](int y, int from, int to) { runs.push_back({y, from, to}); });
    return connectedPartsOf(runs).pixels.size();
}

// The connected areas of a mask, numbered.
class Areas
{
public:
    explicit Areas(const CellMask& mask) : _box(mask.box()), _parts(connectedPartsOf(mask.planeOf(mask.box()))) {}

    /// The area that most of a loop's points lie next to.
    int of(const QPainterPath& loop, const QTransform& toCells) const
    {
        std::map<int, int> votes;
        for (const QPolygonF& polygon : loop.toSubpathPolygons(toCells))
            for (const QPointF& point : polygon)
                for (int i = 0; i < 9; ++i)
                    if (const int found = at(qFloor(point.x()) - 1 + i % 3, qFloor(point.y()) - 1 + i / 3);
                        found != kNone)
                        ++votes[found];
        if (votes.empty())
            return kNone;
        return std::ranges::max_element(votes, {}, [](const auto& vote) { return vote.second; })->first;
    }

private:
    int at(int x, int y) const
    {
        const int column = x - _box.left();
        const int row = y - _box.top();
        return _parts.labels.contains(column, row) ? _parts.labels.at(column, row) : kNone;
    }

    QRect _box;
    ConnectedParts _parts;
};

// Whether the first point of one loop lies inside the other loop, and not only on it. A loop of one point has no
// outline.
bool belongTogether(const QPolygonF& one, const QPolygonF& other)
{
    if (one.isEmpty() || other.isEmpty() || !one.boundingRect().intersects(other.boundingRect()))
        return false;
    return one.containsPoint(other.first(), Qt::WindingFill) || other.containsPoint(one.first(), Qt::WindingFill);
}

// The island of every loop. Loops of one area form an island, and so do loops that lie inside each other: a line
// thinner than a cell may be several areas on the grid, but its outer and inner loop must stay one island.
std::vector<std::size_t> islandsOf(const std::vector<QPainterPath>& loops, const Areas& areas, const Grid& grid)
{
    std::vector<std::size_t> islands(loops.size());
    std::iota(islands.begin(), islands.end(), std::size_t{0});
    std::vector<int> area;
    std::vector<QPolygonF> outlines;
    for (const QPainterPath& loop : loops) {
        area.push_back(areas.of(loop, grid.toCells()));
        outlines.push_back(loop.toFillPolygon());
    }
    for (std::size_t i = 0; i < loops.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (islands[i] != islands[j] && (area[i] == area[j] || area[i] == kNone || area[j] == kNone ||
                                             belongTogether(outlines[i], outlines[j])))
                std::ranges::replace(islands, islands[i], islands[j]);
    return islands;
}

// Adds a shape, or its islands, with their masks where they are known.
void addIslands(std::vector<DIO_Shape>& shapes, std::vector<std::optional<CellMask>>& masks, const DIO_Shape& shape,
                ShapePainter& painter)
{
    const std::vector<QPainterPath> loops = loopsOf(shape.path);
    const bool may = loops.size() > 1 && loops.size() <= kMostLoops && shape.picture.isNull();
    std::optional<CellMask> mask;
    if (may)
        mask = painter.mask(std::span(&shape, 1));
    const std::size_t count = mask ? areasOf(*mask) : 0;
    if (count < 2 || count > kMostAreas) {
        shapes.push_back(shape);
        masks.push_back(std::move(mask));
        return;
    }
    const std::vector<std::size_t> numbers = islandsOf(loops, Areas(*mask), painter.grid());
    std::map<std::size_t, QPainterPath> islands;
    for (std::size_t i = 0; i < loops.size(); ++i) {
        QPainterPath& island = islands[numbers[i]];
        island.setFillRule(shape.path.fillRule());
        island.addPath(loops[i]);
    }
    for (const auto& [number, path] : islands) {
        DIO_Shape island = shape;
        island.path = path;
        shapes.push_back(std::move(island));
        masks.emplace_back();
    }
}

} // namespace

SplitDrawing splitIntoIslands(const DIO_Drawing& drawing, const Grid& grid)
{
    SplitDrawing split{drawing, {}};
    ShapePainter painter(grid);
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        split.drawing.layers[i].shapes.clear();
        for (const DIO_Shape& shape : drawing.layers[i].shapes)
            addIslands(split.drawing.layers[i].shapes, split.masks, shape, painter);
    }
    return split;
}
