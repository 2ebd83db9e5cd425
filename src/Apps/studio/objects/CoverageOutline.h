// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The outline of covered pixels.
#pragma once

#include "jobs/shown/InputCoverage.h"

#include <QPainterPath>

/// How a line goes around pixels.
enum class OutlineForm
{
    SLANTED, ///< through the middles of their edges, so that slanted outlines become slanted lines instead of steps
    STEPS    ///< along their edges
};

/// The outline in the coordinates of the coverage's picture, where a pixel is a square of side 1 with its upper left
/// corner at its own coordinates. It has one closed line for each connected area and for each hole in one; areas that
/// touch only at a corner are not connected.
QPainterPath outlineOf(const CoverageBits& coverage, OutlineForm form = OutlineForm::SLANTED);
