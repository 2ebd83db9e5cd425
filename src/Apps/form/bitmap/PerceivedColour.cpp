// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Oklab, and words for its regions.
#include "form/bitmap/PerceivedColour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

double linear(int channel)
{
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double hueDistance(const PerceivedColour& a, const PerceivedColour& b)
{
    const double apart = std::abs(a.hue() - b.hue());
    return std::min(apart, 360.0 - apart);
}

// What lies in light and in shade of one colour differs by no more than this in lightness.
constexpr double kShadesInLightness = 0.34;
constexpr double kGreyShadesInLightness = 0.22;
// Shades drift in hue: towards yellow in the light, towards blue in the dark.
constexpr double kShadesInHue = 26.0;
// Of weak colours the hue says less.
constexpr double kWeakChroma = 0.07;

struct HueWord
{
    double upTo; // degrees
    const char* word;
};

constexpr std::array kHueWords = {HueWord{12, "pink"},    HueWord{42, "red"},     HueWord{78, "orange"},
                                  HueWord{115, "yellow"}, HueWord{165, "green"},  HueWord{215, "teal"},
                                  HueWord{275, "blue"},   HueWord{325, "purple"}, HueWord{361, "pink"}};

QString hueWord(const PerceivedColour& colour)
{
    const auto found = std::ranges::find_if(kHueWords, [&](const HueWord& word) { return colour.hue() < word.upTo; });
    const bool brown = colour.hue() > 30 && colour.hue() < 100 && colour.lightness < 0.6;
    return brown ? QStringLiteral("brown") : QString::fromLatin1(found->word);
}

} // namespace

double PerceivedColour::chroma() const
{
    return std::hypot(greenRed, blueYellow);
}

double PerceivedColour::hue() const
{
    const double angle = std::atan2(blueYellow, greenRed) * 180.0 / std::numbers::pi;
    return angle < 0.0 ? angle + 360.0 : angle;
}

PerceivedColour perceived(QRgb colour)
{
    const double r = linear(qRed(colour));
    const double g = linear(qGreen(colour));
    const double b = linear(qBlue(colour));
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

double difference(const PerceivedColour& a, const PerceivedColour& b)
{
    return std::hypot(a.lightness - b.lightness, a.greenRed - b.greenRed, a.blueYellow - b.blueYellow);
}

bool areShadesOfOneColour(const PerceivedColour& a, const PerceivedColour& b)
{
    const double lightness = std::abs(a.lightness - b.lightness);
    if (a.isGrey() || b.isGrey())
        return lightness < kGreyShadesInLightness && std::abs(a.chroma() - b.chroma()) < 0.04;
    const double weakest = std::min(a.chroma(), b.chroma());
    const double hueAllowed = kShadesInHue * (weakest < kWeakChroma ? 1.5 : 1.0);
    return lightness < kShadesInLightness && hueDistance(a, b) < hueAllowed;
}

QString colourWord(const PerceivedColour& colour)
{
    if (colour.lightness < 0.25)
        return QStringLiteral("black");
    if (colour.isGrey()) {
        if (colour.lightness > 0.93)
            return QStringLiteral("white");
        return colour.lightness > 0.75   ? QStringLiteral("light-grey")
               : colour.lightness < 0.45 ? QStringLiteral("dark-grey")
                                         : QStringLiteral("grey");
    }
    const QString word = hueWord(colour);
    if (colour.lightness > 0.86 && word != QLatin1String("yellow"))
        return QStringLiteral("light-") + word;
    return colour.lightness < 0.4 ? QStringLiteral("dark-") + word : word;
}
