// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The option --light: one white light from far away, by two angles.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelNormalMap/NM_Lighting.h"

#include <QString>

/// Where the light comes from, in degrees.
struct LightAngles
{
    double azimuth = 135.0; ///< counter-clockwise from the right: 135 is the upper left
    double height = 45.0;   ///< above the picture
};

/// "135,45".
UT_Result<LightAngles> parseLight(const QString& option, const QString& value);

/// The light with as much ambient light as it leaves of full light on a surface that faces the viewer.
NM_LightingSettings lightingOf(const LightAngles& angles);
