// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's normals as a picture for a file.
//
// In the layout TANGENT a component n becomes 0.5 n + 0.5: in 16-bit samples the nearest of 0 .. 65535 (halves go up,
// so zero is 32768), in floats as it is. 16-bit samples of float pixels are dithered (NM_Dither.h), so that wide slopes
// have no steps; what faces the viewer is not. Coverage is clamped to 0 .. 1. Where the node gives no direction, also
// outside of its pixels, the vector faces the viewer.
//
// In the layout NODE channels are the node's own. A 16-bit channel v in 0 .. 32767 becomes the sample 2 v, plus 1 from
// 16384 up, which is the nearest to v / 32767 of full scale; shifting the sample right by one bit gives v back. What is
// negative becomes 0 in 16-bit samples and v / 32767 in floats. Float channels become floats as they are, and 16-bit
// samples rounded and clamped. A missing pixel is zero in all four.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

#include <optional>

/// What kind of picture to make of the normals.
struct NM_PictureSettings
{
    NM_Layout layout = NM_Layout::TANGENT;
    /// Without effect in the layout NODE, where y is down.
    NM_YAxis yAxis = NM_YAxis::UP;
    IIO_SampleType samples = IIO_SampleType::UINT16;
    /// The pixels to hold, when they are to be more than the frame's.
    std::optional<Math::Box2di> dataWindow = std::nullopt;
};

/// A picture with the channels R G B A and the metadata of its layout (NM_metadataOf). Rows are made in parallel.
///
/// @param pixmap the node's output with normals, in one of the two colour formats
/// @param frame  the rectangle that the picture shows, in the pixmap's coordinates
/// @return an error when the frame is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_toPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                                            const NM_PictureSettings& settings);
