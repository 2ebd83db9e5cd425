// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Moving pictures of one layer: GIF, WebP and animated PNG.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

/// Whether a picture file holds more than one picture, as far as its first bytes say. False for files that cannot be
/// read.
bool DIO_isMovingPicture(const QString& path);

/// Reads all pictures of a file. What kind it is follows from its contents.
UT_Result<DIO_BitmapLayers> DIO_readMovingPicture(const QString& path);
