// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts sRGB by way of XYZ, as usual.
#include "form/choice/Colour.h"

#include "QuarvelGraphicCore/CM_Srgb.h"

#include <cmath>
#include <numbers>

namespace {

double curve(double t)
{
    return t > 216.0 / 24389.0 ? std::cbrt(t) : (t * 24389.0 / 27.0 + 16.0) / 116.0;
}

double hueDegrees(const SeenColour& colour)
{
    const double degrees = std::atan2(colour.b, colour.a) * 180.0 / std::numbers::pi;
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double hueDistance(const SeenColour& one, const SeenColour& other)
{
    const double apart = std::abs(hueDegrees(one) - hueDegrees(other));
    return std::min(apart, 360.0 - apart);
}

constexpr double kGrey = 10.0; // below this chroma a colour has no hue
constexpr double kNearHue = 32.0;

QString wordOfHue(const SeenColour& colour)
{
    const double hue = hueDegrees(colour);
    const double light = colour.lightness;
    if (hue < 20.0 || hue >= 345.0)
        return light > 65.0 ? QStringLiteral("pink") : QStringLiteral("red");
    if (hue < 45.0)
        return light < 35.0 ? QStringLiteral("brown") : QStringLiteral("red");
    if (hue < 75.0)
        return light < 55.0 ? QStringLiteral("brown") : QStringLiteral("orange");
    if (hue < 105.0)
        return light < 50.0 ? QStringLiteral("brown") : QStringLiteral("yellow");
    if (hue < 180.0)
        return QStringLiteral("green");
    if (hue < 225.0)
        return QStringLiteral("turquoise");
    // The bluest colour of a screen lies at 306 degrees.
    if (hue < 309.0)
        return QStringLiteral("blue");
    return light > 70.0 ? QStringLiteral("pink") : QStringLiteral("purple");
}

} // namespace

SeenColour SeenColour::of(const QColor& colour)
{
    const double r = CM_linearOfSrgb(colour.redF());
    const double g = CM_linearOfSrgb(colour.greenF());
    const double b = CM_linearOfSrgb(colour.blueF());
    const double x = curve((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
    const double y = curve(0.2126 * r + 0.7152 * g + 0.0722 * b);
    const double z = curve((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

double SeenColour::chroma() const
{
    return std::hypot(a, b);
}

double colourDistance(const SeenColour& one, const SeenColour& other)
{
    return std::hypot(one.lightness - other.lightness, one.a - other.a, one.b - other.b);
}

bool isSameHue(const SeenColour& one, const SeenColour& other)
{
    const bool oneGrey = one.chroma() < kGrey;
    const bool otherGrey = other.chroma() < kGrey;
    if (oneGrey || otherGrey)
        return (oneGrey && otherGrey) || std::abs(one.chroma() - other.chroma()) < kGrey;
    return hueDistance(one, other) < kNearHue;
}

QString colourWord(const SeenColour& colour)
{
    if (colour.chroma() < kGrey) {
        if (colour.lightness < 25.0)
            return QStringLiteral("black");
        return colour.lightness > 88.0 ? QStringLiteral("white") : QStringLiteral("grey");
    }
    return wordOfHue(colour);
}
