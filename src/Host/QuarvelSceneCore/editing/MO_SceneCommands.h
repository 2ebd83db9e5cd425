// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of a scene's frames and how fast they are played.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

/// Changes the frames that the scene consists of. @return null when nothing would change, or last < first
QUARVELSCENECORE_EXPORT MO_EditCommand MO_frameRangeCmd(MO_Scene& scene, int first, int last);

/// Changes the frame's height in scene units. @return null when nothing would change, or it is not a positive number
QUARVELSCENECORE_EXPORT MO_EditCommand MO_frameHeightCmd(MO_Scene& scene, double height);

/// Changes how many frames a second are played. @return null when nothing would change, or it is no rate
QUARVELSCENECORE_EXPORT MO_EditCommand MO_frameRateCmd(MO_Scene& scene, double rate);
