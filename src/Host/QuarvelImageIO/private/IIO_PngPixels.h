// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pixels of a PNG: rows are filtered and compressed in bands, several bands in parallel. The division into bands
// depends only on the picture's size and format, so that the bytes are the same for any number of threads.
#pragma once

#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <QImage>

#include <cstdint>
#include <vector>

/// The form of an image as a PNG's header describes it.
struct IIO_PngForm
{
    std::uint8_t bitDepth = 0;
    std::uint8_t colourType = 0; ///< 0 grey, 2 colours, 6 colours and coverage
    int channels = 0;            ///< the written ones
    int imageChannels = 0;       ///< those in the image's memory
};

/// The form of an image.
///
/// @param image in the format RGBA64, RGBX64 (whose fourth channel is not written) or Grayscale16, or the corresponding
/// format with 8 bits
IIO_PngForm IIO_pngFormOf(const QImage& image);

/// Compresses the pixels of an image. Throws std::bad_alloc if there is not enough memory.
///
/// @param image not empty, in a format of IIO_pngFormOf()
/// @return the zlib stream in parts, none of them empty
std::vector<std::vector<std::uint8_t>> IIO_compressPngPixels(const QImage& image, IIO_Compression compression);
