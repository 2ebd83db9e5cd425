// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Padding: continues colours outside the silhouette, so that texture filtering near an edge mixes in the same colours
// instead of the empty surroundings.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// Gives every uncovered pixel the colour of the nearest covered one if that is at most `distance` away (between the
/// pixels' centres, in a straight line). Coverage, covered pixels and pixels farther away stay unchanged. The choice
/// between equally near pixels is always the same. The time does not depend on the distance. The bands at work take
/// four bytes for each pixel of their rows and of those within the distance of them: at most eight for each pixel of
/// the picture.
///
/// @param picture  with the channels R G B A
/// @param distance in pixels; 0 or less changes nothing
QUARVELNORMALMAP_EXPORT void NM_padColours(IIO_Picture& picture, int distance);
