// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pixels of a PNG: rows are filtered and pressed in bands, several at once. How a picture is cut into bands follows
// from its size alone, so that the bytes are the same on any number of threads.
#pragma once

#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <QImage>

#include <cstdint>
#include <vector>

/// What a PNG's header says of an image's form.
struct IIO_PngForm
{
    std::uint8_t bitDepth = 0;
    std::uint8_t colourType = 0; ///< 0 grey, 2 colours, 6 colours and coverage
    int channels = 0;            ///< that are written
    int imageChannels = 0;       ///< that lie side by side in the image
};

/// The form of an image.
///
/// @param image of the format RGBA64, RGBX64 (whose fourth channel is left out) or Grayscale16, or one of their kin of
/// 8 bits
IIO_PngForm IIO_pngFormOf(const QImage& image);

/// Presses the pixels of an image. Throws std::bad_alloc when memory lacks.
///
/// @param image not empty, of a format that IIO_pngFormOf knows
/// @return the zlib stream in parts, none of them empty
std::vector<std::vector<std::uint8_t>> IIO_pressPngPixels(const QImage& image, IIO_Compression compression);
