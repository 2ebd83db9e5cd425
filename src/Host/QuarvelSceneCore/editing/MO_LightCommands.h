// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of the lights of a scene.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

/// Changes the values of a light of the scene at a frame: an animated number gets a key there, any other one the value
/// at all frames. Consecutive commands that change the same values of the same light merge, as while it is dragged.
///
/// @param index the light's position in the list
/// @return null when nothing would change or there is no such light
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightCmd(MO_Scene& scene, std::size_t index, double frame,
                                                   const MO_LightValues& values);

/// Does the same with the common values of the lights.
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightingCmd(MO_Scene& scene, double frame, const MO_LightingValues& values);

/// Adds a light after the others. @return null when there are MO_Lighting::kMaxLights
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addLightCmd(MO_Scene& scene, const MO_LightValues& values);

/// Adds a light with the values and the keys of another one, after it. @return null when there is no such light, or
/// there are MO_Lighting::kMaxLights
QUARVELSCENECORE_EXPORT MO_EditCommand MO_duplicateLightCmd(MO_Scene& scene, std::size_t index);

/// Removes a light. @return null when there is no such light, or it is the last one
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeLightCmd(MO_Scene& scene, std::size_t index);

/// Replaces all lights and their common values; none of them is animated.
///
/// @param name the command's name
/// @return null when rig has no light
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightRigCmd(MO_Scene& scene, const QString& name, const MO_LightRig& rig);
