// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes the files of a scene, as bytes in memory.
#pragma once

#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QMap>

/// All files of a scene by their paths within its folder.
///
/// @param home the scene's folder, which the paths of sources are relative to; empty: they are absolute
/// @param goOn may be empty
/// @return an error when the scene holds what no file can hold, or when goOn said to stop
QUARVELSCENEIO_EXPORT UT_Result<QMap<QString, QByteArray>> SIO_sceneFiles(const MO_Scene& scene, const QString& home,
                                                                          const SIO_Progress& goOn = {});
