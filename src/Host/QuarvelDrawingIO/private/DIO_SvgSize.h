// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_SvgSize: how large an SVG drawing is and which part of its plane it shows.
#pragma once

#include "QuarvelDrawingIO/private/DIO_XmlTree.h"

#include <QRectF>
#include <QStringList>

#include <optional>

struct DIO_SvgSize
{
    QSizeF size;           ///< in pixels; empty when only the shapes can tell
    QRectF viewBox;        ///< in the root's user units; empty when only the shapes can tell
    double stretchY = 1.0; ///< how much taller than wide the root's units are shown; viewBox is stretched already
    QStringList warnings;

    bool isKnown() const { return !size.isEmpty(); }

    /// What percentages at the root are relative to.
    QSizeF viewport() const;
};

/// Works the size out of the root's width, height, viewBox and preserveAspectRatio. A viewBox of other proportions than
/// the size is widened to them (or cut, or stretched, as the file asks), so the two always agree.
DIO_SvgSize DIO_readSvgSize(const DIO_XmlNode& root);
