// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a blurred value to the share of the elevation that it stands for (VolumeModel.h).
#pragma once

#include "render/PositiveSpan.h"

#include <cstdint>
#include <span>
#include <vector>

/// The profile of a bevel: a positive value's share x of the span of values, to the power 1 / smoothness. It is linear
/// when the smoothness is 0, 1, negative or no number. Whatever is not positive has the share 0.
class ElevationProfile
{
public:
    enum class Values
    {
        ANY,
        WHOLE ///< integers within 16 bits
    };

    /// @param count how many values will be asked for: where that are more than the span has whole numbers, each of
    /// these numbers' power is taken once
    ElevationProfile(const PositiveSpan& span, double smoothness, Values values, std::int64_t count);

    /// share[i] is that of values[i]; the values must lie within the span where they are positive.
    void shares(std::span<const float> values, float* share) const;

private:
    float powerOf(float linearShare) const;

    float _lowest;
    float _scale;
    double _power;             ///< 0: linear
    std::vector<float> _table; ///< the shares of the span's whole numbers, from the lowest up
};
