// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Grey pictures for programs that light drawings: one value a pixel and no coverage, because programs read such
// pictures as numbers. Next to the silhouette the values continue, so that texture filtering mixes in values of the
// object itself.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

#include <functional>

/// A value from 0 to 1 for the covered pixel x, y, in the pixmap's coordinates. Several threads call it.
using NM_ValueOfPixel = std::function<float(int x, int y)>;

/// Makes a picture with the channel Y: the values of covered pixels, of uncovered ones the value of the nearest covered
/// pixel up to a distance (NM_padColours), and a fixed value beyond it. Without metadata.
///
/// @param coverage colours with coverage (RGBA, 16 bits or float)
/// @param frame    the rectangle that the picture shows, in the pixmap's coordinates
/// @param beyond   the value of the surroundings, 0 to 1
/// @param pad      the distance in pixels
/// @return an error if the frame is empty, a picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_maskPicture(const CEL_PixmapArea& coverage, const Math::Box2di& frame,
                                                              IIO_SampleType samples, const NM_ValueOfPixel& value,
                                                              float beyond, int pad);

/// The same of a drawing that was painted in values instead of colours, each in two parts because colours have 8 bits:
/// red holds the value, and green what is missing in it, in 255ths of a step of 1/255.
///
/// @param isInverted 1 - the value instead, for programs that take roughness instead of gloss
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_paintedMaskPicture(const CEL_PixmapArea& painted,
                                                                     const Math::Box2di& frame, IIO_SampleType samples,
                                                                     bool isInverted, int pad);
