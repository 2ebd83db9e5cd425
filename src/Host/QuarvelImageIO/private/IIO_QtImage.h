// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts between pictures and Qt's images. Qt reads PNG files and reads and writes the 8-bit formats.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <QImage>

/// Converts a picture's display window to an image with 16 bits per channel, RGBA64 (RGBX64 without coverage) or
/// Grayscale16, with the metadata as its texts. The image shares the picture's samples if these have the same form, so
/// the picture must outlive it unchanged.
///
/// @return an error for channels other than R G B A, R G B, Y A and Y, for an invalid metadata key, and if there is not
/// enough memory
UT_Result<QImage> IIO_imageOf(const IIO_Picture& picture);

/// Converts an image to 8 bits per channel, every sample to the nearest step, and keeps its texts.
///
/// @param image an image from IIO_imageOf()
/// @param alpha keep the coverage; without it, the colours are unchanged
UT_Result<QImage> IIO_image8(const QImage& image, bool alpha);

/// Converts an image of any format to a picture of 16-bit samples, with its texts as metadata.
UT_Result<IIO_Picture> IIO_pictureOf(const QImage& image);

/// Writes an image through Qt, completely or not at all.
///
/// @param format  Qt's name of the file format
/// @param quality the quality setting of Qt's writer for this format
UT_Result<void> IIO_writeImage(const QString& path, const QImage& image, const QByteArray& format, int quality);

/// Reads a file through Qt.
UT_Result<IIO_Picture> IIO_readImage(const QString& path, const QByteArray& format);
