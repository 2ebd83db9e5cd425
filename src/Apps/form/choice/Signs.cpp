// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Signs.h"

#include "form/choice/InnerFacts.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <span>

namespace {

constexpr double kRound = 0.93;     // roundness of discs; a square has 0.89
constexpr double kOval = 0.06;      // of the disc's width: the most that its height differs; ovals are bodies
constexpr double kLargest = 0.6;    // of the drawing's width and height
constexpr double kMiddle = 0.02;    // of the disc's diameter: what comes as near to its middle lies across it
constexpr double kOff = 0.1;        // of the disc's diameter: how far a letter's middle lies from the disc's
constexpr double kHigh = 0.35;      // of the disc's diameter: a letter's height, at the least
constexpr double kRim = 0.88;       // of the disc's radius: what reaches farther may go on around a ball
constexpr double kLeast = 0.01;     // of the disc's area
constexpr double kContrast = 25.0;  // in lightness
constexpr double kAlike = 1.3;      // ratio of two features' areas
constexpr double kLevel = 0.25;     // how far one feature lies above the other, of their distance
constexpr double kApart = 0.15;     // of the disc's diameter
constexpr double kFeature = 0.003;  // of the disc's area
constexpr double kAboveChin = 0.6;  // of the disc's height
constexpr double kInRim = 0.97;     // of the disc's radius: a ring around the disc covers its cells there
constexpr double kHalfway = 0.55;   // of the disc's radius: a bar leaves cells there bare
constexpr double kMostBar = 0.5;    // of the circle there
constexpr double kMostRound = 0.62; // roundness: rounder shapes in the middle are pupils and noses

bool isBody(const Part& part)
{
    return part.role == ObjectRole::BODY && !part.ink && !part.isBackdrop && !part.translucent && part.body.size() == 1;
}

// The shapes that lie on a disc, opaque ones.
std::vector<const ShapeFacts*> marksOn(const Part& disc, const FoundParts& found, const std::vector<ShapeFacts>& facts)
{
    std::vector<const ShapeFacts*> marks;
    const auto add = [&](int shape) {
        const ShapeFacts& mark = facts[static_cast<std::size_t>(shape)];
        if (mark.opacity >= kSolid && liesInside(mark, disc.region))
            marks.push_back(&mark);
    };
    for (const WornShape& worn : disc.worn)
        add(worn.shape);
    for (const Part& other : found.parts)
        if (&other != &disc)
            std::ranges::for_each(other.body, add);
    return marks;
}

// Whether a mark ends before the rim of a disc.
bool liesWithinRim(const ShapeFacts& mark, const QRect& disc)
{
    const QPointF middle = QRectF(disc).center();
    const double rim = kRim * disc.width() / 2.0;
    bool within = true;
    mark.mask.forEachAtOutline(
        [&](int x, int y) { within = within && std::hypot(x + 0.5 - middle.x(), y + 0.5 - middle.y()) < rim; });
    return within;
}

// Whether a mark lies across the middle of a disc.
bool liesAcross(const ShapeFacts& mark, const QRect& disc)
{
    const QPointF middle = QRectF(disc).center();
    const double near = kMiddle * disc.width();
    bool across = false;
    mark.mask.forEach(
        [&](int x, int y) { across = across || std::hypot(x + 0.5 - middle.x(), y + 0.5 - middle.y()) <= near; });
    return across && liesWithinRim(mark, disc);
}

// Whether two marks lie side by side as eyes, brows and cheeks do.
bool areFeatures(const ShapeFacts& one, const ShapeFacts& other, const QRect& disc)
{
    const QPointF first = QRectF(one.mask.box()).center();
    const QPointF apart = QRectF(other.mask.box()).center() - first;
    return one.paint == other.paint && one.area < kAlike * other.area && other.area < kAlike * one.area &&
           std::abs(apart.x()) > kApart * disc.width() && std::abs(apart.y()) < kLevel * std::abs(apart.x()) &&
           first.y() - disc.top() < kAboveChin * disc.height();
}

// Whether a round object, such as an eye or a nose, lies on a disc; the dot of a letter has the letter's colour.
bool holdsBall(const ShapeFacts& disc, int letter, std::span<const ShapeFacts* const> objects)
{
    return std::ranges::any_of(objects, [&](const ShapeFacts* ball) {
        return ball->paint != letter && ball->roundness > kRound && ball->area > kLeast * disc.area &&
               liesInside(*ball, disc.mask);
    });
}

bool isFace(std::span<const ShapeFacts* const> marks, const ShapeFacts& disc)
{
    std::vector<const ShapeFacts*> features;
    std::ranges::copy_if(marks, std::back_inserter(features),
                         [&](const ShapeFacts* mark) { return mark->area > kFeature * disc.area; });
    for (auto one = features.begin(); one != features.end(); ++one)
        if (std::any_of(one + 1, features.end(),
                        [&](const ShapeFacts* other) { return areFeatures(**one, *other, disc.mask.box()); }))
            return true;
    return false;
}

// Whether a mark has its middle where the disc has it, and is about as high as letters are.
bool isCentred(const ShapeFacts& mark, const QRect& disc)
{
    const QRect& box = mark.mask.box();
    const QPointF off = QRectF(box).center() - QRectF(disc).center();
    return std::hypot(off.x(), off.y()) < kOff * disc.width() && box.height() > kHigh * disc.height() &&
           liesWithinRim(mark, disc);
}

// The objects that lie on other parts or beside them.
std::vector<const ShapeFacts*> objectsBeside(const Part& disc, const FoundParts& found,
                                             const std::vector<ShapeFacts>& facts)
{
    std::vector<const ShapeFacts*> objects;
    for (const Part& other : found.parts)
        if (&other != &disc && other.role == ObjectRole::BODY)
            objects.push_back(&facts[static_cast<std::size_t>(other.body.front())]);
    return objects;
}

// The share of a circle around a box's middle that a region covers.
double coveredShare(const CellMask& region, const QRect& box, double radius)
{
    constexpr int kSteps = 72;
    const QPointF middle = QRectF(box).center();
    int covered = 0;
    for (int i = 0; i < kSteps; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / kSteps;
        const QPointF place = middle + radius * box.width() / 2.0 * QPointF(std::cos(angle), std::sin(angle));
        covered += region.at(static_cast<int>(place.x()), static_cast<int>(place.y())) ? 1 : 0;
    }
    return static_cast<double>(covered) / kSteps;
}

// Whether a ring lies around a disc, and a bar that belongs to it across the disc's middle.
bool isBarred(const Part& disc, const FoundParts& found, const std::vector<ShapeFacts>& facts)
{
    return std::ranges::any_of(found.parts, [&](const Part& ring) {
        return &ring != &disc && ring.role == ObjectRole::BODY && !ring.translucent &&
               isRingWithBar(ring.region, disc.region.box()) &&
               divides(facts[static_cast<std::size_t>(ring.body.front())], disc.region);
    });
}

} // namespace

