// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The files of a run's frames, as the options name them.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "RenderOptions.h"
#include "jobs/frames/FrameFileName.h"

#include <cstddef>
#include <vector>

/// The names that an option gives to the files of several frames.
///
/// @param output what the option says
/// @param frames how many frames this run renders
/// @return an error for a name that ends in no picture format, or that all frames would share
UT_Result<FrameFileName> frameFileOf(const QString& output, const RenderOptions& options, std::size_t frames);

/// Checks that no picture, film or page of the run replaces another one, a drawing that the scene was made of or,
/// through a link, a file of the scene, and that a name with a frame's number in it, which nobody gave, is no link.
///
/// @return an error that names the options and the file
UT_Result<void> checkFrameFiles(const MO_Scene& scene, const RenderOptions& options, const std::vector<int>& frames);
