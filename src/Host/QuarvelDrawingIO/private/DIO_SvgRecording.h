// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Painting of a flattened document on the recording device.
#pragma once

#include "QuarvelDrawingIO/private/DIO_ShapeSink.h"
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include <QByteArray>
#include <QRectF>

/// Records what a flattened document paints.
///
/// @param stretchY what heights are multiplied by
/// @param undashed gets how many lines were too finely dashed
/// @return false when the SVG library cannot read the document
bool DIO_recordSvg(const QByteArray& document, double stretchY, DIO_ShapeSink& sink, int& undashed);

/// The average colour of what a flattened document paints in a rectangle, with the share that it covers as alpha.
QColor DIO_averageOfSvg(const QByteArray& document, const QRectF& tile, const std::vector<DIO_PaintServer>& servers);

/// The rectangle around what a flattened document paints; an empty one when it paints nothing.
QRectF DIO_boundsOfSvg(const QByteArray& document);
