// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectExtent: the measurements of an object that the law of its form uses (FormLaw.h).
//
// The breadth M of an object is three times the mean distance of its pixels to its outline. A disc's M is its radius, a
// long strip's 1.5 times the radius of its cross-section. Lengths are in units of which the picture is 720 wide, as the
// node's bevels are.
#pragma once

#include "form/raster/OutlineDistance.h"

struct ObjectExtent
{
    double breadth = 0.0; ///< M
    /// The radius of the largest disc inside, divided by the radius of the disc of the same area: 1 for a disc. 0 if
    /// the picture's border cuts the object.
    double roundness = 0.0;
};

/// What the distances to an object's outline say of it; nothing for an object without area.
///
/// @param unitsPerCell the width of a cell, in units of which the picture is 720 wide
ObjectExtent extentOf(const OutlineDistance& measured, double unitsPerCell);
