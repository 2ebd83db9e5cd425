// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenEXR files: float channels of any names (a dot in a name makes a layer: "N.X"), a display and a data window, and
// metadata as string attributes. Errors of the OpenEXR library come back as texts; none of its exceptions gets out.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

/// Writes an OpenEXR file, whole or not at all. Of a picture of 16-bit samples, 0 .. 65535 becomes 0.0 .. 1.0.
///
/// @param path the file to make or replace
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_writeExr(const QString& path, const IIO_Picture& picture,
                                                   const IIO_WriteOptions& options);

/// Reads an OpenEXR file of one part as a picture of floats. Channels come as R G B A (those that are there), then the
/// others by name; string attributes become metadata.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_readExr(const QString& path);
