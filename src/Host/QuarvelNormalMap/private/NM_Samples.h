// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts channels of pixmaps, and fractions, to samples of pictures.
#pragma once

#include "QuarvelImageIO/IIO_Samples.h"

#include <algorithm>

/// Converts a channel's value to a sample; full scale is 65535 or 1.0. Negative values become 0 in 16-bit samples.
template<typename Sample>
Sample NM_toSample(std::int16_t channel)
{
    if constexpr (std::is_same_v<Sample, float>)
        return static_cast<float>(channel) / 32767.0F;
    else
        return static_cast<Sample>(2 * std::max<int>(channel, 0) + (channel >= 16384 ? 1 : 0));
}
template<typename Sample>
Sample NM_toSample(float channel)
{
    if constexpr (std::is_same_v<Sample, float>)
        return channel;
    else
        return IIO_toSample16(channel);
}

/// Converts a number to a sample: clamps it to 0.0 .. 1.0, rounds halves up.
template<typename Sample>
Sample NM_fractionToSample(double fraction)
{
    const double clamped = std::clamp(fraction, 0.0, 1.0);
    if constexpr (std::is_same_v<Sample, float>)
        return static_cast<float>(clamped);
    else
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): not negative, so what is cut off is what rounding down takes
        return static_cast<Sample>(clamped * 65535.0 + 0.5);
}

/// Clamps a sample to 0.0 .. 1.0; NaN becomes 0.
inline float NM_clampSample(float sample)
{
    return sample > 0.0F ? std::min(sample, 1.0F) : 0.0F;
}
inline std::uint16_t NM_clampSample(std::uint16_t sample)
{
    return sample;
}
