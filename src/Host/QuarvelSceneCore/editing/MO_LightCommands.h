// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of the lights of a scene.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

/// Gives a light of the scene other values at a frame: a number that is animated gets a key there, another one this
/// value at all frames. Commands that follow each other and change the same of the same light merge, as while the light
/// is dragged.
///
/// @param index of the light
/// @return null when nothing would change or there is no such light
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightCmd(MO_Scene& scene, std::size_t index, double frame,
                                                   const MO_LightValues& values);

/// Does the same with what the lights have in common.
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightingCmd(MO_Scene& scene, double frame, const MO_LightingValues& values);

/// Adds a light behind the others. @return null when there are MO_Lighting::kMaxLights
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addLightCmd(MO_Scene& scene, const MO_LightValues& values);

/// Adds a light with the values and the keys of another one, behind it. @return null when there is no such light, or
/// there are MO_Lighting::kMaxLights
QUARVELSCENECORE_EXPORT MO_EditCommand MO_duplicateLightCmd(MO_Scene& scene, std::size_t index);

/// Takes a light away. @return null when there is no such light, or it is the last one
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeLightCmd(MO_Scene& scene, std::size_t index);

/// Puts other lights in the place of all, with what they have in common; none of them is animated.
///
/// @param name of the command
/// @return null when rig has no light
QUARVELSCENECORE_EXPORT MO_EditCommand MO_lightRigCmd(MO_Scene& scene, const QString& name, const MO_LightRig& rig);
