// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Painting of a flattened document on the recording device.
#pragma once

#include "QuarvelDrawingIO/private/DIO_ShapeSink.h"
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include <QByteArray>
#include <QPainterPath>
#include <QRectF>

#include <optional>

/// Records what a flattened document paints.
///
/// @param stretchY what heights are multiplied by
/// @param undashed gets how many lines were too finely dashed
/// @return false when the SVG library cannot read the document
bool DIO_recordSvg(const QByteArray& document, double stretchY, DIO_ShapeSink& sink, int& undashed);

/// The average colour of what a flattened document paints in a rectangle, with the share that it covers as alpha.
QColor DIO_averageOfSvg(const QByteArray& document, const QRectF& tile, const std::vector<DIO_PaintServer>& servers);

/// The areas that a flattened document paints, together. None when there are pictures among them, whose gaps are no
/// areas.
std::optional<QPainterPath> DIO_areaOfSvg(const QByteArray& document, const std::vector<DIO_PaintServer>& servers);

/// The share of a rectangle that an area within it covers, 0 to 1, to about a thousandth.
double DIO_shareOf(const QPainterPath& area, const QRectF& place);

/// The rectangle around what a flattened document paints; an empty one when it paints nothing.
QRectF DIO_boundsOfSvg(const QByteArray& document);
