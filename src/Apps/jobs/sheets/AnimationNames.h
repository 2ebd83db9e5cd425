// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the sprites of a sheet that are frames of one animation, by their names.
#pragma once

#include "jobs/sheets/Sheet.h"

/// Makes sprites whose names differ only in their last number ("walk_01.png", "walk_02.png") frames of one animation,
/// named by the name with "#" for the number. Sprites with unique names stay without an animation, and sprites that
/// have an animation keep it.
void nameAnimations(std::vector<SheetRegion>& regions);
