// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A scene in words: what a person wants to know before changing or rendering it.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

/// How much is told of the attributes.
enum class DescribedAttributes
{
    CHANGED, ///< those that differ from a new module's
    ALL
};

/// The scene's frames, lights, modules with what flows into them and their attributes, elements with their drawings,
/// objects and palettes; lines in the form that "quarvel set" takes.
QString describeScene(const MO_Scene& scene, DescribedAttributes attributes);
