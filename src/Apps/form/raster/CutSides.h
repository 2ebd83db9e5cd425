// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CutSides: the sides at which the picture cuts an area, so that the area continues outside, or ends there only because
// the artist did not draw the rest. A side cuts an area if a good part of the area's breadth lies on it; a curved
// outline only touches it.
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
