// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files of Krita (.kra): an archive with a text that lists the layers, "maindoc.xml", and the pixels of each paint
// layer in tiles.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

/// Reads a file: its visible paint layers, in RGB or grey of 8 or 16 bits. Layers of other kinds are left out, which is
/// said.
UT_Result<DIO_BitmapLayers> DIO_readKrita(const QString& path);
