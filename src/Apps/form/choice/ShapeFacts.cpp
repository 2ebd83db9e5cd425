// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Measuring distances takes time proportional to the cells of an area's bounding box, so the sum of the boxes limits
// the grid's resolution.
#include "form/choice/ShapeFacts.h"

#include <cmath>
#include <numbers>

namespace {

constexpr int kFinest = 320;
constexpr int kCoarsest = 128;
// Measured in about a third of a second.
constexpr double kCellsInAll = 8e6;

ShapeFacts factsOf(const DIO_Shape& shape, const DIO_Paint& paint, const Grid& grid)
{
    ShapeFacts facts;
    facts.mask = CellMask::of(std::span(&shape, 1), grid);
    const OutlineDistance measured = measureOutlineDistance(facts.mask, grid.bounds());
    measureShape(measured, facts);
    facts.mask.forEachAtOutline([&](int, int) { facts.outline += 1.0; });
    facts.colour = SeenColour::of(paint.colour);
    facts.paint = shape.paint;
    facts.plain = paint.kind == DIO_Paint::Kind::SOLID && shape.picture.isNull();
    facts.opacity = shape.opacity;
    return facts;
}

} // namespace

void measureShape(const OutlineDistance& measured, ShapeFacts& facts)
{
    facts.area = measured.area;
    facts.width = 4.0 * measured.mean;
    facts.inscribed = measured.largest;
    facts.roundness = measured.area > 0 ? measured.largest / std::sqrt(measured.area / std::numbers::pi) : 0.0;
    facts.cut = measured.cut;
}

std::vector<const DIO_Shape*> shapesInOrder(const DIO_Drawing& drawing)
{
    std::vector<const DIO_Shape*> shapes;
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes)
            shapes.push_back(&shape);
    return shapes;
}

Grid gridFor(const DIO_Drawing& drawing)
{
    const double side = std::max(drawing.viewBox.width(), drawing.viewBox.height());
    double boxes = 0.0; // in units of the square of the longer side
    for (const DIO_Shape* shape : shapesInOrder(drawing)) {
        const QRectF box = shape->path.boundingRect() & drawing.viewBox;
        boxes += box.width() * box.height() / (side * side);
    }
    const double cells = std::sqrt(kCellsInAll / std::max(boxes, 1e-6));
    return Grid::over(drawing.viewBox, static_cast<int>(std::clamp<double>(cells, kCoarsest, kFinest)));
}

std::vector<ShapeFacts> collectFacts(const DIO_Drawing& drawing, const Grid& grid)
{
    std::vector<ShapeFacts> facts;
    for (const DIO_Shape* shape : shapesInOrder(drawing))
        facts.push_back(factsOf(*shape, drawing.palette[static_cast<std::size_t>(shape->paint)], grid));
    return facts;
}
