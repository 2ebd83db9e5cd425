// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes the values of objects of a scene, in the words of ObjectWords.h. Bevel, elevation and smoothness are in the
// object tables of the scene's Vallorin nodes, the other values in the Object Definitions. Other values are unchanged.
//
// The names of an object are those of the elements of its drawings and that of its Object Definition.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/drawing/NormalMapSettings.h"
#include "jobs/scene/ChangedValue.h"

#include <vector>

/// Changes the scene by undoable commands. If any wish is invalid, nothing changes.
///
/// @return the values that changed, an object after the other; or an error that lists the existing objects
UT_Result<std::vector<ChangedValue>> setObjectsInScene(MO_Scene& scene, CO_CommandStack& stack,
                                                       const ObjectWishes& wishes);
