// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Computes how many frames may be rendered at once within the memory budget.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

/// How many frames may be rendered at once.
///
/// @param wanted the number of frames at once if memory does not limit it, at least 1
/// @param parameters the parameters of each frame, for the error message
/// @param needed the memory of one frame, in bytes (ShownMemory.h)
/// @param budget     in bytes
/// @return 1 to wanted; an error that names the needed memory if a single frame does not fit
UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double needed, double budget);
