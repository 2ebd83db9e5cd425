// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The part of a run's plan that follows from the surface: heights, occlusion, object numbers and gloss.
#pragma once

#include "RenderPlan.h"

/// Adds what the options want of these to the plan: the same frames in the same size as the maps.
///
/// @param plan whose settings for the maps are complete
/// @return an error for a file that cannot hold what it is to hold, and where parts of a run would need each other's
///         heights
UT_Result<void> planSurfaces(const RenderOptions& options, RenderPlan& plan);
