// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's output in named layers of floats, for compositing: vectors with signed components, not packed into the
// range of a colour. The default layer R G B A may be the drawing, so that every program can open the file and show it.
// NM_elevationOf() makes a grey picture of the elevation alone, which the node stores in blue if its attribute
// DepthInBlue is set.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

/// The channels of the layers: R G B A if there is a drawing, "N.X", "N.Y", "N.Z", "elevation.Y" if there is an
/// elevation, and "coverage.A".
QUARVELNORMALMAP_EXPORT QStringList NM_layerNames(bool drawing, bool elevation);

/// The content of the layers in words, for the metadata "Encoding".
QUARVELNORMALMAP_EXPORT QString NM_layersEncoding(bool drawing, bool elevation);

/// Makes a picture of floats with these layers. N is a unit vector with components from -1 to 1, z towards the viewer;
/// it faces the viewer where the node gives no direction and outside the node's pixels. Elevation is 0 for uncovered
/// pixels; coverage is clamped to 0 .. 1. Metadata: "Software", "Layout" (tangent), "Y" and "Encoding".
///
/// @param pixmap     the node's output with normals, in one of the two colour formats
/// @param frame      the rectangle that the picture shows, in the pixmap's coordinates
/// @param dataWindow the stored pixels
/// @param elevation  the pixmap's blue channel holds the elevation, which becomes a layer
/// @param drawing    the painted drawing with associated colours in one of the two colour formats, or null; it becomes
/// R G B A, linear and multiplied by coverage (NM_LinearPicture.h)
/// @return an error if a window is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_layersPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                                                const Math::Box2di& dataWindow, NM_YAxis yAxis,
                                                                bool elevation,
                                                                const CEL_PixmapArea* drawing = nullptr);

/// The channels of a pixmap that elevation is read from.
enum class NM_ElevationChannel
{
    RED, ///< the node makes elevation only, no normals
    BLUE ///< the node makes normals with the elevation in blue
};

/// Makes a picture of the elevation in the channel Y. If the elevation comes from blue, the coverage is added as the
/// channel A, or in a picture of floats as "coverage.A", because programs would take elevations beside A for multiplied
/// by it. 16-bit samples from float normals are dithered on slopes (NM_Dither.h). Metadata: "Software", and "Layout"
/// with the value "elevation". The other parameters are those of NM_layersPicture().
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_elevationOf(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel,
                                                              const Math::Box2di& frame, const Math::Box2di& dataWindow,
                                                              IIO_SampleType samples);
