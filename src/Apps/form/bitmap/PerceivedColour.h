// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PerceivedColour: a colour as people compare it, in the Oklab space (Ottosson, "A perceptual color space for image
// processing", 2020).
#pragma once

#include <QColor>
#include <QString>

/// Lightness from 0 to 1, and two axes of hue on which full colours are 0.1 to 0.3 from grey.
struct PerceivedColour
{
    double lightness = 0.0;
    double greenRed = 0.0;
    double blueYellow = 0.0;

    double chroma() const;
    /// The hue's angle in degrees, 0 to 360; of no meaning for greys.
    double hue() const;
    /// No hue that anybody would name.
    bool isGrey() const { return chroma() < 0.035; }
};

/// Of an sRGB colour; alpha is left out.
PerceivedColour perceived(QRgb colour);

/// How different two colours look: the distance in the space; black and white are 1 apart.
double difference(const PerceivedColour& a, const PerceivedColour& b);

/// Whether one may be the other in more or less light: of one hue, or greys that are near to each other.
bool areShadesOfOneColour(const PerceivedColour& a, const PerceivedColour& b);

/// What people call the colour: "red", "dark blue", "light grey".
QString colourWord(const PerceivedColour& colour);
