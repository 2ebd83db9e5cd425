// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes for targets.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QByteArray>
#include <QMap>

#include <memory>

/// A small scene: two objects, a Vallorin node, a light.
std::unique_ptr<MO_Scene> makeFuzzScene();

/// The bytes of a scene's files; ends the program where the scene cannot be saved.
QMap<QString, QByteArray> filesOf(const MO_Scene& scene);

/// Loads the scene in a folder of fuzzFolder(), which changes no file there, a journal that lies in it or not. Where it
/// can be loaded, what is saved of it has the same bytes after another load.
void checkSceneIn(const QString& folder);
