// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CutSides: the sides of the picture at which it cuts an area: where the area goes on, or ends because its artist saw
// no reason to draw on. A side cuts where a good part of the area's breadth lies on it; a curve touches it only.
#pragma once

#include "form/raster/CellMask.h"

struct CutSides
{
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;

    bool any() const { return left || top || right || bottom; }
    bool all() const { return left && top && right && bottom; }
};

/// The sides of a grid that cut an area.
CutSides cutSides(const CellMask& mask, const QRect& grid);
