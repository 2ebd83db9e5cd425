// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A painted drawing as a picture for a file, or to be lit.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

#include <optional>

/// A picture with the channels R G B A and straight colours: the pixmap's associated ones divided by coverage, clamped
/// to 0 .. 1; black where nothing is covered. Metadata: "Software", and "Layout" with the value "drawing".
///
/// @param drawing a painted drawing in one of the two colour formats
/// @param frame   the rectangle that the picture shows, in the pixmap's coordinates
/// @param dataWindow the pixels to hold, when they are to be others than the frame's
/// @return an error when the frame is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture>
NM_drawingPicture(const CEL_PixmapArea& drawing, const Math::Box2di& frame, IIO_SampleType samples,
                  const std::optional<Math::Box2di>& dataWindow = std::nullopt);
