// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much a colour in a mask lets through, by the weights that SVG gives to red, green and blue.
#pragma once

/// The brightness in the unit of the three numbers.
constexpr double DIO_maskBrightness(double red, double green, double blue)
{
    return 0.2125 * red + 0.7154 * green + 0.0721 * blue;
}
