// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Signs in bitmaps: round signs and clocks, which are flat inside a rim. The rules are those of Signs.h.
#pragma once

#include "form/bitmap/regions/RegionGraph.h"

/// The region that is a sign; kNoLabel if none is.
///
/// @param found the regions before any were joined: they tell what is painted on it
/// @param colours of the bitmap: they tell which lines are drawn on it, which are no regions
int findSign(const RegionGraph& graph, const RegionGraph& found, const PixelPlane<QRgb>& colours);

/// The fields that a ring with a bar across it leaves bare; empty if the bitmap is no such sign.
///
/// @param[out] ring the number of the ring's region
std::vector<int> fieldsInRing(const RegionGraph& graph, int& ring);
