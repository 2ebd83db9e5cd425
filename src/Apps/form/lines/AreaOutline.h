// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AreaOutline: the outline of an area of cells as a smooth path, without the steps of the cells.
#pragma once

#include "form/raster/CellMask.h"

#include <QPainterPath>

/// The outline of a mask whose cells are connected, by edges or corners, in cells; holes are left out. It lies within
/// about a cell of the steps of the cells. Empty for a mask without covered cells.
QPainterPath outlineOf(const CellMask& mask);
