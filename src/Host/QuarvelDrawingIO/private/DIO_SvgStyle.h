// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_SvgStyle: how an element is painted, with everything that it inherits worked out.
#pragma once

#include "QuarvelDrawingIO/private/DIO_StyleSheet.h"

#include <QColor>
#include <QHash>
#include <QString>

#include <span>
#include <vector>

/// An element's properties as written, after the cascade: attributes, then style sheets, then the style attribute.
using DIO_SvgProperties = QHash<QString, QString>;

/// @param ancestry the element's ancestors from the root down, and the element itself last
DIO_SvgProperties DIO_cascade(const DIO_StyleSheet& sheet, std::span<const DIO_XmlNode* const> ancestry);

/// A fill or a stroke's paint.
struct DIO_SvgPaint
{
    enum class Kind
    {
        NONE,
        COLOUR,
        REFERENCE ///< to a gradient or pattern; the colour is painted when there is none, if it is valid
    };

    Kind kind = Kind::NONE;
    QColor colour;
    QString reference; ///< "#id"
    int server = -1;   ///< what the reference leads to, where that depends on the shape; else -1
};

/// The inherited properties. A default one is what a drawing's root starts with.
struct DIO_SvgStyle
{
    DIO_SvgPaint fill{DIO_SvgPaint::Kind::COLOUR, QColor(Qt::black), {}};
    double fillOpacity = 1.0;
    bool evenOdd = false;
    bool clipEvenOdd = false;
    DIO_SvgPaint stroke;
    double strokeOpacity = 1.0;
    double strokeWidth = 1.0;
    QString lineCap = QStringLiteral("butt");
    QString lineJoin = QStringLiteral("miter");
    double miterLimit = 4.0;
    std::vector<double> dashes; ///< lengths of dashes and gaps, an even number of them; none: a solid line
    double dashOffset = 0.0;
    QString markerStart; ///< "url(#id)"; empty or "none": no marker
    QString markerMid;
    QString markerEnd;
    DIO_SvgPaint contextFill; ///< inside a marker: the paints of the line that has it
    DIO_SvgPaint contextStroke;
    QColor currentColour = Qt::black;
    bool visible = true;
    double fontSize = 16.0;
    QHash<QString, QString> font; ///< font-family, font-style, font-weight, font-variant, text-anchor

    /// The style of an element inside what this is the style of.
    ///
    /// @param diagonal what a length of 100 % is for a stroke
    DIO_SvgStyle inheritedBy(const DIO_SvgProperties& properties, double diagonal) const;
};
