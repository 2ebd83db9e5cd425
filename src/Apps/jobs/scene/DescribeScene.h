// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Describes a scene in words, for people who want to change or render it.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QJsonObject>
#include <QStringList>

/// The names of all modules of a scene, those in groups after their group.
QStringList moduleNames(const MO_Scene& scene);

/// How much is told of the attributes.
enum class DescribedAttributes
{
    CHANGED, ///< those that differ from a new module's
    ALL
};

/// The scene's frames, lights, modules with their inputs and attributes, elements with their drawings, objects and
/// palettes. Values are in the notation of "quarvel set".
QString describeScene(const MO_Scene& scene, DescribedAttributes attributes);

/// The same for scripts: firstFrame, lastFrame, frameRate, frameWidth, frameHeight; lights, modules with their inputs
/// and attributes, and what is rendered unless another module is named. Values are in the words that "quarvel set"
/// takes.
QJsonObject sceneFields(const MO_Scene& scene, DescribedAttributes attributes);
