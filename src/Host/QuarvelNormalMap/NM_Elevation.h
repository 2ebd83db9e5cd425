// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's elevation as a grey picture, pixel for pixel over the normal map of the same run.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// A picture with the channel Y: 0 where nothing is, up to full at the highest elevation of each object. With a
/// coverage pixmap it has the channels Y A. Metadata: "Software", and "Layout" with the value "elevation". Channels
/// become samples as in the layout NODE of normal pictures (NM_NormalPicture.h).
///
/// @param elevation the node's output without normals, in one of the two colour formats; red is read
/// @param coverage  null, or the node's output with normals, of which alpha is read, clamped to 0 .. 1
/// @param frame     the rectangle that the picture shows, in the pixmaps' coordinates
/// @return an error when the frame is empty, the picture does not fit in memory or a pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_elevationPicture(const CEL_PixmapArea& elevation,
                                                                   const CEL_PixmapArea* coverage,
                                                                   const Math::Box2di& frame, IIO_SampleType samples);
