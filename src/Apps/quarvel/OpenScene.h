// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes for commands: the plug-ins are loaded first, so that the scene's modules are known, and what was not
// understood is said.
#pragma once

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Report.h"

/// Loads a scene, and reports its warnings.
///
/// @return an error that names the scene
UT_Result<SIO_LoadedScene> openScene(const QString& folder, Report& report);
