// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Colours as people see them: lightness, hue and chroma in CIE L*a*b* under D65.
#pragma once

#include <QColor>
#include <QString>

/// A colour in CIE L*a*b*.
struct SeenColour
{
    double lightness = 0.0; ///< 0 (black) to 100 (white)
    double a = 0.0;
    double b = 0.0;

    static SeenColour of(const QColor& colour);

    double chroma() const;
};

/// The distance of two colours, 0 for equal ones; a distance of 2 is just visible.
double colourDistance(const SeenColour& one, const SeenColour& other);

/// Whether one colour is a darker or lighter shade of the other: their hues are close, both are grey, or one is grey
/// and the other hardly more colourful.
bool isSameHue(const SeenColour& one, const SeenColour& other);

/// A plain word for a colour, such as "brown".
QString colourWord(const SeenColour& colour);
