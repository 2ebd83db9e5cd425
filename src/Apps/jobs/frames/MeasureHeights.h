// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the range of heights that the frames of a run need in common. A picture of integers holds a range of heights;
// in an animation it must be the same for all frames, or the surface would seem to move up and down.
#pragma once

#include "QuarvelNormalMap/NM_HeightField.h"
#include "jobs/frames/RenderFrames.h"

/// Renders the frames and measures their heights (jobs/shown/SurfacePictures.h). Equal frames are rendered once.
///
/// @param settings the run that will write the heights; only its frames and parameters count
/// @param watcher  only progress and stop are called
/// @return the range from the lowest to the highest height of all frames; it contains 0, the picture's plane. An error
///         if a frame cannot be rendered or has no heights, of the kind STOPPED if the watcher stopped the run.
UT_Result<NM_HeightRange> measureHeights(const ShownModule& shown, const RenderFramesSettings& settings,
                                         const RenderFramesWatcher& watcher);
