// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How many frames may be rendered at once without asking for more memory than was allowed.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/rendering/RD_RenderParameters.h"

/// About how many bytes one frame takes while it is rendered and written:
///
///     width x height x (10 x bytes of a pixel, 8 or 16 in float + 20 for the picture that is written)
///
/// The ten pixmaps are what exists at the worst moment of a normal map: an input, its clone, an accumulator, the mask,
/// the blur, the depth, a result, its smoothed copy, the output, and what spreads beyond the frame.
double frameBytes(const RD_RenderParameters& parameters);

/// How many frames may be rendered at once.
///
/// @param wanted at least 1: the frames at once when memory does not matter
/// @param budget in bytes
/// @return 1 to wanted; an error that says what is needed when one frame alone does not fit
UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double budget);
