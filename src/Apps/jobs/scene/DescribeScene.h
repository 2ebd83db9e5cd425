// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Describes a scene in words, for people who want to change or render it.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

/// How much is told of the attributes.
enum class DescribedAttributes
{
    CHANGED, ///< those that differ from a new module's
    ALL
};

/// The scene's frames, lights, modules with their inputs and attributes, elements with their drawings, objects and
/// palettes. Values are in the notation of "quarvel set".
QString describeScene(const MO_Scene& scene, DescribedAttributes attributes);
