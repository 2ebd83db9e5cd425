// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts colours to linear amounts of light, and the places of directional lights to angles.
#include "jobs/shown/SceneLighting.h"

#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

NM_LightColour colourOf(double red, double green, double blue, double intensity)
{
    const auto linear = [intensity](double encoded) {
        return NM_linearOfSrgb(static_cast<float>(encoded / 255.0)) * static_cast<float>(intensity);
    };
    return {linear(red), linear(green), linear(blue)};
}

} // namespace

NM_Light lightOf(const MO_LightValues& values)
{
    constexpr double kDegrees = 180.0 / std::numbers::pi;
    NM_Light light{.azimuth = std::atan2(values.y, values.x) * kDegrees,
                   .height = std::atan2(values.height, std::hypot(values.x, values.y)) * kDegrees,
                   .colour = colourOf(values.red, values.green, values.blue, values.intensity)};
    if (values.kind == MO_LightKind::POINT)
        light.place = NM_LightPlace{values.x, values.y, values.height, values.reach};
    return light;
}

NM_LightingSettings lightingOf(const MO_LightRig& rig)
{
    const bool anySolo =
        std::ranges::any_of(rig.lights, [](const MO_LightValues& light) { return light.on && light.solo; });
    NM_LightingSettings settings;
    settings.lights.clear();
    for (const MO_LightValues& light : rig.lights)
        if (light.on && (light.solo || !anySolo))
            settings.lights.push_back(lightOf(light));
    const MO_LightingValues& common = rig.common;
    settings.ambient = colourOf(common.ambientRed, common.ambientGreen, common.ambientBlue, common.ambientIntensity);
    settings.highlight = static_cast<float>(common.highlight);
    return settings;
}

NM_LightingSettings sceneLighting(const MO_Module& module, double frame)
{
    const MO_SceneCommon* const scene = module.sceneCommon();
    return lightingOf(scene ? scene->lighting().rig(frame) : MO_LightRig{});
}
