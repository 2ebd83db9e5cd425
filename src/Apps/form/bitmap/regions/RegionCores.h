// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RegionCores: chooses the colour areas of a bitmap that people see as areas, not as lines, slivers or specks. Of a
// dark area that is a net of lines with thick parts in it, such as hair in the colour of the outlines, it chooses the
// thick parts.
#pragma once

#include "form/bitmap/regions/ColourAreas.h"

/// The areas that regions grow from.
struct RegionCores
{
    PixelPlane<int> labels; ///< index of the core; kNoLabel elsewhere
    double halfLine = 0.0;  ///< half of the width up to which a dark area is a line, in pixels
    int leastPixels = 0;    ///< areas with fewer pixels are specks
};

/// Chooses the cores.
RegionCores regionCoresOf(const ColourAreas& areas, const PixelPlane<QRgb>& colours);
