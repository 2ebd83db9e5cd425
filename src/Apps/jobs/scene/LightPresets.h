// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Presets of lights to start with.
#pragma once

#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include <QStringList>

#include <optional>

/// A preset.
struct LightPreset
{
    QString keyword; ///< as on the command line
    QString label;   ///< for people, in English
    MO_LightRig rig;
};

/// All presets: standard (the lights of a new scene), key-and-rim, sunset, torch.
std::vector<LightPreset> lightPresets();

/// The preset with this keyword, if there is one.
std::optional<LightPreset> findLightPreset(const QString& keyword);
