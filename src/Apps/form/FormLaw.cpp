// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The numbers of the law. They were fitted on modelled bodies with known normals (spheres, capsules, tori, figures),
// rendered under lights from eight sides; 40 per cent off in one of them costs 3 to 9 per cent of the error.
#include "form/FormLaw.h"

#include <algorithm>
#include <cmath>

namespace {

// The node's depth at elevation 1, in units of which the picture is 720 wide.
constexpr double kDepthOfElevation = 37.5;

// Bevel and height as multiples of the breadth.
struct Profile
{
    double bevel;
    double height;
    double smoothness;
};

// A blur that reaches a little beyond the middle, and the square root of it, which makes a circle's profile.
constexpr Profile kOrdinary{1.1, 1.05, 1.7};
// What is round all around gets a wider blur, whose profile is nearer to a sphere's.
constexpr Profile kRound{3.4, 1.575, 3.2};
constexpr double kRoundFrom = 0.85;
constexpr double kRoundTo = 0.93;

// No volume is the smallest elevation that the node still tells from none: with none, it takes the object for empty.
constexpr double kNoElevation = 1e-4;

Profile between(const Profile& a, const Profile& b, double t)
{
    const auto mix = [t](double from, double to) { return from + t * (to - from); };
    return {mix(a.bevel, b.bevel), mix(a.height, b.height), mix(a.smoothness, b.smoothness)};
}

Profile profileOf(const ObjectExtent& extent, FormShape shape)
{
    if (shape == FormShape::PILLOW)
        return kRound;
    return between(kOrdinary, kRound, std::clamp((extent.roundness - kRoundFrom) / (kRoundTo - kRoundFrom), 0.0, 1.0));
}

double rounded(double value, double steps)
{
    return std::round(value * steps) / steps;
}

ObjectForm raised(const ObjectExtent& extent, FormShape shape)
{
    if (shape == FormShape::RIM)
        return kRimForm;
    const Profile profile = profileOf(extent, shape);
    return {profile.bevel * extent.breadth, profile.height * extent.breadth / kDepthOfElevation, profile.smoothness};
}

} // namespace

ObjectForm formFor(const ObjectExtent& extent, ObjectRole role, const FormSettings& settings)
{
    ObjectForm form = role == ObjectRole::SLAB ? kRimForm : raised(extent, settings.shape);
    form.elevation *= settings.volume;
    if (role == ObjectRole::OPENING)
        form.elevation = -form.elevation;
    const bool flat = settings.shape == FormShape::OFF || role == ObjectRole::FLAT || form.elevation == 0.0;
    if (flat)
        form.elevation = kNoElevation;
    // With few digits, so that people can read and type them. A hundredth of a unit is far below a pixel.
    return {rounded(form.bevel, 100.0), rounded(form.elevation, 10000.0), rounded(form.smoothness, 100.0)};
}
