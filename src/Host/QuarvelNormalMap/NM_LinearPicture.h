// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Colours as OpenEXR files hold them: amounts of light (linear), multiplied by coverage. Every program that opens such
// a file takes them so; values encoded as sRGB would be shown too bright, and straight ones would leave fringes.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// Changes a picture's first four channels.
///
/// @param picture floats, whose first four channels are R G B A, straight and encoded as sRGB
QUARVELNORMALMAP_EXPORT void NM_makeLinear(IIO_Picture& picture);

/// A picture of floats with the same windows and metadata, linear and multiplied by coverage.
///
/// @param picture of any samples with the channels R G B A, straight and encoded as sRGB
/// @return an error when it does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_linearPicture(const IIO_Picture& picture);
