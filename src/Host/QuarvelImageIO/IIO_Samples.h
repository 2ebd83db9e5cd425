// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts single samples between types.
#pragma once

#include <cmath>
#include <cstdint>

/// Converts 0.0 .. 1.0 to 0 .. 65535, rounded to nearest and clamped; NaN becomes 0.
inline std::uint16_t IIO_toSample16(float value)
{
    // Written so that NaN fails the first comparison.
    if (!(value > 0.0F))
        return 0;
    if (value >= 1.0F)
        return 65535;
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): not negative, so what is cut off is what rounding down takes
    return static_cast<std::uint16_t>(static_cast<double>(value) * 65535.0 + 0.5);
}
inline std::uint16_t IIO_toSample16(std::uint16_t value)
{
    return value;
}

/// Converts 0 .. 65535 to 0.0 .. 1.0.
inline float IIO_toSampleFloat(std::uint16_t value)
{
    return static_cast<float>(value) / 65535.0F;
}
inline float IIO_toSampleFloat(float value)
{
    return value;
}

/// Converts 0 .. 65535 to the nearest of 0 .. 255.
inline std::uint8_t IIO_toSample8(std::uint16_t value)
{
    return static_cast<std::uint8_t>((value * 255U + 32767U) / 65535U);
}
