// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A mixture lies on the line between its two colours.
#include "form/bitmap/pixels/MixedColours.h"

#include <array>

namespace {

constexpr double kMixed = 30.0; // of 255: how far from the line a mixture may lie

using Vector = std::array<double, 3>;

Vector difference(QRgb a, QRgb b)
{
    return {static_cast<double>(qRed(a) - qRed(b)), static_cast<double>(qGreen(a) - qGreen(b)),
            static_cast<double>(qBlue(a) - qBlue(b))};
}

double product(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

} // namespace

double squaredDistance(QRgb one, QRgb other)
{
    const Vector apart = difference(one, other);
    return product(apart, apart);
}

std::optional<double> mixedShare(QRgb pixel, QRgb under, QRgb over)
{
    const Vector whole = difference(over, under);
    const Vector part = difference(pixel, under);
    const double length = product(whole, whole);
    if (length == 0.0)
        return std::nullopt;
    const double share = product(part, whole) / length;
    const double off = product(part, part) - share * share * length;
    return off < kMixed * kMixed ? std::optional(share) : std::nullopt;
}
