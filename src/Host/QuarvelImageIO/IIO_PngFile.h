// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PNG files with 16 or 8 bits per channel. Values are stored unchanged: no gamma, no multiplication by coverage.
// Metadata are stored in text chunks, which readers of PNG return sorted by key.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

/// Writes a PNG file, completely or not at all.
///
/// Floats 0.0 .. 1.0 become 0 .. 65535, rounded to nearest and clamped; NaN becomes 0. Pixels outside the display
/// window are not written; missing pixels inside it become 0 in all channels. Grey with coverage is written as R G B A
/// with three equal colours.
///
/// @param path    the file to make or replace
/// @param picture with the channels R G B A, R G B, Y A or Y
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_writePng(const QString& path, const IIO_Picture& picture,
                                                   const IIO_WriteOptions& options);

/// The bytes of the file that IIO_writePng() writes.
QUARVELIMAGEIO_EXPORT UT_Result<QByteArray> IIO_pngBytes(const IIO_Picture& picture,
                                                         const IIO_WriteOptions& options = {});

/// Reads a PNG file of any depth as a picture of 16-bit samples, with the channels R G B A, R G B or Y.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_readPng(const QString& path);
