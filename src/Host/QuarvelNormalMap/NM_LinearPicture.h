// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts colours to what OpenEXR files hold: amounts of light (linear), multiplied by coverage. Every program that
// opens such a file expects this; it would show values encoded as sRGB too bright, and straight values with fringes.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// Makes a picture's colours linear and multiplies them by its alpha, in place.
///
/// @param picture floats, whose first four channels are R G B A, straight and encoded as sRGB
QUARVELNORMALMAP_EXPORT void NM_makeLinear(IIO_Picture& picture);

/// Makes a copy of a picture as floats, linear and multiplied by coverage, with the same windows and metadata.
///
/// @param picture samples of either type, channels R G B A, straight and encoded as sRGB
/// @return an error if the copy does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_linearPicture(const IIO_Picture& picture);
