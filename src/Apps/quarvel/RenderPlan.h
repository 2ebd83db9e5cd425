// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a run of `quarvel render` is going to do: found in the scene and in the options before anything is rendered, so
// that whatever does not fit is said while there is still nothing to undo.
#pragma once

#include "RenderOptions.h"
#include "Report.h"
#include "jobs/frames/RenderFrames.h"
#include "jobs/shown/ShownFrame.h"

#include <memory>
#include <utility>
#include <vector>

/// Everything that a run needs. Each of the settings is for the same frames in the same size.
struct RenderPlan
{
    std::unique_ptr<ShownModule> shown;
    RenderFramesSettings settings;                                  ///< for the maps
    RenderFramesSettings lit;                                       ///< for the lit frames
    RenderFramesSettings drawing;                                   ///< for the drawings
    std::vector<std::pair<QString, RenderFramesSettings>> surfaces; ///< what goes beside the maps, with the file's name
    bool findsHeights = false; ///< the range of the heights is that of all frames, which the run has to find first
    double framesPerSecond = MO_Scene::kUsualFrameRate;
};

/// Whether the frames are normal maps of integers, whose form decides which programs light them correctly.
bool isIntegerMap(const FramePictureSettings& picture);

/// Makes the plan of a run. Warns about frames outside the scene and about what the wanted files cannot hold.
///
/// @param scene which must outlive the plan
/// @return an error for a node, a frame, a file or a size that cannot be had
UT_Result<RenderPlan> renderPlan(const MO_Scene& scene, const RenderOptions& options, Report& report);
