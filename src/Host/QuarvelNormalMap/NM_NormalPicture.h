// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts the node's normals to a picture for a file.
//
// In the layout TANGENT a component n becomes 0.5 n + 0.5: floats hold this value, 16-bit samples the nearest of 0 ..
// 65535 (halves go up, so zero is 32768). 16-bit samples of float pixels are dithered (NM_Dither.h), so that wide
// slopes have no steps, unless the vector faces the viewer. Coverage is clamped to 0 .. 1. Where the node gives no
// direction, and outside the node's pixels, the vector faces the viewer.
//
// In the layout NODE channels are the node's own. A 16-bit channel v in 0 .. 32767 becomes the sample 2 v, plus 1 from
// 16384 up, which is the nearest to v / 32767 of full scale; shifting the sample right by one bit gives v back.
// Negative values become 0 in 16-bit samples; in floats every v becomes v / 32767. Float channels are stored unchanged
// in floats, and rounded and clamped in 16-bit samples. All four channels of a missing pixel are zero.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

#include <optional>

/// The properties of the picture.
struct NM_PictureSettings
{
    NM_Layout layout = NM_Layout::TANGENT;
    /// Ignored in the layout NODE, where y is always down.
    NM_YAxis yAxis = NM_YAxis::UP;
    IIO_SampleType samples = IIO_SampleType::UINT16;
    /// The stored pixels, if they are not the frame's.
    std::optional<Math::Box2di> dataWindow = std::nullopt;
};

/// Makes a picture with the channels R G B A and the metadata of its layout (NM_metadataOf). Works on rows in parallel.
///
/// @param pixmap the node's output with normals, in one of the two colour formats
/// @param frame  the rectangle that the picture shows, in the pixmap's coordinates
/// @return an error if the frame is empty, the picture does not fit in memory or the pixmap has no colours
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_toPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                                            const NM_PictureSettings& settings);
