// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How many frames may be rendered at once without asking for more memory than was allowed.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

/// How many frames may be rendered at once.
///
/// @param wanted     at least 1: the frames at once when memory does not matter
/// @param parameters of each frame, for the error
/// @param needed     bytes that one frame takes (ShownMemory.h)
/// @param budget     in bytes
/// @return 1 to wanted; an error that says what is needed when one frame alone does not fit
UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double needed, double budget);
