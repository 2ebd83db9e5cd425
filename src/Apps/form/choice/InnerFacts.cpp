// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only later shapes can be siblings of a shape or lie inside it: earlier shapes are decided already or lie beneath it.
#include "form/choice/InnerFacts.h"

#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/choice/Faces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace {

constexpr double kInside = 0.85; // of an area
constexpr double kAlike = 4.0;   // ratio of two siblings' areas
// The area of a smaller copy, as a part of the original's: neither tiny nor almost the same.
constexpr double kSmallestCopy = 0.16;
constexpr double kLargestCopy = 0.95;
constexpr double kCopyVaries = 0.06; // of the larger one's side
constexpr double kRound = 0.9;       // roundness; a square has 0.89
// A shape that divides a part leaves at least this share of the part on either side.
constexpr double kSide = 0.1;

constexpr std::array<std::array<int, 2>, 8> kAround{
    {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};

double heldArea(std::span<const ShapeFacts* const> held)
{
    double area = 0.0;
    for (const ShapeFacts* const inner : held)
        area += inner->area;
    return area;
}

} // namespace

// Each shape is compared with all later ones, so most are refused by their boxes, whose common cells are no fewer.
bool liesInside(const ShapeFacts& shape, const CellMask& region)
{
    const QRect common = shape.mask.box() & region.box();
    const auto isEnough = [&](int cells) { return static_cast<double>(cells) / shape.area >= kInside; };
    return shape.area > 0 && isEnough(common.width() * common.height()) && isEnough(shape.mask.overlap(region));
}

bool isConcentric(const ShapeFacts& shape, const CellMask& region, double share)
{
    if (share < kSmallestCopy || share > kLargestCopy)
        return false;
    const QRect inner = shape.mask.box();
    const QRect outer = region.box();
    const double scale = std::sqrt(share);
    const double tolerance = kCopyVaries * std::max(outer.width(), outer.height());
    const auto near = [&](double a, double b) { return std::abs(a - b) < tolerance; };
    return near(inner.width(), scale * outer.width()) && near(inner.height(), scale * outer.height()) &&
           near(inner.left() + inner.right(), outer.left() + outer.right()) &&
           near(inner.top() + inner.bottom(), outer.top() + outer.bottom());
}

bool divides(const ShapeFacts& shape, const CellMask& region)
{
    PixelPlane<char> left = region.planeOf(region.box());
    shape.mask.forEachRun([&](int y, int from, int to) {
        if (y < region.box().top() || y > region.box().bottom())
            return;
        const std::span<char> row = left.row(y - region.box().top());
        for (int x = std::max(from, region.box().left()); x < std::min(to, region.box().right() + 1); ++x)
            row[static_cast<std::size_t>(x - region.box().left())] = 0;
    });
    const double least = kSide * region.area();
    return std::ranges::count_if(connectedPartsOf(left).pixels, [&](int pixels) { return pixels >= least; }) > 1;
}

InnerShape InnerFacts::of(int shape, const Part& base, const Surroundings& around, int siblings) const
{
    const ShapeFacts& inner = facts(shape);
    const ShapeFacts& body = facts(largestPiece(base));
    const double share = static_cast<double>(inner.area) / base.region.area();
    const double follows = following(inner, base);
    const std::vector<const ShapeFacts*> held = _later.inside(shape);
    return {inner,
            body,
            around.ground != Surroundings::kNone ? facts(around.ground) : body,
            share,
            follows,
            around.outlined,
            isConcentric(inner, base.region, share),
            heldArea(held) / inner.area,
            siblings,
            static_cast<double>(_grid.width) * _grid.height,
            base.role == ObjectRole::SLAB,
            holdsEyes(inner, held),
            isOpenMouth(shape, base),
            !body.cut && body.roundness > kRound && follows > 0.0 && divides(inner, base.region)};
}

std::vector<int> InnerFacts::siblings(int shape, const Part& base) const
{
    const ShapeFacts& first = facts(shape);
    std::vector<int> siblings{shape};
    if (isOpenMouth(shape, base))
        return siblings;
    for (const int other : _later.ofPaint(shape)) {
        const ShapeFacts& sibling = facts(other);
        const bool alike = sibling.opacity == first.opacity && sibling.area < kAlike * first.area &&
                           first.area < kAlike * sibling.area;
        if (alike && liesInside(sibling, base.region) && !isOpenMouth(other, base))
            siblings.push_back(other);
    }
    return siblings;
}

bool InnerFacts::isOpenMouth(int shape, const Part& base) const
{
    const int face = largestPiece(base);
    return isPlacedAsMouth(facts(shape), facts(face)) && ::isOpenMouth(facts(shape), facts(face), _later.inside(face));
}

int InnerFacts::largestPiece(const Part& part) const
{
    return *std::ranges::max_element(part.body, {}, [&](int shape) { return facts(shape).area; });
}

// A part goes on beyond the border of the picture, a board ends there.
double InnerFacts::following(const ShapeFacts& shape, const Part& base) const
{
    const CellMask& region = base.region;
    const bool isBoard = base.role == ObjectRole::SLAB;
    const int near = std::max(2, _grid.longSide() / 110);
    const QRect picture = _grid.bounds();
    const auto leavesRegion = [&](int x, int y) { return !region.at(x, y) && (isBoard || picture.contains(x, y)); };
    double along = 0.0;
    shape.mask.forEachAtOutline([&](int x, int y) {
        const bool follows = std::ranges::any_of(
            kAround, [&](const auto& step) { return leavesRegion(x + near * step[0], y + near * step[1]); });
        along += follows ? 1.0 : 0.0;
    });
    return along / std::max(1.0, shape.outline);
}
