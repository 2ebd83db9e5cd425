// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The light that a scene's lights make at a frame, for the computation. The window, films and lit pictures all ask
// here, so that they show the same.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"

class MO_Module;

/// The light of a rig: of the lights that are on, those that are solo where any is.
NM_LightingSettings lightingOf(const MO_LightRig& rig);

/// The light of the scene that a module belongs to, at a frame.
NM_LightingSettings sceneLighting(const MO_Module& module, double frame);

/// One light, whether it is on or not.
NM_Light lightOf(const MO_LightValues& values);
