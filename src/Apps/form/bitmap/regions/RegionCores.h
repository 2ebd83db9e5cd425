// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RegionCores: which of a bitmap's colour areas are seen as areas. Lines, slivers and specks are not; of a dark area
// that is a net of lines with thick parts in it, such as hair that is drawn in the colour of the outlines, the thick
// parts are.
#pragma once

#include "form/bitmap/regions/ColourAreas.h"

/// The areas that regions grow from.
struct RegionCores
{
    PixelPlane<int> labels; ///< index of the core; kNoLabel elsewhere
    double halfLine = 0.0;  ///< half of the width up to which something dark is a line, in pixels
    int leastPixels = 0;    ///< what has fewer pixels is a speck
};

/// Chooses the cores.
RegionCores regionCoresOf(const ColourAreas& areas, const PixelPlane<QRgb>& colours);
