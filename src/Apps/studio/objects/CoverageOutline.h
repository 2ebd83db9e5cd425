// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The line around what is covered. It runs through the middles of the edges between covered pixels and others, so that
// slanted outlines are slanted lines and not stairs.
#pragma once

#include "jobs/shown/InputCoverage.h"

#include <QPainterPath>

/// The outline in the coordinates of the coverage's picture, where a pixel is a square of side 1 with its upper left
/// corner at its own coordinates. One closed line for each connected area and for each hole in one; areas that touch at
/// a corner alone are not connected.
QPainterPath outlineOf(const CoverageBits& coverage);
