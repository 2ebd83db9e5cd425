// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Unions, intersections and differences of areas. Qt's path operations are exact enough for clips but slow on detailed
// paths, so rectangles, which most clips are, and areas that do not meet are combined without them. Very
// detailed areas are not combined at all; the functions then return no result.
#pragma once

#include "QuarvelDrawingIO/QuarvelDrawingIOExport.h"

#include <QPainterPath>

#include <optional>
#include <vector>

/// Whether a path is one rectangle with sides along the axes.
QUARVELDRAWINGIO_EXPORT bool DIO_isRectangle(const QPainterPath& path);

/// The area of a rectangle.
QUARVELDRAWINGIO_EXPORT QPainterPath DIO_rectangle(const QRectF& rect);

/// What lies in either area, in both, or in the first but not in the second. Nothing when they are too detailed.
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_united(const QPainterPath& a, const QPainterPath& b);
/// What lies in any of several areas. Where they are too detailed, they stay side by side in one path, which is filled
/// by the winding rule; where such parts overlap and run around in different ways, they may cancel each other.
QUARVELDRAWINGIO_EXPORT QPainterPath DIO_united(std::vector<QPainterPath> areas);
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_intersected(const QPainterPath& a, const QPainterPath& b);
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_subtracted(const QPainterPath& a, const QPainterPath& b);
