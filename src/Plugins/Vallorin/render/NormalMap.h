// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From an object's surface to its normals (VolumeModel.h).
//
// The normal at (x, y) is that of the plane through its four neighbours: the cross product of (2, 0, zRight - zLeft)
// and (0, 2, zBelow - zAbove), normalised. Medium and high quality average it with that of the four diagonal
// neighbours, where all of them exist. A pixel that lacks one of its four neighbours has no slope: its normal is the
// zero vector, stored as the middle of both channels.
//
// High quality smooths the stored normals with a small binomial filter on the vectors: 1/4 for the pixel itself, 1/8
// for its four neighbours, 1/16 for its diagonals, where there is a normal; R and G become the normalised sum, B and A
// stay unchanged. A pixel without any normal in its neighbourhood stays unchanged.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "parameters/eNormalQuality.h"
#include "render/ElevationSurface.h"

#include <functional>

/// Fills a pixmap with the normals of a surface, of the surface's rectangle: R and G the normal, B the elevation, A
/// full. A pixel whose depth is black is empty: (0, 0, full, 0).
///
/// @param normals its size and canvas stay unchanged; its pixels are replaced
/// @param quality a value of eNormalQuality; any other counts as MEDIUM_NORMAL_QUALITY
template<typename Pixel>
void buildNormals(const ElevationSurface& surface, int quality, CEL_PixmapOf<Pixel>& normals);

/// What is done with a band of rows of a result.
using TakeBand = std::function<void(const UT_SharedPtr<CEL_PixmapArea>&)>;

/// The same in bands of rows, from the top, of which only one is in memory at a time.
///
/// @param like has the size and canvas of the bands
/// @param rows of a band, at least 1; the last one may have fewer
template<typename Pixel>
void buildNormalBands(const ElevationSurface& surface, int quality, const CEL_PixmapArea& like, int rows,
                      const TakeBand& take);
