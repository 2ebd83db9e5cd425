// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FormLaw: computes the three values that give an object volume from the measurements of its outline. All constants of
// the law are in FormLaw.cpp.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"

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
