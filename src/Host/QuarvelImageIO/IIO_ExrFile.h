// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenEXR files: float channels with any names (a dot in a name makes a layer: "N.X"), a display and a data window, and
// metadata as string attributes. Exceptions of the OpenEXR library become errors.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelImageIO/IIO_WriteOptions.h"

/// Writes an OpenEXR file, completely or not at all. 16-bit samples 0 .. 65535 become 0.0 .. 1.0. Where it has layers
/// beside R G B A, an attribute for Krita hides them there.
///
/// @param path the file to make or replace
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_writeExr(const QString& path, const IIO_Picture& picture,
                                                   const IIO_WriteOptions& options);

/// Reads an OpenEXR file of one part as a picture of floats. The channels come as R G B A Y, as far as they exist (Y A
/// for a grey picture), then the others in alphabetical order. String attributes become metadata, but for the one
/// for Krita, which follows from the channels.
QUARVELIMAGEIO_EXPORT UT_Result<IIO_Picture> IIO_readExr(const QString& path);
