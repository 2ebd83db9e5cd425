// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings that repeat, as ground and walls do. The drawing is laid beside itself, once on either side: what crosses a
// border is whole then, is one object, and rises alike on both sides of it.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "jobs/drawing/DrawingScene.h"

/// How often a drawing is laid beside itself in a direction that it repeats in.
inline constexpr int kTileCopies = 3;

/// In which directions a drawing repeats.
struct Tiling
{
    bool x = false;
    bool y = false;

    bool isAny() const { return x || y; }
    int columns() const { return x ? kTileCopies : 1; }
    int rows() const { return y ? kTileCopies : 1; }
};

/// The drawing, laid beside itself; the one in the middle is the drawing as it was. A shape that
/// reaches over the picture's border goes on in the neighbour, where it meets the part that was drawn there.
DIO_Drawing tiled(const DIO_Drawing& drawing, const Tiling& tiling);

/// The settings that a tiled drawing is rendered with, so that its middle looks as they say of the drawing alone:
/// bevels and elevations count by the picture's width, which has grown. Values that are chosen from objects have grown
/// with it.
///
/// @param size of all copies together, as the drawing has it by nature
NormalMapSettings settingsForTiles(const NormalMapSettings& settings, const QSizeF& size, const Tiling& tiling);

/// The same for forms that were not chosen from the objects: those that the drawing or its folder gives, and all of
/// FormShape::RIM.
void shrinkGivenForms(LayeredDrawing& drawing, const Tiling& tiling, FormShape shape);

/// The pixels of the drawing alone.
Math::Box2di middleOf(const Math::Box2di& window, const Tiling& tiling);
