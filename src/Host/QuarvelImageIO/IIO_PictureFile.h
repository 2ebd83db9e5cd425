// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Picture files of all formats: the format follows from the end of the file's name. All that is known of a format
// stands in one row of the table in IIO_PictureFile.cpp; a new format is one row more.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <vector>

/// A format that pictures are written in.
struct IIO_PictureFormat
{
    /// The end of a file's name, lower case, without dot.
    QString suffix;
    /// The samples with which nothing is lost: what to make a picture of that will be written in this format.
    IIO_SampleType samples = IIO_SampleType::UINT16;
    int bitsPerChannel = 16;
    /// False: coverage is left out and colours are written as if it were full.
    bool alpha = true;
    /// False: the texts of a picture are left out.
    bool texts = true;
};

/// The formats that can be written on this machine: png, exr, and the 8-bit ones that Qt offers (jpg, jpeg, bmp, webp).
QUARVELIMAGEIO_EXPORT const std::vector<IIO_PictureFormat>& IIO_pictureFormats();

/// The format of a path by the end of its name, in any case, or an error that lists the known ones.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_PictureFormat> IIO_pictureFormatOf(const QString& path);

/// True when a path names a format whose samples are floats.
QUARVELIMAGEIO_EXPORT bool IIO_isFloatFile(const QString& path);

/// Whether a file was written to its end, as far as that can be told without reading it all: what is cut off in a
/// format whose reader does not notice is found here. True for formats whose readers notice.
QUARVELIMAGEIO_EXPORT bool IIO_hasEnd(const QString& path);

/// Writes a picture in the format that the path's end names, whole or not at all. In 8-bit formats a sample becomes the
/// nearest of 256 steps.
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_write(const QString& path, const IIO_Picture& picture,
                                                const IIO_WriteOptions& options = {});

/// Reads a picture in one of the formats: floats from exr, 16-bit samples from all others.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_read(const QString& path);
