// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values were chosen by eye on drawings of people, animals and signs. A preset's names of lights become part of the
// scene, so they are not translated: a scene is the same for everybody.
#include "jobs/scene/LightPresets.h"

namespace {

// A strong light from the upper left, and a low one from the right that emphasises the edge.
MO_LightRig keyAndRim()
{
    return {{.ambientRed = 150, .ambientGreen = 170, .ambientBlue = 210, .ambientIntensity = 0.35, .highlight = 0.1},
            {{.name = QStringLiteral("Key"), .x = -0.7, .y = 0.6, .height = 0.7, .green = 244, .blue = 229},
             {.name = QStringLiteral("Rim"),
              .x = 1.4,
              .y = 0.5,
              .height = 0.12,
              .red = 170,
              .green = 205,
              .intensity = 1.6}}};
}

// The sun is low on the right; only the sky lights the shadows.
MO_LightRig sunset()
{
    return {{.ambientRed = 120, .ambientGreen = 110, .ambientBlue = 190, .ambientIntensity = 0.6, .highlight = 0.15},
            {{.name = QStringLiteral("Sun"),
              .x = 1.3,
              .y = 0.35,
              .height = 0.4,
              .green = 150,
              .blue = 70,
              .intensity = 1.8},
             {.name = QStringLiteral("Sky"),
              .x = -0.4,
              .y = 0.9,
              .height = 1.2,
              .red = 150,
              .green = 130,
              .blue = 220,
              .intensity = 0.3}}};
}

// A fire is held in front of the picture.
MO_LightRig torch()
{
    return {{.ambientRed = 60, .ambientGreen = 80, .ambientBlue = 150, .ambientIntensity = 0.5, .highlight = 0.2},
            {{.name = QStringLiteral("Torch"),
              .kind = MO_LightKind::POINT,
              .x = -0.35,
              .y = 0.1,
              .height = 0.45,
              .reach = 0.8,
              .green = 176,
              .blue = 92,
              .intensity = 1.9}}};
}

} // namespace

std::vector<LightPreset> lightPresets()
{
    return {
        {QStringLiteral("standard"), QStringLiteral("Standard"), {}},
        {QStringLiteral("key-and-rim"), QStringLiteral("Key and Rim"), keyAndRim()},
        {QStringLiteral("sunset"), QStringLiteral("Sunset"), sunset()},
        {QStringLiteral("torch"), QStringLiteral("Torch"), torch()},
    };
}

std::optional<LightPreset> findLightPreset(const QString& keyword)
{
    for (LightPreset& preset : lightPresets())
        if (preset.keyword == keyword)
            return std::move(preset);
    return std::nullopt;
}
