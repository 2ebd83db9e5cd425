// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Islands: artists put both eyes, or all windows, into one path. Each of them must be judged separately, so a path of
// several areas that do not touch is split into as many shapes.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "form/raster/CellMask.h"

#include <optional>
#include <vector>

/// A drawing whose shapes were split.
struct SplitDrawing
{
    DIO_Drawing drawing;
    /// By shape, in the order of painting: its cells on the grid, where they were looked at and it stayed whole.
    std::vector<std::optional<CellMask>> masks;
};

/// Splits the shapes of a drawing into shapes of one area each, which show the same. Shapes of very many areas, such as
/// hatching, and shapes that show a picture stay unchanged.
SplitDrawing splitIntoIslands(const DIO_Drawing& drawing, const Grid& grid);
