// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns a copy of an accumulator into the mask that is blurred (VolumeModel.h), cropped to what it holds.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// R becomes the value times the coverage, G and B 0, A full, on every pixel; then the pixmap is cropped to the pixels
/// whose value was positive and 2 pixels around them, new ones zero.
///
/// @return false, and nothing changes, when the pixmap holds no pixels at all
template<typename Pixel>
bool prepareMask(CEL_PixmapOf<Pixel>& pixmap);
