// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pixels of the reference version as text, for the messages of failed tests.
#include "reference/Pixels.h"

#include <iomanip>
#include <ostream>

namespace reference {

std::ostream& operator<<(std::ostream& stream, const RefPixel16& pixel)
{
    return stream << '(' << pixel.r << ", " << pixel.g << ", " << pixel.b << ", " << pixel.a << ')';
}

std::ostream& operator<<(std::ostream& stream, const RefPixelFloat& pixel)
{
    const std::streamsize digits = stream.precision();
    stream << std::setprecision(9) << '(' << pixel.r << ", " << pixel.g << ", " << pixel.b << ", " << pixel.a << ')';
    stream.precision(digits);
    return stream;
}

} // namespace reference
