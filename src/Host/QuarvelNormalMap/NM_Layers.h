// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's output in named layers of floats, for compositing: vectors as they are, not packed into the range of a
// colour. The default layer R G B A may be the drawing, so that every program opens the file and shows it. And the
// elevation out of the blue channel, where the node puts it when it is told to (attribute DepthInBlue).
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

/// The names of the layers: R G B A when there is a drawing, "N.X", "N.Y", "N.Z", "elevation.Y" when there is one, and
/// "coverage.A".
QUARVELNORMALMAP_EXPORT QStringList NM_layerNames(bool drawing, bool elevation);

/// What the layers hold, as the metadata "Encoding" has it.
QUARVELNORMALMAP_EXPORT QString NM_layersEncoding(bool drawing, bool elevation);

/// A picture of floats with these layers. N is a vector of unit length, each component from -1 to 1, z towards the
/// viewer; it faces the viewer where the node gives no direction, also outside of its pixels. Elevation is 0 where
/// nothing is covered, coverage is clamped to 0 .. 1. Metadata: "Software", "Layout" (tangent), "Y" and "Encoding".
///
/// @param pixmap     the node's output with normals, in one of the two colour formats
/// @param frame      the rectangle that the picture shows, in the pixmap's coordinates
/// @param dataWindow the pixels to hold
/// @param elevation  the pixmap's blue channel holds the elevation, which becomes a layer
/// @param drawing    the painted drawing with associated colours in one of the two colour formats, or null; it becomes
/// R G B A, linear and multiplied by coverage (NM_LinearPicture.h)
/// @return an error when a window is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_layersPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                                                const Math::Box2di& dataWindow, NM_YAxis yAxis,
                                                                bool elevation,
                                                                const CEL_PixmapArea* drawing = nullptr);

/// The channels of a pixmap that elevation is read from.
enum class NM_ElevationChannel
{
    RED, ///< the node makes no normals: all of its picture is elevation
    BLUE ///< beside normals
};

/// The elevation as a picture with the channel Y, and with the coverage when it stands in blue: as A, and in a picture
/// of floats as "coverage.A", since A would make programs take heights for multiplied by it. 16-bit samples of float
/// pixels beside normals are dithered on slopes (NM_Dither.h). Metadata: "Software", and "Layout" with the value
/// "elevation". The other parameters are those of NM_layersPicture().
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_elevationOf(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel,
                                                              const Math::Box2di& frame, const Math::Box2di& dataWindow,
                                                              IIO_SampleType samples);
