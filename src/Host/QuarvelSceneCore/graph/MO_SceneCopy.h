// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies of whole scenes and of single modules, for rendering in the background while the original is edited.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <memory>

/// A scene of its own that equals the one given. Modules, attributes, animation and links are new objects; drawings are
/// new ones that share their shapes; palettes are the same objects, so they must not be changed while the copy renders.
/// To be called on the scene's thread; the copy may then be used on another one.
QUARVELSCENECORE_EXPORT std::unique_ptr<MO_Scene> MO_copyScene(const MO_Scene& scene);

/// A module that equals the one given, not part of any graph, with drawings that are the same objects.
QUARVELSCENECORE_EXPORT std::unique_ptr<MO_Module> MO_copyModule(const MO_Module& module);
