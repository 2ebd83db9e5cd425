// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Padding: colours grown past the silhouette, so that texture filtering near an edge mixes in more of the same and not
// the empty surroundings.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// Gives every pixel without coverage the colour of the nearest covered one, where that is at most so many pixels away
/// (between the pixels' centres, in a straight line). Coverage, covered pixels and pixels farther away keep their
/// values. Of equally near pixels the same one is always taken. The time does not depend on the distance; the memory is
/// four bytes a pixel.
///
/// @param picture  with the channels R G B A
/// @param distance in pixels; 0 or less changes nothing
QUARVELNORMALMAP_EXPORT void NM_padColours(IIO_Picture& picture, int distance);
