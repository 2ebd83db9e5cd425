// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings that repeat, such as ground and walls. The drawing is repeated once on each side. A shape that crosses a
// border is then complete, is one object, and has the same form on both sides of the border.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "jobs/drawing/DrawingScene.h"

/// The number of copies in a direction in which the drawing repeats.
inline constexpr int kTileCopies = 3;

/// The directions in which a drawing repeats.
struct Tiling
{
    bool x = false;
    bool y = false;

    bool isAny() const { return x || y; }
    int columns() const { return x ? kTileCopies : 1; }
    int rows() const { return y ? kTileCopies : 1; }
};

/// Repeats the drawing; the copy in the middle shows the drawing of the file, completed at its borders. A shape that
/// crosses the picture's border continues in the neighbouring copy, where it meets the part that was drawn there.
DIO_Drawing tiled(const DIO_Drawing& drawing, const Tiling& tiling);

/// The settings for rendering a repeated drawing, so that its middle looks as the given settings say for a single copy:
/// bevels and elevations are relative to the picture's width, which has grown. Values that are chosen from the objects
/// need no correction.
///
/// @param size the natural size of all copies together
NormalMapSettings settingsForTiles(const NormalMapSettings& settings, const QSizeF& size, const Tiling& tiling);

/// The same for forms that are not chosen from the objects: values that the drawing or its folder gives, and all values
/// with FormShape::RIM.
void shrinkGivenForms(LayeredDrawing& drawing, const Tiling& tiling, FormShape shape);

/// The rectangle of the middle copy.
Math::Box2di middleOf(const Math::Box2di& window, const Tiling& tiling);
