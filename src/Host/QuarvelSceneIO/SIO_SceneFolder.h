// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes on disk. A scene is a folder:
//
//     walk.scene/
//       scene.xml                      the graph with its attributes, and the list of palettes
//       palettes/<identifier>.xml      a palette each
//       elements/<element>/<drawing>.kvr   a drawing each
//
// All are plain text in a stable order with stable numbers, so that a saved scene differs only where it was changed.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QStringList>

#include <memory>

/// A scene that was loaded.
struct SIO_LoadedScene
{
    std::unique_ptr<MO_Scene> scene;
    QStringList warnings; ///< what this version does not understand, a line each, for people to read
};

/// Loads a scene with its palettes and drawings. The kinds of modules must be known to the factory before (load the
/// plug-ins first); others are kept as they are, with a warning.
///
/// @param folder the scene's folder
/// @return an error that names file, line and reason when something is damaged or missing; nothing is loaded half
QUARVELSCENEIO_EXPORT UT_Result<SIO_LoadedScene> SIO_loadScene(const QString& folder);

/// Saves a scene. A crash, a full disk or a kill at any moment leaves the old scene or the new one, whole; processes
/// that save at once wait for each other.
///
/// @param folder the scene's folder; made when it does not exist. Its parent must exist.
/// @return an error, and the scene on disk is as it was
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_saveScene(const MO_Scene& scene, const QString& folder);
