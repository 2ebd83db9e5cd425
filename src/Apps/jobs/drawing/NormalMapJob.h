// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalMapJob: renders the pictures that people want of one drawing.
#pragma once

#include "jobs/drawing/DrawingScene.h"
#include "jobs/shown/ShownFrame.h"

#include <functional>

/// Told how much is done, from 0 to 1; returns whether to go on.
using JobProgress = std::function<bool(double done)>;

/// Renders a drawing with the loaded plug-in: the node's picture, and registered with it to the pixel what else is
/// wanted.
///
/// @return an error when the settings do not fit the drawing, the picture does not fit in memory, or progress said to
/// stop
UT_Result<ShownFrame> renderNormalMap(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const ShownParts& wanted, const JobProgress& progress = {});
