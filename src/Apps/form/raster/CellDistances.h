// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellDistances: exact Euclidean distances between the centres of cells.
//
// The algorithm is that of P. Felzenszwalb, D. Huttenlocher, "Distance Transforms of Sampled Functions", Theory of
// Computing 8 (2012): the lower envelope of parabolas, along columns and then along rows.
#pragma once

#include "form/raster/CellMask.h"

#include <vector>

/// The squared distance of every cell of a box, row by row, to the nearest covered (or uncovered) cell inside the box.
/// If the box holds no such cell, all are larger than any distance.
std::vector<double> squaredDistances(const CellMask& mask, const QRect& box, bool toCovered);
