// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FormLaw: computes the three values that give an object volume from the measurements of its outline. All constants of
// the law are in FormLaw.cpp.
//
// The breadth M of an object is three times the mean distance of its pixels to its outline. A disc's M is its radius, a
// long strip's 1.5 times the radius of its cross-section. Lengths are in units of which the picture is 720 wide, as the
// node's bevels are.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"

/// The measurements of an object that the law uses.
struct ObjectExtent
{
    double breadth = 0.0; ///< M
    /// The radius of the largest disc inside, divided by the radius of the disc of the same area: 1 for a disc. 0 if
    /// the picture's border cuts the object.
    double roundness = 0.0;
};

/// The values that give an object its volume, with the meaning that the node gives them.
struct ObjectForm
{
    double bevel = 0.0;
    double elevation = 0.0;
    double smoothness = 1.0;

    friend bool operator==(const ObjectForm&, const ObjectForm&) = default;
};

/// A narrow rim: the form of objects that are not measured.
constexpr ObjectForm kRimForm{24.0, 1.0, 1.0};

/// Computes the values for an object. FLAT objects, and all with a volume of 0 or the shape OFF, get the smallest
/// elevation that is not 0.
ObjectForm formFor(const ObjectExtent& extent, ObjectRole role, const FormSettings& settings);
