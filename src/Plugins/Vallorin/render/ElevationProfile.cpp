// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A linear profile is computed in vectors; powers are computed one by one or looked up.
#include "render/ElevationProfile.h"

#include <algorithm>
#include <cmath>

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
        _table.push_back(powerOf(static_cast<float>(i) * _line.scale));
}

void ElevationProfile::elevate(std::span<const float> values, double rise, float* share, float* depth) const
{
    if (_power == 0.0) {
        VolumeRowKernels::elevate(values, _line, rise, share, depth);
        return;
    }
    const auto shareOf = [&](float value) {
        return _table.empty() ? powerOf((value - _line.lowest) * _line.scale)
                              : _table[static_cast<std::size_t>(value - _line.lowest)];
    };
    for (std::size_t i = 0; i < values.size(); ++i)
        share[i] = values[i] > 0.0F ? shareOf(values[i]) : 0.0F;
    VolumeRowKernels::raise({share, values.size()}, rise, depth);
}

float ElevationProfile::powerOf(float linearShare) const
{
    if (!(linearShare > 0.0F && linearShare < 1.0F))
        return linearShare;
    return static_cast<float>(std::exp(std::log(static_cast<double>(linearShare)) / _power));
}
