// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files of Aseprite (.aseprite, .ase): layers in groups, frames with times of their own, tile maps. The format is
// described by its maker in docs/ase-file-specs.md of that program's sources.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

/// Reads a file: visible layers with all frames. Links between frames are resolved.
UT_Result<DIO_BitmapLayers> DIO_readAseprite(const QString& path);
