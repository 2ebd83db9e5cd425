// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Saving on a disk that is given: tests have one that fails.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/private/SIO_FileSystem.h"

/// SIO_saveScene() by way of a disk.
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_saveSceneOn(const MO_Scene& scene, const QString& folder,
                                                      SIO_FileSystem& disk);
