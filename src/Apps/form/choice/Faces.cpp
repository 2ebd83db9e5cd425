// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Faces.h"

#include "form/choice/InnerFacts.h"

#include <cmath>

namespace {

constexpr double kLargestEye = 0.06; // of the face's area
constexpr double kAlike = 1.6;       // ratio of two eyes' areas
constexpr double kDarker = 10.0;     // than the face, in lightness
constexpr double kLevel = 0.25;      // how far one eye lies above the other, of their distance
constexpr double kNearest = 0.2;     // the distance of the eyes, of the face's width
constexpr double kFarthest = 0.75;
constexpr double kAside = 0.12;     // of their middle from the face's, of the face's width
constexpr double kBelowHair = 0.15; // where the eyes lie, of the face's height
constexpr double kAboveChin = 0.75;
constexpr std::size_t kMost = 64; // eyes and the like: what holds more is no face

bool isAlike(const ShapeFacts& one, const ShapeFacts& other)
{
    return one.paint == other.paint && one.area < kAlike * other.area && other.area < kAlike * one.area;
}

bool isPlacedAsEyes(const QRectF& one, const QRectF& other, const QRectF& face)
{
    const QPointF apart = one.center() - other.center();
    const QPointF middle = (one.center() + other.center()) / 2.0 - face.topLeft();
    const double distance = std::abs(apart.x());
    return std::abs(apart.y()) < kLevel * distance && distance > kNearest * face.width() &&
           distance < kFarthest * face.width() && std::abs(middle.x() - face.width() / 2.0) < kAside * face.width() &&
           middle.y() > kBelowHair * face.height() && middle.y() < kAboveChin * face.height();
}

// The later shapes inside the shape that may be eyes or as dark and small as eyes.
std::vector<const ShapeFacts*> candidates(int shape, const std::vector<ShapeFacts>& facts)
{
    const ShapeFacts& face = facts[static_cast<std::size_t>(shape)];
    std::vector<const ShapeFacts*> found;
    for (std::size_t i = static_cast<std::size_t>(shape) + 1; i < facts.size() && found.size() <= kMost; ++i) {
        const ShapeFacts& other = facts[i];
        if (other.opacity >= kSolid && other.area < kLargestEye * face.area &&
            other.colour.lightness < face.colour.lightness - kDarker && liesInside(other, face.mask))
            found.push_back(&other);
    }
    return found;
}

} // namespace

bool holdsEyes(int shape, const std::vector<ShapeFacts>& facts)
{
    const QRectF face = facts[static_cast<std::size_t>(shape)].mask.box();
    const std::vector<const ShapeFacts*> found = candidates(shape, facts);
    if (found.size() > kMost)
        return false;
    for (const ShapeFacts* one : found) {
        const ShapeFacts* other = nullptr;
        int alike = 0;
        for (const ShapeFacts* candidate : found)
            if (candidate != one && isAlike(*one, *candidate)) {
                other = candidate;
                ++alike;
            }
        if (alike == 1 && isPlacedAsEyes(one->mask.box(), other->mask.box(), face))
            return true;
    }
    return false;
}
