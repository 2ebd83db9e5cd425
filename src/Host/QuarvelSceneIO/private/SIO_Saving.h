// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Saves on a given disk, so that tests can pass one that fails.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/private/SIO_FileSystem.h"

/// Does what SIO_saveScene() does, with all changes going through the given disk.
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_saveSceneOn(const MO_Scene& scene, const QString& folder,
                                                      SIO_FileSystem& disk);
