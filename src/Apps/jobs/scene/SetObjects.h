// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes the values of single objects of a scene, in the words of ObjectWords.h. Bevel, elevation and smoothness stand
// in the object tables of the scene's Vallorin nodes, the rest in the Object Definitions; all that is not spoken of
// stays.
//
// An object is called as the elements of its drawings are, and as its Object Definition is.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/drawing/NormalMapSettings.h"

/// Changes the scene by undoable commands. Whatever is wrong with one of the wishes, nothing changes.
///
/// @return the numbers of the objects that have other values than before; an error that says which objects there are
UT_Result<std::vector<int>> setObjectsInScene(MO_Scene& scene, CO_CommandStack& stack, const ObjectWishes& wishes);
