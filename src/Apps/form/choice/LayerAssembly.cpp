// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Clipping a worn shape to a body of several pieces, grown by the reach, does not need the union of their paths: one
// copy of the shape for each piece, clipped to the piece, and one clipped to the stroke along its outline show the
// same.
#include "form/choice/LayerAssembly.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"
#include "form/choice/ObjectShares.h"
#include "form/choice/Outlines.h"
#include "form/choice/PartExtent.h"
#include "form/choice/Seams.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace {

double cross(const QPointF& a, const QPointF& b)
{
    return a.x() * b.y() - a.y() * b.x();
}

// Twice the signed area of a path's loops; the sign tells the direction in which they turn. That of a curve is the
// integral of Green's theorem.
double turning(const QPainterPath& path)
{
    double area = 0.0;
    QPointF start;
    QPointF last;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            area += cross(last, start);
            start = element;
        } else if (element.isLineTo()) {
            area += cross(last, element);
        } else {
            const QPointF one = element;
            const QPointF two = path.elementAt(i + 1);
            const QPointF end = path.elementAt(i + 2);
            area += 0.6 * (cross(last, one) + cross(two, end)) + 0.3 * (cross(last, two) + cross(one, two)) +
                    0.3 * cross(one, end) + 0.1 * cross(last, end);
            i += 2;
        }
        last = path.elementAt(i);
    }
    return area + cross(last, start);
}

bool isSingleLoop(const QPainterPath& outline)
{
    int loops = 0;
    for (int i = 0; i < outline.elementCount() && loops < 2; ++i)
        loops += outline.elementAt(i).isMoveTo() ? 1 : 0;
    return loops == 1;
}

// An outline of a single loop together with the stroke along it.
QPainterPath grownLoop(const QPainterPath& outline, const QPainterPath& stroke)
{
    QPainterPath grown = stroke;
    grown.setFillRule(Qt::WindingFill);
    grown.addPath(turning(outline) * turning(stroke) < 0.0 ? outline.toReversed() : outline);
    return grown;
}

constexpr int kElementsToUnite = 400;
// Of all clips together: three times what the most detailed real drawings need. What thousands of shapes wear on each
// other would take minutes to paint.
constexpr int kMostClipElements = 2'000'000;
constexpr double kSeam = 1.5; // cells: wider than a pixel of a small picture

class LayerAssembly
{
public:
    LayerAssembly(const DIO_Drawing& drawing, const std::vector<ShapeFacts>& facts, const FoundParts& found,
                  const Grid& grid)
        : _drawing(drawing), _facts(facts), _found(found), _grid(grid), _shapes(shapesInOrder(drawing))
    {}

    ChosenObjects assemble()
    {
        countVisible();
        findUppermostWearers();
        ChosenObjects chosen;
        chosen.drawing = _drawing;
        chosen.drawing.layers.clear();
        for (const int index : _found.order) {
            const Part& part = _found.parts[static_cast<std::size_t>(index)];
            chosen.objects.push_back(describe(index, part));
            chosen.drawing.layers.push_back({chosen.objects.back().name, false, shapesOf(part)});
        }
        return chosen;
    }

private:
    const DIO_Shape& shape(int index) const { return *_shapes[static_cast<std::size_t>(index)]; }

    void countVisible()
    {
        _found.map.forEachShown([&](int count, const ShownCell& cell) {
            _visible[cell.part][_facts[static_cast<std::size_t>(cell.shape)].paint] += count;
        });
    }

    void findUppermostWearers()
    {
        for (const int index : _found.order) {
            const Part& part = _found.parts[static_cast<std::size_t>(index)];
            for (const WornShape& worn : part.worn)
                _uppermost[worn.shape] = &part;
        }
    }

    // The part's body and worn shapes in the order of painting.
    std::vector<DIO_Shape> shapesOf(const Part& part)
    {
        std::multimap<int, DIO_Shape> ordered;
        for (const int body : part.body)
            ordered.emplace(body, shape(body));
        for (const WornShape& worn : part.worn)
            if (worn.whole)
                ordered.emplace(worn.shape, shape(worn.shape));
            else
                for (DIO_Shape& copy : clipped(worn, part))
                    ordered.emplace(worn.shape, std::move(copy));
        std::vector<DIO_Shape> shapes = part.role == ObjectRole::SLAB ? seamsOf(part) : std::vector<DIO_Shape>();
        for (auto& [index, placed] : ordered)
            shapes.push_back(std::move(placed));
        return shapes;
    }

    std::vector<DIO_Shape> seamsOf(const Part& part) const
    {
        std::vector<DIO_Shape> areas;
        for (const int body : part.body)
            areas.push_back(shape(body));
        return seamsBeneath(areas, kSeam * _grid.frame.width() / _grid.width);
    }

