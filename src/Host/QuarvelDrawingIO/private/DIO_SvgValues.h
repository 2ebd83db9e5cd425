// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values in SVG attributes: numbers, lengths, colours, boxes. Values that are not finite count as missing.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>
#include <QTransform>

#include <optional>
#include <vector>

/// What relative lengths are relative to.
struct DIO_LengthContext
{
    double percentOf = 100.0; ///< what 100 % is
    double fontSize = 16.0;   ///< what 1em is
};

/// The numbers of a list separated by white space or commas, up to the first word that is not a number.
std::vector<double> DIO_readNumbers(QStringView text);

/// A number, or a percentage as its hundredth.
std::optional<double> DIO_readNumber(QStringView text);

/// A length in user units, 96 to an inch. Of several, the first.
std::optional<double> DIO_readLength(QStringView text, const DIO_LengthContext& context);

/// A colour in any notation of CSS: names, hexadecimal, rgb(), rgba(), hsl(), hsla(), "transparent".
std::optional<QColor> DIO_readColour(QStringView text);

/// A viewBox with positive width and height.
std::optional<QRectF> DIO_readViewBox(QStringView text);

/// How a preserveAspectRatio fits a box into a rectangle.
struct DIO_AspectFit
{
    bool stretch = false; ///< fill the rectangle without regard for proportions
    bool slice = false;   ///< cover the rectangle, not fit into it
    double alignX = 0.5;  ///< 0 left, 1 right
    double alignY = 0.5;  ///< 0 top, 1 bottom
};

DIO_AspectFit DIO_readAspectFit(QStringView text);

/// The transform that fits a box into a rectangle.
QTransform DIO_fitTransform(const QRectF& box, const QRectF& into, const DIO_AspectFit& fit);
