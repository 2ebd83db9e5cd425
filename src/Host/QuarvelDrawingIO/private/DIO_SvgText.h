// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The texts of an SVG file as lines: a <tspan> with a place of its own starts a new one.
#pragma once

#include "QuarvelDrawingIO/private/DIO_SvgStyle.h"

#include <QSizeF>

/// A piece of text in one style.
struct DIO_TextRun
{
    QString text;
    DIO_SvgStyle style;
};

/// Runs that follow each other from one place on.
struct DIO_TextLine
{
    double x = 0.0;
    double y = 0.0;
    std::vector<DIO_TextRun> runs;
};

/// The lines of a <text> element; those without visible text are left out.
///
/// @param style the text element's style
/// @param ancestry the text element's ancestors and itself; the same again afterwards
std::vector<DIO_TextLine> DIO_readTextLines(const DIO_XmlNode& text, const DIO_SvgStyle& style,
                                            std::vector<const DIO_XmlNode*>& ancestry, const DIO_StyleSheet& sheet,
                                            const QSizeF& viewport);