    std::vector<DIO_Shape> clipped(const WornShape& worn, const Part& part)
    {
        const double unit = _grid.frame.width() / _grid.width;
        const double reach = worn.reach * unit;
        const DIO_Shape& original = shape(worn.shape);
        // Painted whole, one copy of a shape shows all of it, if nothing that wears it lies above.
        if (_clipElements > kMostClipElements)
            return _uppermost.at(worn.shape) == &part ? std::vector{original} : std::vector<DIO_Shape>();
        const QRectF bounds = original.path.boundingRect();
        std::vector<DIO_Shape> copies;
        QPainterPath together;
        for (const int piece : part.body) {
            const DIO_Shape& body = shape(piece);
            if (!body.path.boundingRect().adjusted(-reach, -reach, reach, reach).intersects(bounds))
                continue;
            if (original.opacity < 1.0)
                addTo(together, outlineOf(body), reach);
            else
                for (const QPainterPath& area : grown(piece, worn.reach))
                    copies.push_back(held(original, area));
        }
        // A translucent shape is painted once: a second copy would be visible.
        if (!together.isEmpty())
            copies.push_back(held(original, together));
        return copies;
    }

    // Uniting paths takes time quadratic in their elements, so large ones are only added, although loops that turn the
    // other way may then be lost.
    static void addTo(QPainterPath& together, const QPainterPath& outline, double reach)
    {
        const QPainterPath stroke = strokeAlong(outline, reach);
        if (together.elementCount() + outline.elementCount() + stroke.elementCount() < kElementsToUnite)
            together = together.united(outline.united(stroke));
        else {
            together.setFillRule(Qt::WindingFill);
            together.addPath(grownLoop(outline, stroke));
        }
    }

    // The areas that make up a piece of a body, grown by a reach in cells. Many lines may lie on one piece.
    const std::vector<QPainterPath>& grown(int piece, double reach)
    {
        const auto [known, isNew] = _grown.try_emplace({piece, reach});
        if (isNew) {
            const double unit = _grid.frame.width() / _grid.width;
            known->second =
                grownAreas(outlineOf(shape(piece)), _facts[static_cast<std::size_t>(piece)].mask, reach * unit);
        }
        return known->second;
    }

    // A single loop and the stroke along it make one area if both turn the same way. A loop that crosses itself turns
    // both ways, and the part that turns against the stroke cuts a hole into it; comparing cells on the grid detects
    // this.
    std::vector<QPainterPath> grownAreas(const QPainterPath& outline, const CellMask& covered, double reach) const
    {
        const QPainterPath stroke = strokeAlong(outline, reach);
        if (isSingleLoop(outline)) {
            const QPainterPath area = grownLoop(outline, stroke);
            if (covers(area, covered))
                return {area};
        }
        return {outline, stroke};
    }

    bool covers(const QPainterPath& path, const CellMask& covered) const
    {
        const DIO_Shape shape{path, std::nullopt, 1.0, 0, {}};
        const CellMask mask = CellMask::of(std::span(&shape, 1), _grid);
        return mask.overlap(covered) == covered.area();
    }

    DIO_Shape held(const DIO_Shape& original, const QPainterPath& outline)
    {
        DIO_Shape copy = original;
        copy.clip = original.clip ? DIO_intersected(*original.clip, outline).value_or(*original.clip) : outline;
        _clipElements += copy.clip->elementCount();
        return copy;
    }

    ChosenObject describe(int index, const Part& part)
    {
        ChosenObject object;
        object.reason = part.reason;
        object.role = part.role;
        int cells = 0;
        for (const auto& [paint, area] : _visible[index])
            cells += area;
        nameColours(_visible[index], _drawing, object);
        object.share = static_cast<double>(cells) / (static_cast<double>(_grid.width) * _grid.height);
        object.name = nameFor(part);
        object.extent = extentOf(part, _facts, _grid);
        return object;
    }

    QString nameFor(const Part& part)
    {
        const QString word = colourWord(_facts[static_cast<std::size_t>(part.body.front())].colour) +
                             (part.ink ? QStringLiteral(" line") : QString());
        const int count = ++_names[word];
        return count == 1 ? word : word + u' ' + QString::number(count);
    }

    const DIO_Drawing& _drawing;
    const std::vector<ShapeFacts>& _facts;
    const FoundParts& _found;
    const Grid& _grid;
    std::vector<const DIO_Shape*> _shapes;
    std::map<int, std::map<int, int>> _visible;                         // the number of cells, by part and paint
    std::map<std::pair<int, double>, std::vector<QPainterPath>> _grown; // by piece and reach
    std::map<QString, int> _names;
    std::map<int, const Part*> _uppermost; // by worn shape: the uppermost part that wears it
    std::int64_t _clipElements = 0;        // of all copies that are clipped
};

} // namespace

ChosenObjects assembleLayers(const DIO_Drawing& drawing, const std::vector<ShapeFacts>& facts, const FoundParts& found,
                             const Grid& grid)
{
    return LayerAssembly(drawing, facts, found, grid).assemble();
}
