// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PNG files with 16 bits a channel, or 8. Values arrive as they are: no gamma, no multiplication by coverage. Metadata
// goes into text chunks, which PNG readers hand back sorted by key.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

/// Writes a PNG file, whole or not at all.
///
/// Of a picture of floats, 0.0 .. 1.0 becomes 0 .. 65535, rounded to nearest and clamped; NaN becomes 0. What the data
/// window holds beyond the display window is left out, and what it lacks there becomes 0 in all channels. Grey with
/// coverage is written as four equal channels of colour and the coverage.
///
/// @param path    the file to make or replace
/// @param picture with the channels R G B A, R G B, Y A or Y
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_writePng(const QString& path, const IIO_Picture& picture,
                                                   const IIO_WriteOptions& options);

/// Reads a PNG file of any depth as a picture of 16-bit samples, with the channels R G B A, R G B or Y.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_readPng(const QString& path);
