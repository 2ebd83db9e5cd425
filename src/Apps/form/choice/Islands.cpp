// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The areas are found on the grid. Each loop of the path goes to the area that most of its points lie next to, so a
// hole stays in its area. Loops that lie inside each other stay together.
#include "form/choice/Islands.h"

#include "form/raster/CellMask.h"

#include <QtMath>

#include <algorithm>
#include <map>
#include <numeric>

namespace {

constexpr std::size_t kMostLoops = 48;
constexpr int kMostAreas = 16;
constexpr int kNone = -1;

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

// The connected areas of a mask, numbered.
class Areas
{
public:
    explicit Areas(const CellMask& mask) : _mask(mask), _box(mask.box())
    {
        _numbers.assign(static_cast<std::size_t>(_box.width()) * static_cast<std::size_t>(_box.height()), kNone);
        mask.forEach([&](int x, int y) {
            if (number(x, y) == kNone)
                fill({x, y}, _count++);
        });
    }

    int count() const { return _count; }

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
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y - _box.top()) * static_cast<std::size_t>(_box.width()) +
               static_cast<std::size_t>(x - _box.left());
    }
    int& number(int x, int y) { return _numbers[index(x, y)]; }
    int at(int x, int y) const { return _box.contains(x, y) ? _numbers[index(x, y)] : kNone; }

    void fill(const QPoint& start, int area)
    {
        std::vector<QPoint> open{start};
        number(start.x(), start.y()) = area;
        while (!open.empty()) {
            const QPoint cell = open.back();
            open.pop_back();
            for (int i = 0; i < 9; ++i) {
                const QPoint next(cell.x() - 1 + i % 3, cell.y() - 1 + i / 3);
                if (_mask.at(next.x(), next.y()) && number(next.x(), next.y()) == kNone) {
                    number(next.x(), next.y()) = area;
                    open.push_back(next);
                }
            }
        }
    }

    const CellMask& _mask;
    QRect _box;
    std::vector<int> _numbers;
    int _count = 0;
};

// Whether the first point of one loop lies inside the other loop.
bool belongTogether(const QPainterPath& one, const QPainterPath& other)
{
    if (!one.boundingRect().intersects(other.boundingRect()))
        return false;
    const auto holdsPointOf = [](const QPainterPath& outer, const QPainterPath& inner) {
        const QPolygonF loop = outer.toFillPolygon();
        const QPointF start = inner.elementAt(0);
        return loop.containsPoint(start, Qt::WindingFill);
    };
    return holdsPointOf(one, other) || holdsPointOf(other, one);
}

// The island of every loop. Loops of one area form an island, and so do loops that lie inside each other: a line
// thinner than a cell may be several areas on the grid, but its outer and inner loop must stay one island.
std::vector<std::size_t> islandsOf(const std::vector<QPainterPath>& loops, const Areas& areas, const Grid& grid)
{
    std::vector<std::size_t> islands(loops.size());
    std::iota(islands.begin(), islands.end(), std::size_t{0});
    std::vector<int> area;
    area.reserve(loops.size());
    for (const QPainterPath& loop : loops)
        area.push_back(areas.of(loop, grid.toCells()));
    for (std::size_t i = 0; i < loops.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (islands[i] != islands[j] &&
                (area[i] == area[j] || area[i] == kNone || area[j] == kNone || belongTogether(loops[i], loops[j])))
                std::ranges::replace(islands, islands[i], islands[j]);
    return islands;
}

void addIslands(std::vector<DIO_Shape>& shapes, const DIO_Shape& shape, const Grid& grid)
{
    const std::vector<QPainterPath> loops = loopsOf(shape.path);
    const bool may = loops.size() > 1 && loops.size() <= kMostLoops && shape.picture.isNull();
    const CellMask mask = may ? CellMask::of(std::span(&shape, 1), grid) : CellMask();
    const Areas areas(mask);
    if (areas.count() < 2 || areas.count() > kMostAreas) {
        shapes.push_back(shape);
        return;
    }
    const std::vector<std::size_t> numbers = islandsOf(loops, areas, grid);
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
    }
}

} // namespace

DIO_Drawing splitIntoIslands(const DIO_Drawing& drawing, const Grid& grid)
{
    DIO_Drawing split = drawing;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        split.layers[i].shapes.clear();
        for (const DIO_Shape& shape : drawing.layers[i].shapes)
            addIslands(split.layers[i].shapes, shape, grid);
    }
    return split;
}
