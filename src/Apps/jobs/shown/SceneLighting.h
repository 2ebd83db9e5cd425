// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts the lights of a scene at a frame to the settings of the lighting model. The window, films and lit pictures
// all use this, so that they show the same.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"

class MO_Module;

/// The light of a rig: all lights that are on, or only the solo lights among them if there are any.
NM_LightingSettings lightingOf(const MO_LightRig& rig);

/// The light of the scene that a module belongs to, at a frame.
NM_LightingSettings sceneLighting(const MO_Module& module, double frame);

/// One light, on or off.
NM_Light lightOf(const MO_LightValues& values);
