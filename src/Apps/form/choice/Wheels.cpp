// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Wheels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr double kLight = 55.0; // lightness
constexpr double kGrey = 12.0;  // chroma
constexpr double kDark = 40.0;  // lightness of rings
constexpr double kRound = 0.93;
constexpr double kWidestRing = 1.5; // diameters of the disc
constexpr double kVaries = 0.12;    // of the diameter: how much the sizes and the lowest points of two wheels differ
constexpr double kAtBottom = 0.3;   // of the diameter, above the lowest point of the drawing
constexpr double kApart = 1.1;      // diameters between the middles
constexpr double kCarried = 1.3;    // diameters: the height of the drawing, at the least
constexpr double kLeastHub = 0.25;  // of the diameter
constexpr double kMostHub = 0.65;

bool isLightDisc(const Part& part, const std::vector<ShapeFacts>& facts)
{
    if (part.role != ObjectRole::BODY || part.ink || part.body.size() != 1)
        return false;
    const ShapeFacts& disc = facts[static_cast<std::size_t>(part.body.front())];
    return disc.roundness > kRound && disc.colour.lightness > kLight && disc.colour.chroma() < kGrey;
}

bool haveOneMiddle(const QRect& one, const QRect& disc)
{
    const double off = kVaries * disc.width();
    return std::abs(one.center().x() - disc.center().x()) < off && std::abs(one.center().y() - disc.center().y()) < off;
}

bool isAround(const QRect& ring, const QRect& disc)
{
    return ring.width() >= disc.width() && ring.width() < kWidestRing * disc.width() && haveOneMiddle(ring, disc);
}

// Whether a part wears a smaller grey disc in its middle.
bool hasHub(const Part& part, const std::vector<ShapeFacts>& facts)
{
    const QRect& disc = part.region.box();
    return std::ranges::any_of(part.worn, [&](const WornShape& worn) {
        const ShapeFacts& hub = facts[static_cast<std::size_t>(worn.shape)];
        const double width = hub.mask.box().width();
        return hub.roundness > kRound && hub.colour.chroma() < kGrey && width > kLeastHub * disc.width() &&
               width < kMostHub * disc.width() && haveOneMiddle(hub.mask.box(), disc);
    });
}

// Whether a part wears dark lines around itself.
bool wearsRing(const Part& part, const std::vector<ShapeFacts>& facts)
{
    return std::ranges::any_of(part.worn, [&](const WornShape& worn) {
        const ShapeFacts& line = facts[static_cast<std::size_t>(worn.shape)];
        const QRect& disc = part.region.box();
        return line.colour.lightness < kDark && line.mask.box().contains(disc.center()) &&
               line.mask.box().width() >= disc.width();
    });
}

// Whether lines that are a part of their own lie around a disc.
bool hasRingBehind(const FoundParts& found, const Part& disc)
{
    return std::ranges::any_of(
        found.parts, [&](const Part& other) { return other.ink && isAround(other.region.box(), disc.region.box()); });
}

bool standSideBySide(const QRect& one, const QRect& other)
{
    const double diameter = std::max(one.width(), other.width());
    return std::abs(one.width() - other.width()) < kVaries * diameter &&
           std::abs(one.bottom() - other.bottom()) < kVaries * diameter &&
           std::abs(one.center().x() - other.center().x()) > kApart * diameter;
}

} // namespace

void findWheels(FoundParts& found, const std::vector<ShapeFacts>& facts)
{
    QRect all;
    std::vector<Part*> discs;
    for (Part& part : found.parts) {
        if (part.isBackdrop)
            continue;
        all |= part.region.box();
        if (isLightDisc(part, facts) && (wearsRing(part, facts) || hasRingBehind(found, part)))
            discs.push_back(&part);
    }
    std::vector<Part*> wheels;
    for (Part* const disc : discs) {
        const QRect& box = disc->region.box();
        const bool low = box.bottom() > all.bottom() - kAtBottom * box.width();
        const bool carries = all.height() > kCarried * box.height() && found.parts.size() > discs.size();
        const auto isBeside = [&](const Part* other) { return standSideBySide(box, other->region.box()); };
        if (low && carries && (hasHub(*disc, facts) || std::ranges::any_of(discs, isBeside)))
            wheels.push_back(disc);
    }
    for (Part* const wheel : wheels) {
        // A ring of its own is the rim.
        wheel->role = hasRingBehind(found, *wheel) ? ObjectRole::FLAT : ObjectRole::SLAB;
        wheel->reason = QStringLiteral("a wheel");
    }
}
