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
#include <optional>

/// Which scene a folder held at one moment: a digest of its files' names and bytes.
struct SIO_SceneState
{
    QByteArray digest;

    friend bool operator==(const SIO_SceneState&, const SIO_SceneState&) = default;
};

/// A scene that was loaded.
struct SIO_LoadedScene
{
    std::unique_ptr<MO_Scene> scene;
    QStringList warnings; ///< what this version does not understand, a line each, for people to read
    SIO_SceneState state; ///< of the folder, as it was read
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
/// @return the folder's new state; an error, and the scene on disk is as it was
QUARVELSCENEIO_EXPORT UT_Result<SIO_SceneState> SIO_saveScene(const MO_Scene& scene, const QString& folder);

/// True for a folder that is there and empty, but for what a save left that was cut short before it counted: a new
/// scene can be saved there and takes nothing from anybody.
QUARVELSCENEIO_EXPORT bool SIO_isRoomForScene(const QString& folder);
/// True for a folder with a scene, or with a save that only has to be finished to make it one.
QUARVELSCENEIO_EXPORT bool SIO_holdsScene(const QString& folder);

/// Saves a scene as SIO_saveScene() does, unless somebody else saved another one into the folder meanwhile.
///
/// @param loaded the state that the scene was made from: of loading it, or of saving it before
/// @return the new state; nothing when the folder has another state than the one that was loaded, and then it keeps it
QUARVELSCENEIO_EXPORT UT_Result<std::optional<SIO_SceneState>>
SIO_saveSceneOver(const SIO_SceneState& loaded, const MO_Scene& scene, const QString& folder);
