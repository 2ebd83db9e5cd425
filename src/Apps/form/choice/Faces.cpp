// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Faces.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

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
