// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellDistances: exact Euclidean distances between the centres of cells.
//
// P. Felzenszwalb, D. Huttenlocher, "Distance Transforms of Sampled Functions", Theory of Computing 8 (2012): the lower
// envelope of parabolas, along columns and then along rows.
#pragma once

#include "form/raster/CellMask.h"

#include <vector>

/// The squared distance of every cell of a box, row by row, to the nearest cell in it that is covered, or uncovered.
/// Where the box holds no such cell, a number larger than any distance.
std::vector<double> squaredDistances(const CellMask& mask, const QRect& box, bool toCovered);
