// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalMapJob: renders the pictures of one drawing.
#pragma once

#include "jobs/drawing/DrawingScene.h"
#include "jobs/shown/ShownFrame.h"

#include <functional>

/// Receives the finished part, from 0 to 1; returns whether to continue.
using JobProgress = std::function<bool(double done)>;

/// Renders a drawing with the loaded plug-in: the node's picture and the other wanted parts, all with the same pixel
/// coordinates.
///
/// @param atOnce how many drawings are rendered at the same time; each may take its share of the memory
/// @return an error if the settings do not fit the drawing, the picture does not fit in memory, or progress returned
/// false
UT_Result<ShownFrame> renderNormalMap(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const ShownParts& wanted, const JobProgress& progress = {}, int atOnce = 1);
