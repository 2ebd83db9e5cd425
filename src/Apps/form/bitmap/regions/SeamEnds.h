// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SeamEnds: the points where three of a bitmap's regions meet, or two regions and uncovered pixels. The angles at such
// a point tell how the surfaces lie: a region whose outline continues straight there lies on top (a T junction), and
// two regions whose common outline continues straight are one body in two colours (Guzman, "Decomposition of a visual
// scene into three-dimensional bodies", 1968).
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <utility>
#include <vector>

/// A point where at least three labels meet.
struct SeamPoint
{
    std::vector<int> meeting;                   ///< the labels around the point; kNoLabel for uncovered pixels
    std::vector<std::pair<int, double>> angles; ///< labels near the point, with the angle that each takes, in degrees
};

/// All such points of a plane of labels.
///
/// @param radius how far around a point angles are measured, in pixels; lines much narrower than this hardly change the
/// angles
std::vector<SeamPoint> seamPointsOf(const PixelPlane<int>& labels, double radius);
