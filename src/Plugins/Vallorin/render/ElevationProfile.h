// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a blurred value to its share of the elevation (VolumeModel.h).
#pragma once

#include "render/ElevationKernels.h"
#include "render/PositiveSpan.h"

#include <cstdint>
#include <span>
#include <vector>

/// The profile of a bevel: a positive value's share x of the span of values, to the power 1 / smoothness. It is linear
/// when the smoothness is 0, 1, negative or NaN. All other values have the share 0. That includes NaN, which a float
/// picture may hold: its depth is 0, hence black, so only its neighbours lose their normals.
class ElevationProfile
{
public:
    enum class Values
    {
        ANY,
        WHOLE ///< integers within 16 bits
    };

    /// @param count how many values will be evaluated: when there are more than whole numbers in the span, the powers
    /// of these numbers are computed once and looked up
    ElevationProfile(const PositiveSpan& span, double smoothness, Values values, std::int64_t count);

    /// share[i] is that of values[i], and depth[i] = share[i] * rise, multiplied in double precision. Positive values
    /// must lie within the span.
    void elevate(std::span<const float> values, double rise, float* share, float* depth) const;

private:
    VolumeRowKernels::LinearShare _line;
    double _power;             ///< 0: linear
    std::vector<float> _table; ///< the shares of the span's whole numbers, from the lowest up
};
