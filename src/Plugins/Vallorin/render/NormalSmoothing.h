// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Smooths a normal pixmap with a small binomial filter, on the vectors themselves.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// A copy of the normals in which R and G of every pixel hold the normalised weighted sum of the normals in its 3 x 3
/// neighbourhood: 1/4 for the pixel itself, 1/8 for its four neighbours, 1/16 for its diagonals, as far as there is a
/// normal. B and A stay. A pixel without any normal in its neighbourhood stays as it is. Every sample is read from the
/// unsmoothed pixmap.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> smoothNormals(const CEL_PixmapOf<Pixel>& normals);
