// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Between NumPy's arrays and pictures.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "jobs/shown/ShownFrame.h"

#include <QImage>
#include <QStringList>

#include <pybind11/numpy.h>

#include <optional>

/// The layers of a rendered drawing or frame, as Python sees them.
struct Maps
{
    IIO_Picture layers; ///< N.X N.Y N.Z elevation.Y coverage.A
    QStringList warnings;
    // Where they are asked for, each with the channel Y; floats.
    std::optional<IIO_Picture> height = {};
    std::optional<IIO_Picture> occlusion = {};
    std::optional<IIO_Picture> numbers = {};
    std::optional<IIO_Picture> gloss = {};
};

/// The layers of a frame that was rendered with its elevation.
///
/// @return an error when the frame shows something else than normals
UT_Result<IIO_Picture> layersOf(const ShownFrame& frame);

/// Channels of a picture of floats as an array of its own: height x width x count, or height x width for one channel.
pybind11::array_t<float> channelsOf(const IIO_Picture& picture, int first, int count);

/// An array of height x width x 4 bytes with straight alpha as a picture of its own.
///
/// @return an error when the array has another shape or no pixels
UT_Result<QImage> imageOf(const pybind11::array_t<std::uint8_t, pybind11::array::c_style>& array);
