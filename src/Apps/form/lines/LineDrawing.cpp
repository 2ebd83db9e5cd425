// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/lines/LineDrawing.h"

#include "QuarvelDrawingIO/DIO_Palette.h"
#include "form/choice/Ink.h"
#include "form/lines/ClosedAreas.h"

#include <algorithm>

namespace {

constexpr double kDark = 40.0;   // lightness
constexpr double kLight = 75.0;  // lightness of paper
constexpr double kPicture = 0.9; // share of the picture that a backdrop covers
constexpr double kLines = 0.6;   // share of the drawn area that lines have, at the least
// The enclosed area as a multiple of the drawn area, at the least: a thick ring is a ring.
constexpr double kEnclosed = 1.5;
// An area whose largest disc has a radius of this many widths of the lines is a body, however long the other lines are;
// a ring of that radius encloses kEnclosed times what is drawn.
constexpr double kBody = 2.0 * kEnclosed;

bool isPaper(const ShapeFacts& shape, const Grid& grid)
{
    return shape.area > kPicture * grid.width * grid.height && shape.plain && shape.opacity >= 1.0 &&
           shape.colour.lightness > kLight;
}

// Where the lines of a drawing begin: behind the paper, if the drawing has any.
std::size_t firstLine(const std::vector<ShapeFacts>& facts, const Grid& grid)
{
    return !facts.empty() && isPaper(facts.front(), grid) ? 1 : 0;
}

// Whether the shapes are dark, and most of them lines.
bool areLines(std::span<const ShapeFacts> shapes, const Ink& ink)
{
    double lines = 0.0;
    double all = 0.0;
    for (const ShapeFacts& shape : shapes) {
        if (shape.area == 0)
            continue;
        if (shape.colour.lightness >= kDark || shape.opacity < kSolid)
            return false;
        all += shape.area;
        lines += ink.isInk(shape) ? shape.area : 0;
    }
    return all > 0.0 && lines >= kLines * all;
}

// Whether areas are bodies and not only what lies between lines.
bool areBodies(const std::vector<ShapeFacts>& areas, std::span<const ShapeFacts> lines)
{
    double drawn = 0.0;
    double widths = 0.0;
    for (const ShapeFacts& line : lines) {
        drawn += line.area;
        widths += line.area * line.width;
    }
    CellMask enclosed;
    for (const ShapeFacts& area : areas)
        enclosed.unite(area.mask);
    const auto isBody = [&](const ShapeFacts& area) { return area.inscribed * drawn >= kBody * widths; };
    return enclosed.area() >= kEnclosed * drawn || std::ranges::any_of(areas, isBody);
}

// The layer and the place in it where the shapes behind the first ones begin.
std::pair<DIO_Layer*, std::size_t> placeOf(std::size_t shape, DIO_Drawing& drawing)
{
    for (DIO_Layer& layer : drawing.layers) {
        if (shape <= layer.shapes.size())
            return {&layer, shape};
        shape -= layer.shapes.size();
    }
    return {&drawing.layers.back(), drawing.layers.back().shapes.size()};
}

// A drawing of the fills alone.
DIO_Drawing fillsOf(const std::vector<QPainterPath>& areas, const DIO_Drawing& drawing, int paint)
{
    DIO_Drawing fills;
    fills.viewBox = drawing.viewBox;
    fills.palette = drawing.palette;
    fills.layers.resize(1);
    for (const QPainterPath& area : areas)
        fills.layers.front().shapes.push_back({area, std::nullopt, 1.0, paint, {}});
    return fills;
}

} // namespace

void fillBetweenLines(DIO_Drawing& drawing, std::vector<ShapeFacts>& facts, const Grid& grid)
{
    const std::size_t first = firstLine(facts, grid);
    const std::span<const ShapeFacts> lines = std::span(facts).subspan(first);
    if (!areLines(lines, Ink(facts, grid)))
        return;
    const std::vector<const DIO_Shape*> shapes = shapesInOrder(drawing);
    const std::vector<QPainterPath> areas = closedAreas(std::span(shapes).subspan(first), drawing.viewBox);

    DIO_Paint paper = DIO_solidPaint(Qt::white);
    if (first > 0)
        paper = drawing.palette[static_cast<std::size_t>(facts.front().paint)];
    const int paint = DIO_paintIndex(drawing.palette, paper);
    const DIO_Drawing fills = fillsOf(areas, drawing, paint);
    std::vector<ShapeFacts> found = collectFacts(fills, grid);
    if (!areBodies(found, lines))
        return;
    for (ShapeFacts& fill : found)
        fill.closedArea = true;
    const auto [layer, place] = placeOf(first, drawing);
    const std::vector<DIO_Shape>& added = fills.layers.front().shapes;
    layer->shapes.insert(layer->shapes.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
    facts.insert(facts.begin() + static_cast<std::ptrdiff_t>(first), found.begin(), found.end());
}
