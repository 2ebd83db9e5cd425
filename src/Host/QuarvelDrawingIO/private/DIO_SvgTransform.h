// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Transforms in the notation of CSS, of which that of SVG attributes is a part: units, percentages, and a point that
// stays where it is ("transform-origin").
#pragma once

#include "QuarvelDrawingIO/private/DIO_SvgStyle.h"

#include <QRectF>
#include <QTransform>

#include <functional>
#include <optional>

/// A transform as an attribute's text, "matrix(…)".
QString DIO_matrixText(const QTransform& t);

/// The transform of an attribute in which all lengths are plain numbers; none when it cannot be understood.
std::optional<QTransform> DIO_readTransform(const QString& text);

/// The transform that properties ask for.
///
/// @param attribute the element's attribute "transform", of use where the properties hold none
/// @param viewport what percentages are relative to
/// @param box gives the rectangle that the element fills, for those that measure by it ("transform-box: fill-box")
/// @return none when the attribute alone is to be used, or when the text cannot be understood
std::optional<QTransform> DIO_styledTransform(const DIO_SvgProperties& properties, const QString& attribute,
                                              const QSizeF& viewport, double fontSize,
                                              const std::function<QRectF()>& box);
