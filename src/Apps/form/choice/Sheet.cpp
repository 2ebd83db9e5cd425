// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Sheet.h"

#include <algorithm>

namespace {

constexpr double kFullBox = 0.97;   // a rectangle's share of its box
constexpr double kLargeBox = 0.5;   // of the box of all shapes
constexpr double kInside = 0.85;    // of a shape's area
constexpr double kMostInside = 0.8; // of the area of the other shapes
constexpr double kLeastHeld = 0.03; // of the rectangle's area: with less on it, it is a shape like others
constexpr double kWhite = 92.0;     // lightness
constexpr double kColourless = 6.0; // chroma
constexpr double kOutlined = 0.3;   // of the outline
constexpr double kLine = 6.0;       // elongation
constexpr int kCorner = 2;          // cells: a corner that is not covered this far inside the box is rounded

bool isRectangle(const ShapeFacts& shape)
{
    const QRect& box = shape.mask.box();
    return shape.opacity >= kSolid && shape.area > kFullBox * box.width() * box.height();
}

bool hasRoundCorners(const ShapeFacts& rectangle)
{
    const QRect inside = rectangle.mask.box().adjusted(kCorner, kCorner, -kCorner, -kCorner);
    const auto covers = [&](const QPoint& cell) { return rectangle.mask.at(cell.x(), cell.y()); };
    return !covers(inside.topLeft()) && !covers(inside.topRight()) && !covers(inside.bottomLeft()) &&
           !covers(inside.bottomRight());
}

// Whether a line of any colour lies around the rectangle.
bool isFrame(const ShapeFacts& line, const ShapeFacts& rectangle)
{
    return line.elongation() > kLine && line.mask.box().contains(rectangle.mask.box());
}

// Whether a line runs along the rectangle's outline.
bool isOutlined(const ShapeFacts& rectangle, const std::vector<ShapeFacts>& facts, const Ink& ink)
{
    return std::ranges::any_of(facts, [&](const ShapeFacts& shape) {
        if (!ink.isInk(shape))
            return false;
        double along = 0.0;
        rectangle.mask.forEachAtOutline([&](int x, int y) { along += shape.mask.at(x, y) ? 1.0 : 0.0; });
        return along > kOutlined * rectangle.outline;
    });
}

} // namespace

std::optional<Sheet> sheetBeneath(const std::vector<ShapeFacts>& facts, const Ink& ink)
{
    // Lines may lie beneath what they surround.
    const auto first = std::ranges::find_if(
        facts, [&](const ShapeFacts& shape) { return shape.area > 0 && shape.opacity >= kSolid && !ink.isInk(shape); });
    if (first == facts.end() || !isRectangle(*first))
        return {};
    QRect drawn = first->mask.box();
    double area = 0.0;
    double inside = 0.0;
    for (const ShapeFacts& shape : facts) {
        const bool isShadow = &shape < &*first && shape.opacity < kSolid;
        if (shape.area == 0 || &shape == &*first || isShadow)
            continue;
        drawn |= shape.mask.box();
        const double covered = shape.mask.areaInside(first->mask.box());
        // Half of a line along the rectangle's outline lies outside.
        const bool isLine = ink.isInk(shape) || isFrame(shape, *first);
        area += isLine ? covered : shape.area;
        inside += isLine || covered >= kInside * shape.area ? covered : 0.0;
    }
    const bool isLarge = first->area > kLargeBox * drawn.width() * drawn.height();
    if (!isLarge || inside < kMostInside * area || inside < kLeastHeld * first->area)
        return {};
    const bool isWhite = first->plain && first->colour.lightness > kWhite && first->colour.chroma() < kColourless;
    const bool isPaper = isWhite && !hasRoundCorners(*first) && !isOutlined(*first, facts, ink);
    return Sheet{isPaper ? Sheet::Kind::PAPER : Sheet::Kind::BOARD, static_cast<int>(first - facts.begin())};
}
