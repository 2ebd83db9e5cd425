// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The small picture of a palette's colour in lists.
#pragma once

#include "QuarvelGraphicCore/CM_Color.h"

#include <QColor>
#include <QIcon>
#include <QPalette>

/// The side of a swatch, in device-independent pixels.
constexpr int kColourSwatch = 22;

/// A palette's colour as Qt has it.
QColor toQColor(const CM_Rgba& colour);

/// A swatch with an outline that stands out from light and dark grounds; a colour that is not opaque is shown on a
/// chequered ground.
///
/// @param ratio device pixels a device-independent one
QIcon colourSwatch(const QColor& colour, const QPalette& palette, double ratio);
