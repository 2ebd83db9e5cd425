// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What happens to shapes as a group: a mask cuts them, an opacity fades them together. The result is plain shapes
// again, whose clips and opacities say the same. All of them draw on what may be worked out for the whole drawing.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "QuarvelDrawingIO/private/DIO_CoverageLevels.h"

/// The area that a shape paints: its path within its clip.
QPainterPath DIO_paintedArea(const DIO_Shape& shape, DIO_PathWork* work = nullptr);

/// A rectangle around everything that shapes paint.
QRectF DIO_boundsOf(const std::vector<DIO_Shape>& shapes);

/// Cuts shapes down to what a mask lets through. A shape that crosses several levels of the mask becomes one for each;
/// its colour and the order of painting stay.
///
/// @return how many shapes were too detailed to be cut and are left whole
int DIO_cut(std::vector<DIO_Shape>& shapes, const DIO_CoverageLevels& mask, DIO_PathWork& work);

/// Cuts shapes down to an area.
int DIO_clip(std::vector<DIO_Shape>& shapes, const QPainterPath& area, DIO_PathWork& work);

/// Fades shapes as one picture: where one covers another, the lower one does not shine through, and the group is
/// nowhere more opaque than the opacity.
///
/// @return how many shapes are too detailed for that and are faded by themselves
int DIO_fade(std::vector<DIO_Shape>& shapes, double opacity, DIO_PathWork& work);
