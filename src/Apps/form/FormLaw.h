// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FormLaw: from what was measured of an object's outline to the three values that give it volume. All numbers of the
// law stand in FormLaw.cpp.
//
// The breadth M of an object is three times the mean distance of its pixels to its outline. A disc's M is its radius, a
// long strip's 1.5 times the radius of its cross-section. Lengths are in units of which the picture is 720 wide, as the
// node's bevels are.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"

/// What the law takes of an object.
struct ObjectExtent
{
    double breadth = 0.0; ///< M
    /// The radius of the largest disc inside over that of the disc of the same area; 1 for a disc.
    double roundness = 0.0;
};

/// The values that give an object its volume, by the meaning that the node gives them.
struct ObjectForm
{
    double bevel = 0.0;
    double elevation = 0.0;
    double smoothness = 1.0;

    friend bool operator==(const ObjectForm&, const ObjectForm&) = default;
};

/// A narrow rim: what an object gets whose extent nobody measured.
constexpr ObjectForm kRimForm{24.0, 1.0, 1.0};

/// The values for an object.
ObjectForm formFor(const ObjectExtent& extent, ObjectRole role, const FormSettings& settings);
