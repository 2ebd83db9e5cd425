// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of which so many lines cross the picture that Qt's painter would take minutes: it finds what a few rows show
// at a time, as its memory allows, and follows each line that touches them from end to end, also far outside the
// picture; and it looks for the place of each cell in a list of those of the row. Such outlines are filled from their
// coverage instead, which differs from the painter's by rounding.
#pragma once

#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <QPainterPath>

class QColor;
class QPainter;

/// Whether a painter would take more than a few milliseconds for 128 rows of a path, or half a second for all. This
/// does not depend on what is painted of it.
///
/// @param toPixel from the path's units to pixels
QUARVELCELCORE_EXPORT bool CELVEC_isCrowded(const QPainterPath& path, const QTransform& toPixel);

/// Fills a path as the painter does, with its transform, in a time that follows from the lengths of the outlines. The
/// painter's own clip is reset.
///
/// @param painter of an image
/// @param clip    what is painted of the path; null: all of it
/// @throws std::bad_alloc
void CELVEC_fillCrowded(QPainter& painter, const QPainterPath& path, const QPainterPath* clip, const QColor& paint);
