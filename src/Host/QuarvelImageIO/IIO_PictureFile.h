// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Picture files of all formats: the file's suffix determines the format. Each format is one row of the table in
// IIO_PictureFile.cpp; a new format needs one more row.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <vector>

/// A file format of pictures.
struct IIO_PictureFormat
{
    /// The suffix of the file's name, lower case, without the dot.
    QString suffix;
    /// The type of samples that holds all that the format can store. Use it for pictures that will be written in the
    /// format.
    IIO_SampleType samples = IIO_SampleType::UINT16;
    int bitsPerChannel = 16;
    /// False: the coverage is not written, and colours are written as if it were full.
    bool alpha = true;
    /// False: the metadata are not written.
    bool texts = true;
    /// False: a sample that is read back may differ from the one written by more than the rounding to its bits.
    bool exact = true;
};

/// The formats that can be written on this machine: png, exr, and the 8-bit ones that Qt offers (jpg, jpeg, bmp, webp).
QUARVELIMAGEIO_EXPORT const std::vector<IIO_PictureFormat>& IIO_pictureFormats();

/// The format of a path by its suffix, in upper or lower case, or an error that lists the known suffixes.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_PictureFormat> IIO_pictureFormatOf(const QString& path);

/// True if the path's suffix names a format whose samples are floats.
QUARVELIMAGEIO_EXPORT bool IIO_isFloatFile(const QString& path);

/// Whether a file ends as its format requires, so that it is not truncated. Checks only formats whose readers accept
/// truncated files, by the last bytes; true for the other formats.
QUARVELIMAGEIO_EXPORT bool IIO_hasEnd(const QString& path);

/// Writes a picture in the format of the path's suffix, completely or not at all. In 8-bit formats a sample becomes the
/// nearest of 256 steps.
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_write(const QString& path, const IIO_Picture& picture,
                                                const IIO_WriteOptions& options = {});

/// Reads a picture in any of the formats, as floats from exr and as 16-bit samples from all others.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_read(const QString& path);