bool isLargeDisc(const ShapeFacts& shape, const QRect& drawn)
{
    const QRect& box = shape.mask.box();
    const bool isCircle = std::abs(box.width() - box.height()) < kOval * box.width();
    const bool isLarge = box.width() > kLargest * drawn.width() && box.height() > kLargest * drawn.height();
    return isLarge && isCircle && !shape.cut && shape.roundness > kRound;
}

bool isRingWithBar(const CellMask& mask, const QRect& disc)
{
    const QPoint middle = disc.center();
    return mask.at(middle.x(), middle.y()) && coveredShare(mask, disc, kInRim) == 1.0 &&
           coveredShare(mask, disc, kHalfway) < kMostBar;
}

bool isSign(const ShapeFacts& disc, std::vector<const ShapeFacts*> marks, std::span<const ShapeFacts* const> objects)
{
    const QRect& box = disc.mask.box();
    if (isFace(marks, disc))
        return false;
    std::erase_if(marks, [&](const ShapeFacts* mark) { return mark->area <= kLeast * disc.area; });
    return std::ranges::any_of(marks, [&](const ShapeFacts* mark) {
        const bool differs = !isSameHue(mark->colour, disc.colour) ||
                             std::abs(mark->colour.lightness - disc.colour.lightness) > kContrast;
        const bool isPlaced = liesAcross(*mark, box) || (marks.size() == 1 && isCentred(*mark, box));
        return differs && mark->roundness < kMostRound && isPlaced && !holdsBall(disc, mark->paint, objects);
    });
}

void findSigns(FoundParts& found, const std::vector<ShapeFacts>& facts)
{
    QRect all;
    for (const Part& part : found.parts)
        if (!part.isBackdrop && part.role != ObjectRole::FLAT)
            all |= part.region.box();
    for (Part& part : found.parts) {
        const ShapeFacts& disc = facts[static_cast<std::size_t>(part.body.front())];
        if (!isBody(part) || !isLargeDisc(disc, all))
            continue;
        if (isBarred(part, found, facts)) {
            part.role = ObjectRole::FLAT; // the ring is its rim
            part.reason = QStringLiteral("a disc in a ring with a bar across it");
        } else if (isSign(disc, marksOn(part, found, facts), objectsBeside(part, found, facts))) {
            part.role = ObjectRole::SLAB;
            part.reason = QStringLiteral("a disc with a sign on it");
        }
    }
}
