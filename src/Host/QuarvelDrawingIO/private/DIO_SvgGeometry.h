// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The outlines of the basic shapes as path data.
#pragma once

#include "QuarvelDrawingIO/private/DIO_XmlTree.h"

#include <QSizeF>

/// A number as path data.
QString DIO_number(double value);

/// The path data of a rectangle with round corners.
QString DIO_rectPath(double x, double y, double width, double height, double rx = 0.0, double ry = 0.0);

/// The path data of a path, rect, circle, ellipse, line, polygon or polyline; empty when it paints nothing or is none
/// of them.
QString DIO_shapePath(const DIO_XmlNode& shape, const QSizeF& viewport, double fontSize);
