// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Islands: artists put both eyes, or all windows, into one path. Each of them is to be judged by itself, so a path of
// several areas that do not touch becomes as many shapes.
#pragma once

#include "form/raster/Grid.h"

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// A drawing in which every shape is one area. It shows the same. Shapes of very many areas, such as hatching, and
/// those that show a picture stay as they are.
DIO_Drawing splitIntoIslands(const DIO_Drawing& drawing, const Grid& grid);
