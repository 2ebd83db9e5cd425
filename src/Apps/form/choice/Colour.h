// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Colours as people see them: lightness, and hue with its strength, in CIE L*a*b* under D65.
#pragma once

#include <QColor>
#include <QString>

/// A colour in CIE L*a*b*.
struct SeenColour
{
    double lightness = 0.0; ///< 0 black to 100 white
    double a = 0.0;
    double b = 0.0;

    static SeenColour of(const QColor& colour);

    double chroma() const;
};

/// The distance of two colours, 0 for equal ones; 2 is just seen.
double colourDistance(const SeenColour& one, const SeenColour& other);

/// Whether one colour is a darker or lighter shade of the other: their hues are near, or at least one of them is too
/// dark or too grey to have one.
bool isSameHue(const SeenColour& one, const SeenColour& other);

/// A plain word for a colour, such as "brown".
QString colourWord(const SeenColour& colour);
