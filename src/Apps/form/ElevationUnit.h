// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The unit of the node's elevations, and the smallest one.
#pragma once

#include <cmath>

/// The height of the highest place of an object of elevation 1, in units of which the picture is 720 wide.
inline constexpr double kRiseOfElevation = 37.5;

/// The elevation of objects without volume, which is not 0: the node treats an object of elevation 0 as empty, and
/// whoever asks for a flat object does not mean that.
inline constexpr double kNoElevation = 1e-4;

/// The elevation that the node is given for one that somebody asks for: kNoElevation for those that are closer to 0.
inline double givenElevation(double asked)
{
    return std::abs(asked) < kNoElevation ? kNoElevation : asked;
}
