// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ClosedAreas: the areas that the lines of a drawing enclose, such as the face inside a drawn circle. A gap in a line
// that is narrow compared with the picture counts as closed, and so does a wider one in the outline of a large area. An
// area that the border of the picture cuts is closed if that border is the smaller part of its outline, as the base of
// a bust is.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <QImage>
#include <QPainterPath>

#include <span>
#include <vector>

/// The outlines of the closed areas, in the drawing's units, the largest first. Each outline runs along the middle of
/// the lines around it; what lies inside an area, such as an eye, is not left out of it. Areas that are too small to
/// have a form are left out; if they make up a good part of what is enclosed, the lines are a pattern, and no area is
/// returned.
///
/// @param lines the shapes that are lines
/// @param frame the picture, not empty
std::vector<QPainterPath> closedAreas(std::span<const DIO_Shape* const> lines, const QRectF& frame);

/// The same for lines in a bitmap.
///
/// @param lines Alpha8: how much of each pixel lines cover
std::vector<QPainterPath> closedAreas(const QImage& lines);
