// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts a painted drawing to a picture, for a file or for lighting.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

#include <optional>

/// Makes a picture with the channels R G B A and straight colours: the pixmap's associated colours divided by coverage,
/// clamped to 0 .. 1; transparent black for uncovered pixels. Metadata: "Software", and "Layout" with the value
/// "drawing".
///
/// @param drawing a painted drawing in one of the two colour formats
/// @param frame   the rectangle that the picture shows, in the pixmap's coordinates
/// @param dataWindow the stored pixels, if they are not the frame's
/// @return an error if the frame is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture>
NM_drawingPicture(const CEL_PixmapArea& drawing, const Math::Box2di& frame, IIO_SampleType samples,
                  const std::optional<Math::Box2di>& dataWindow = std::nullopt);
