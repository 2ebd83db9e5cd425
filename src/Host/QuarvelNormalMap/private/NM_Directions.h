// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The directions that light comes from.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"

#include <cmath>
#include <numbers>

/// A vector: x right, y up, z towards the viewer.
struct NM_LightDirection
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

/// The unit vector towards a distant light.
inline NM_LightDirection NM_directionTo(const NM_Light& light)
{
    constexpr double kDegree = std::numbers::pi / 180.0;
    const double flat = std::cos(light.height * kDegree);
    return {static_cast<float>(flat * std::cos(light.azimuth * kDegree)),
            static_cast<float>(flat * std::sin(light.azimuth * kDegree)),
            static_cast<float>(std::sin(light.height * kDegree))};
}

/// The unit vector halfway between the light and the viewer, who is on the z axis. For a light exactly behind the
/// picture there is no such direction; the result is zero, so that the light makes no highlight.
inline NM_LightDirection NM_halfwayTo(const NM_LightDirection& light)
{
    const float z = light.z + 1.0F;
    const float length = std::sqrt(light.x * light.x + light.y * light.y + z * z);
    if (length < 1e-6F)
        return {};
    return {light.x / length, light.y / length, z / length};
}
