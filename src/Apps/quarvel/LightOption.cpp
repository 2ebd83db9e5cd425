// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two numbers and what they mean.
#include "LightOption.h"

#include "OptionValues.h"

#include <cmath>
#include <numbers>

UT_Result<LightAngles> parseLight(const QString& option, const QString& value)
{
    const QStringList angles = value.split(QLatin1Char(','));
    if (angles.size() != 2)
        return UT_Error{QStringLiteral("%1 takes two angles in degrees, around and above, such as 135,45, not \"%2\"")
                            .arg(option, value)};
    const auto azimuth = parseNumber(option + QStringLiteral(" (the first, around)"), angles[0], -360.0, 360.0);
    if (!azimuth)
        return azimuth.error();
    const auto height = parseNumber(option + QStringLiteral(" (the second, above)"), angles[1], 0.0, 90.0);
    if (!height)
        return height.error();
    return LightAngles{*azimuth, *height};
}

NM_LightingSettings lightingOf(const LightAngles& angles)
{
    NM_LightingSettings settings;
    settings.lights = {NM_Light{.azimuth = angles.azimuth, .height = angles.height}};
    settings.ambient.fill(static_cast<float>(1.0 - std::sin(angles.height * std::numbers::pi / 180.0)));
    return settings;
}
