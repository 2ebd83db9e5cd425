// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lights that somebody arranged already, to begin with.
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

/// All presets: standard (a new scene's lights), key-and-rim, sunset, torch.
std::vector<LightPreset> lightPresets();

/// The preset of this keyword.
std::optional<LightPreset> findLightPreset(const QString& keyword);
