// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which sprites of a sheet are frames of one animation, by their names.
#pragma once

#include "jobs/sheets/Sheet.h"

/// Sprites whose names differ in their last number alone ("walk_01.png", "walk_02.png") are frames of the animation
/// that is named without it. Those that nothing else is named like stay alone, and those that have an animation keep
/// it.
void nameAnimations(std::vector<SheetRegion>& regions);
