// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_StrokeOutliner: makes a filled outline of a stroked path.
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QTransform>

/// Turns strokes into outlines: width, caps, joins, miter limit and dashes of the pen. The stroke is made in the path's
/// own coordinates and then transformed, so that a skewed transform skews the pen too; only the stroke of a cosmetic
/// pen (or one of width 0, which is 1 unit wide) is made after the transform.
///
/// Dashes are limited, per path and in total: where a file asks for more dashes than anybody can see, the line becomes
/// solid. One outliner serves one drawing.
class DIO_StrokeOutliner
{
public:
    /// The outline in device coordinates, to be filled by the winding rule. Empty when nothing would be painted.
    QPainterPath outline(const QPainterPath& path, const QPen& pen, const QTransform& toDevice);

    /// How many paths lost their dashes to the limits.
    int undashedPaths() const { return _undashed; }

private:
    bool affordsDashes(const QPainterPath& path, const QPen& pen, double width);

    double _dashesLeft = 1e6;
    int _undashed = 0;
};
