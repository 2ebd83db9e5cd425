// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Faces.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace {

constexpr double kLargestEye = 0.06; // of the face's area
constexpr double kAlike = 1.6;       // ratio of two eyes' areas
constexpr double kAlikeSides = 1.3;  // ratio of their widths and of their heights
constexpr double kDarker = 10.0;     // than the face, in lightness
constexpr double kLevel = 0.25;      // how far one eye lies above the other, of their distance
constexpr double kNearest = 0.2;     // the distance of the eyes, of the face's width
constexpr double kFarthest = 0.75;
constexpr double kAside = 0.12;     // of their middle from the face's, of the face's width
constexpr double kBelowHair = 0.15; // where the eyes lie, of the face's height
constexpr double kAboveChin = 0.75;
// A mouth's middle lies this near to the axis of the face, and this far below its middle, in widths and heights of the
// face.
constexpr double kOnAxis = 0.06;
constexpr double kBelowMiddle = 0.14;
constexpr double kLargestMouth = 0.25; // of the face's area
constexpr double kWidestMouth = 0.64;  // of the face's width: a moustache is wider
constexpr double kOpen = 0.08;         // the least width of a mouth, of the face's
constexpr double kRoundFace = 0.92;    // roundness; a square has 0.89
constexpr std::size_t kMost = 64;      // eyes and the like: what holds more is no face

// Brows are of the paint and about the area of eyes, but longer.
bool isAlike(const ShapeFacts& one, const ShapeFacts& other)
{
    const auto isNear = [](double a, double b, double ratio) { return a < ratio * b && b < ratio * a; };
    const QRect first = one.mask.box();
    const QRect second = other.mask.box();
    return one.paint == other.paint && isNear(one.area, other.area, kAlike) &&
           isNear(first.width(), second.width(), kAlikeSides) && isNear(first.height(), second.height(), kAlikeSides);
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

// The shapes that may be eyes, or are as dark and small as eyes.
std::vector<const ShapeFacts*> candidates(const ShapeFacts& face, std::span<const ShapeFacts* const> inside)
{
    std::vector<const ShapeFacts*> found;
    std::ranges::copy_if(inside, std::back_inserter(found), [&](const ShapeFacts* other) {
        return other->area < kLargestEye * face.area && other->colour.lightness < face.colour.lightness - kDarker;
    });
    return found;
}

} // namespace

bool holdsEyes(const ShapeFacts& face, std::span<const ShapeFacts* const> inside)
{
    const std::vector<const ShapeFacts*> found = candidates(face, inside);
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
        if (alike == 1 && isPlacedAsEyes(one->mask.box(), other->mask.box(), face.mask.box()))
            return true;
    }
    return false;
}

bool isPlacedAsMouth(const ShapeFacts& shape, const ShapeFacts& face)
{
    const QRect box = shape.mask.box();
    const QRect whole = face.mask.box();
    const double aside = (box.left() + box.right() - whole.left() - whole.right()) / 2.0;
    const double below = (box.top() + box.bottom() - whole.top() - whole.bottom()) / 2.0;
    return face.roundness > kRoundFace && shape.area < kLargestMouth * face.area &&
           box.width() < kWidestMouth * whole.width() && std::abs(aside) < kOnAxis * whole.width() &&
           below > kBelowMiddle * whole.height();
}

bool isOpenMouth(const ShapeFacts& shape, const ShapeFacts& face, std::span<const ShapeFacts* const> inside)
{
    return isPlacedAsMouth(shape, face) && shape.width > kOpen * face.mask.box().width() && holdsEyes(face, inside);
}
