// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The heights that files of a run of frames have in common: a file of integers holds a range of heights, and a play of
// frames whose ranges differ would rise and sink where nothing moves.
#pragma once

#include "jobs/frames/RenderFrames.h"

/// The lowest and the highest of the heights of all frames of a run, and 0, the picture's plane. Equal frames are
/// rendered once.
///
/// @param settings of the run; its frames, parameters and atOnce count
/// @param watcher  of it, progress and stop are used
/// @return an error if a frame cannot be rendered or has no heights, or that watcher.stop said to stop
UT_Result<NM_HeightRange> heightRangeOf(const ShownModule& shown, const RenderFramesSettings& settings,
                                        const RenderFramesWatcher& watcher);
