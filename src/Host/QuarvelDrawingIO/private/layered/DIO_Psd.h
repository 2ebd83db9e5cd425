// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PSD files, and PSB files, which are the same with longer numbers: layers in groups, of 8 or 16 bits a channel, in RGB
// or grey. The format is described in its maker's "File Formats Specification".
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

/// Reads a file: its visible layers, with their masks; the whole picture where it has none.
UT_Result<DIO_BitmapLayers> DIO_readPsd(const QString& path);
