// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameContinuation: what objects are beyond a picture's border. An object that the border cuts goes on there, so that
// its form does not end with the picture; one that merely touches the border ends at it.
#pragma once

#include "form/bitmap/pictures/FrameCuts.h"
#include "form/bitmap/pictures/ObjectPictures.h"

/// The border of a bitmap, where its cells are what was judged.
struct BitmapFrame
{
    QSize size; ///< in pixels
    PixelCells cells;
    FrameCuts cuts;
};

/// Repeats the outermost pixels of an object's picture beyond the border where that cuts it.
///
/// @param margin how far, in pixels
void continueBeyondFrame(ObjectPicture& picture, const BitmapFrame& frame, int margin);

/// Takes the outermost pixels off what an object is measured on, where it touches the border and ends there: at the
/// border of a picture no outline is seen.
void endAtFrame(ObjectPicture& picture, const BitmapFrame& frame);
