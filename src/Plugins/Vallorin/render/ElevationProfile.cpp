// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Profiles are computed in vectors; the powers of whole numbers are looked up.
#include "render/ElevationProfile.h"

#include <algorithm>

ElevationProfile::ElevationProfile(const PositiveSpan& span, double smoothness, Values values, std::int64_t count)
    : _line{span.lowest, span.highest > span.lowest ? 1.0F / (span.highest - span.lowest) : 1.0F}
    , _power(std::max(0.0, smoothness))
{
    if (_power == 1.0)
        _power = 0.0;
    const float width = span.highest - span.lowest;
    if (_power == 0.0 || span.isEmpty() || values != Values::WHOLE || static_cast<float>(count) <= width)
        return;
    for (int i = 0; i <= static_cast<int>(width); ++i)
        _table.push_back(VolumeRowKernels::powerShare(static_cast<float>(i) * _line.scale, _power));
}

void ElevationProfile::elevate(std::span<const float> values, double rise, float* share, float* depth) const
{
    if (_power == 0.0) {
        VolumeRowKernels::elevate(values, _line, rise, share, depth);
        return;
    }
    if (_table.empty()) {
        VolumeRowKernels::elevatePowers(values, _line, _power, share);
    } else {
        for (std::size_t i = 0; i < values.size(); ++i)
            share[i] = values[i] > 0.0F ? _table[static_cast<std::size_t>(values[i] - _line.lowest)] : 0.0F;
    }
    VolumeRowKernels::raise({share, values.size()}, rise, depth);
}
