// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The linear share of a row first, vector by vector; then, where there is one, the power of each.
#include "render/ElevationProfile.h"

#include "render/ElevationKernels.h"

#include <algorithm>
#include <cmath>

ElevationProfile::ElevationProfile(const PositiveSpan& span, double smoothness, Values values, std::int64_t count)
    : _lowest(span.lowest)
    , _scale(span.highest > span.lowest ? 1.0F / (span.highest - span.lowest) : 1.0F)
    , _power(std::max(0.0, smoothness))
{
    if (_power == 1.0)
        _power = 0.0;
    const float width = span.highest - span.lowest;
    if (_power == 0.0 || span.isEmpty() || values != Values::WHOLE || static_cast<float>(count) <= width)
        return;
    for (int i = 0; i <= static_cast<int>(width); ++i)
        _table.push_back(powerOf(static_cast<float>(i) * _scale));
}

void ElevationProfile::shares(std::span<const float> values, float* share) const
{
    if (!_table.empty()) {
        for (std::size_t i = 0; i < values.size(); ++i)
            share[i] = values[i] > 0.0F ? _table[static_cast<std::size_t>(values[i] - _lowest)] : 0.0F;
        return;
    }
    VolumeRowKernels::share(values, _lowest, _scale, share);
    if (_power == 0.0)
        return;
    for (std::size_t i = 0; i < values.size(); ++i)
        share[i] = powerOf(share[i]);
}

float ElevationProfile::powerOf(float linearShare) const
{
    if (!(linearShare > 0.0F && linearShare < 1.0F))
        return linearShare;
    return static_cast<float>(std::exp(std::log(static_cast<double>(linearShare)) / _power));
}
