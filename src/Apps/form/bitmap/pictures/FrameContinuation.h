// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameContinuation: what objects look like outside the picture's border. An object that the border cuts continues
// there, so that its form does not end with the picture; an object that merely touches the border ends there.
#pragma once

#include "form/bitmap/pictures/FrameCuts.h"
#include "form/bitmap/pictures/ObjectPictures.h"

/// The border of a bitmap; the cuts are given for its cells.
struct BitmapFrame
{
    QSize size; ///< in pixels
    PixelCells cells;
    FrameCuts cuts;
};

/// Repeats the outermost pixels of an object's picture outside the border where the border cuts it.
///
/// @param margin how far, in pixels
void repeatBeyondFrame(ObjectPicture& picture, const BitmapFrame& frame, int margin);

/// Removes the outermost pixels from the picture that an object is measured on where the object touches the border and
/// ends there. Without this gap, measuring would see no outline at the border.
void endAtFrame(ObjectPicture& picture, const BitmapFrame& frame);
