// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Takes back what the blur spread beyond the drawing: a blurred pixel stays only where the unblurred mask has geometry
// within 2 pixels, so that the bevel ends at the outline with a little room for antialiasing.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Zeroes, in all four channels, the pixels of blurred in whose 5 x 5 neighbourhood mask has no pixel with a positive R
/// or G.
template<typename Pixel>
void clipWithGeometry(CEL_PixmapOf<Pixel>& blurred, const CEL_PixmapOf<Pixel>& mask);
