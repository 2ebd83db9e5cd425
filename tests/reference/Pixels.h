// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two pixel formats of the reference version. What a channel means depends on the picture: in an input, R and A are
// value and coverage of the first layer, G and B of the second; in an accumulator and a mask R is the value; in a
// normal map R and G are the encoded x and y, B is the elevation or the object's number, and A is coverage.
#pragma once

#include <cstdint>
#include <iosfwd>

namespace reference {

/// Four signed 16-bit channels; 32767 stands for 1.0.
struct RefPixel16
{
    std::int16_t r = 0;
    std::int16_t g = 0;
    std::int16_t b = 0;
    std::int16_t a = 0;

    bool operator==(const RefPixel16&) const = default;
};

/// Four single-precision channels; 1.0 is full.
struct RefPixelFloat
{
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    float a = 0.0F;

    bool operator==(const RefPixelFloat&) const = default;
};

/// Writes "(r, g, b, a)" for messages of failed tests; floats with all their digits.
std::ostream& operator<<(std::ostream& stream, const RefPixel16& pixel);
std::ostream& operator<<(std::ostream& stream, const RefPixelFloat& pixel);

} // namespace reference
