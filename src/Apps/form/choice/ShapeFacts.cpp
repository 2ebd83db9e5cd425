// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Measuring distances takes time proportional to the cells of an area's bounding box, so the sum of the boxes limits
// the grid's resolution.
#include "form/choice/ShapeFacts.h"

#include "form/raster/ShapePainter.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr int kFinest = 320;
constexpr int kCoarsest = 128;
constexpr double kLine = 6.0;           // elongation
constexpr double kShade = 5.0;          // lightness
constexpr double kWidestOutline = 0.05; // of the picture's longer side
constexpr double kAlongOutline = 0.9;   // of the outline
constexpr std::size_t kIslandsBefore = 16;
// Measured in about a third of a second.
constexpr double kCellsInAll = 8e6;

ShapeFacts factsOf(const DIO_Shape& shape, CellMask mask, const DIO_Paint& paint, const Grid& grid)
{
    ShapeFacts facts;
    facts.mask = std::move(mask);
    const OutlineDistance measured = measureOutlineDistance(facts.mask, grid.bounds());
    measureShape(measured, facts);
    facts.outline = measured.outline;
    facts.colour = SeenColour::of(paint.colour);
    facts.paint = shape.paint;
    facts.plain = paint.kind == DIO_Paint::Kind::SOLID && shape.picture.isNull();
    facts.opacity = shape.opacity;
    return facts;
}

// Whether a shape is a line along the outline of another one, in a darker shade of its colour.
bool outlines(const ShapeFacts& line, const ShapeFacts& fill, const Grid& grid)
{
    const bool isLine = line.plain && line.opacity >= kSolid && line.elongation() > kLine &&
                        line.width < kWidestOutline * grid.longSide();
    const bool isDarker = line.colour.lightness < fill.colour.lightness - kShade && isSameHue(line.colour, fill.colour);
    if (!isLine || !isDarker || fill.area == 0 || !line.mask.box().contains(fill.mask.box()))
        return false;
    int along = 0;
    fill.mask.forEachAtOutline([&](int x, int y) { along += line.mask.at(x, y) ? 1 : 0; });
    return along > kAlongOutline * fill.outline;
}

// The outline of a shape follows it in the order of painting, that of several islands after all of them.
void findOutlines(std::vector<ShapeFacts>& facts, const Grid& grid)
{
    for (std::size_t i = 1; i < facts.size(); ++i)
        for (std::size_t back = 1; back <= std::min(i, kIslandsBefore) && !facts[i].isOutline; ++back)
            facts[i].isOutline = outlines(facts[i], facts[i - back], grid);
}

} // namespace

void measureShape(const OutlineDistance& measured, ShapeFacts& facts)
{
    facts.area = measured.area;
    facts.width = 4.0 * measured.mean;
    facts.inscribed = measured.largest;
    facts.roundness = measured.area > 0 ? measured.largest / std::sqrt(measured.area / std::numbers::pi) : 0.0;
    facts.cut = measured.cut;
    facts.distances = measured;
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

std::vector<ShapeFacts> collectFacts(const DIO_Drawing& drawing, const Grid& grid,
                                     std::vector<std::optional<CellMask>> masks)
{
    std::vector<ShapeFacts> facts;
    ShapePainter painter(grid);
    const std::vector<const DIO_Shape*> shapes = shapesInOrder(drawing);
    masks.resize(shapes.size());
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const DIO_Shape& shape = *shapes[i];
        CellMask mask = masks[i] ? *std::move(masks[i]) : painter.mask(std::span(&shape, 1));
        facts.push_back(factsOf(shape, std::move(mask), drawing.palette[static_cast<std::size_t>(shape.paint)], grid));
    }
    findOutlines(facts, grid);
    return facts;
}
