// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes on disk. A scene is a folder:
//
//     walk.scene/
//       scene.xml                      the graph with its attributes, and the list of palettes
//       palettes/<identifier>.xml      one palette each
//       elements/<element>/<drawing>.kvr   one drawing each
//
// All files are plain text with a stable order and stable formatting of numbers, so that saving changes only the parts
// of the files that were edited.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// Identifies the scene that a folder held at one moment: a digest of its files' names and bytes.
struct SIO_SceneState
{
    QByteArray digest;

    friend bool operator==(const SIO_SceneState&, const SIO_SceneState&) = default;
};

/// A scene that was loaded.
struct SIO_LoadedScene
{
    std::unique_ptr<MO_Scene> scene;
    QStringList warnings; ///< what this version does not understand, one line each, for people to read
    SIO_SceneState state; ///< the state of the folder when it was read
};

/// Called now and then with how much of a save or of reading is done, 0 to 1, by the thread that works; returning false
/// stops.
using SIO_Progress = std::function<bool(double done)>;

/// Loads a scene with its palettes and drawings. The factory must know the kinds of modules already (load the plug-ins
/// first); modules of unknown kinds are kept unchanged, with a warning.
///
/// @param folder the scene's folder
/// @param goOn   may be empty; begins again at 0 where another program saves the scene meanwhile
/// @return an error with file, line and reason if anything is damaged or missing, or of the kind STOPPED when goOn said
///         to stop; a scene is never loaded in part
QUARVELSCENEIO_EXPORT UT_Result<SIO_LoadedScene> SIO_loadScene(const QString& folder, const SIO_Progress& goOn = {});

/// Saves a scene. A crash, a full disk or a kill at any moment leaves either the complete old scene or the complete new
/// one. Processes that save at the same time wait for each other.
///
/// @param folder the scene's folder; created if it does not exist. Its parent must exist.
/// @param goOn   may be empty; the save cannot be stopped any more once it has taken effect
/// @return the folder's new state, or an error, of the kind STOPPED when goOn said to stop; after an error the scene on
///         disk is unchanged
QUARVELSCENEIO_EXPORT UT_Result<SIO_SceneState> SIO_saveScene(const MO_Scene& scene, const QString& folder,
                                                              const SIO_Progress& goOn = {});

/// True for an existing folder that is empty, apart from leftovers of a save that was interrupted before it took
/// effect: a new scene can be saved there without replacing anything.
QUARVELSCENEIO_EXPORT bool SIO_isRoomForScene(const QString& folder);
/// True for a folder with a scene, even a damaged one, or with a journal whose completion makes it one.
QUARVELSCENEIO_EXPORT bool SIO_holdsScene(const QString& folder);

/// Saves a scene as SIO_saveScene() does, unless another program has changed the scene in the folder meanwhile.
///
/// @param loaded the state when the scene was loaded or last saved
/// @param goOn   as for SIO_saveScene()
/// @return the new state; std::nullopt if the folder's state is not `loaded`, and then the folder is unchanged
QUARVELSCENEIO_EXPORT UT_Result<std::optional<SIO_SceneState>> SIO_saveSceneOver(const SIO_SceneState& loaded,
                                                                                 const MO_Scene& scene,
                                                                                 const QString& folder,
                                                                                 const SIO_Progress& goOn = {});
