// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenRaster files (.ora), as GIMP, Krita and MyPaint write them: an archive of PNG files, and a text that says how
// they lie on each other. https://www.openraster.org
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

/// Reads a file: its visible layers.
UT_Result<DIO_BitmapLayers> DIO_readOpenRaster(const QString& path);
