// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BitmapObjects: from a bitmap, a sprite say, to the objects that it shows. The steps, each in its own file:
//
//     QImage ──► OwnPicture         in its drawn pixels, or reduced
//            ──► BitmapRegions      areas of colour; lines and edges go to the nearest
//            ──► RegionGraph        what is known of regions and seams
//            ──► RegionMerging      shading and marks join their body
//            ──► StackingOrder      what lies over what, and goes on beneath it
//            ──► BitmapRoles        what rises, what sinks, what stays flat
//            ──► ObjectPictures     a picture an object
//            ──► FrameContinuation  what the picture's border cuts goes on beyond it
#pragma once

#include "form/ChosenObjects.h"

/// Whether a drawing is one picture and nothing else, as bitmaps are read.
bool isBitmap(const DIO_Drawing& drawing);

/// The objects of a bitmap, one at least where anything is covered.
///
/// The same picture moved, mirrored or enlarged by whole numbers has the same objects. Painted one over the other they
/// are the bitmap, pixel for pixel.
/// @param drawing one for which isBitmap()
ChosenObjects chooseBitmapObjects(const DIO_Drawing& drawing);
