// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Between pictures and the images of Qt, which reads PNG files, and knows those of the 8-bit formats.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

#include <QImage>

/// The picture's display window as an image of 16 bits a channel, RGBA64 (RGBX64 without coverage) or Grayscale16, with
/// the metadata as its texts. It shares the picture's samples where those have the image's form already, so the picture
/// must outlive it unchanged.
///
/// @return an error for channels other than R G B A, R G B, Y A and Y, for an unfit metadata key, and when memory lacks
UT_Result<QImage> IIO_imageOf(const IIO_Picture& picture);

/// The image in 8 bits a channel, every sample to the nearest step, with its texts.
///
/// @param image of a form that IIO_imageOf makes
/// @param alpha keep coverage; if not, colours stay as they are
UT_Result<QImage> IIO_image8(const QImage& image, bool alpha);

/// A picture of 16-bit samples from an image of any form, with its texts as metadata.
UT_Result<IIO_Picture> IIO_pictureOf(const QImage& image);

/// Writes an image through Qt, whole or not at all.
///
/// @param format  Qt's name of the file format
/// @param quality as Qt's writer takes it for this format
UT_Result<void> IIO_writeImage(const QString& path, const QImage& image, const QByteArray& format, int quality);

/// Reads a file through Qt.
UT_Result<IIO_Picture> IIO_readImage(const QString& path, const QByteArray& format);
