// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BitmapObjects: finds the objects that a bitmap, such as a sprite, shows. The steps, each in its own file:
//
//     QImage ──► Backdrop           what stands in front of plain paper is cut out
//            ──► LineArt            the areas inside drawn lines become paper
//            ──► OwnPicture         one cell for each drawn pixel, or a reduced picture
//            ──► BitmapRegions      areas of colour; lines and edges belong to the nearest area
//            ──► RegionGraph        measurements of the regions and of the seams between them
//            ──► RegionMerging      shading and marks join their body (InnerRegions judges what lies inside others)
//            ──► StackingOrder      which region lies over which, continues beneath it, and is round
//            ──► BitmapRoles        which region rises, sinks or stays flat
//            ──► ObjectPictures     a picture for each object
//            ──► FrameContinuation  objects that the picture's border cuts continue outside it
#pragma once

#include "form/ChosenObjects.h"

/// Whether a drawing consists of one unclipped picture, as the reader of bitmaps makes them.
bool isBitmap(const DIO_Drawing& drawing);

/// Finds the objects of a bitmap, at least one.
///
/// Moving or mirroring the picture, or enlarging it by a whole number, does not change its objects. Painted one over
/// the other, they show the bitmap, pixel for pixel.
/// @param drawing a drawing for which isBitmap() is true
/// @param page    the frame of the picture that shows the drawing (PageFrame.h)
ChosenObjects chooseBitmapObjects(const DIO_Drawing& drawing, const QRectF& page);
