// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Islands: artists put both eyes, or all windows, into one path. Each of them must be judged separately, so a path of
// several areas that do not touch is split into as many shapes.
#pragma once

#include "form/raster/Grid.h"

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// Splits the shapes of a drawing into shapes of one area each, which show the same. Shapes of very many areas, such as
/// hatching, and shapes that show a picture stay unchanged.
DIO_Drawing splitIntoIslands(const DIO_Drawing& drawing, const Grid& grid);
