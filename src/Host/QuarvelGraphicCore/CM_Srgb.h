// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The sRGB curve (IEC 61966-2-1), which converts between the encoded values of colours and linear amounts of light.
#pragma once

#include <cmath>

/// The amount of light, 0 .. 1, of an encoded value, 0 .. 1.
inline double CM_linearOfSrgb(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

/// The encoded value, 0 .. 1, of an amount of light, 0 .. 1.
inline double CM_srgbOfLinear(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
}
