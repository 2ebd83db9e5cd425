// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where drawings came from, as it stands in a scene: relative to the scene's folder, so that a folder with drawings and
// scenes may be moved as a whole; absolute where there is no such path, as between the drives of Windows.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QString>

/// @param home the scene's folder; empty: the path stays absolute
QUARVELSCENEIO_EXPORT QString SIO_sourcePath(const QString& file, const QString& home);

/// The inverse, as an absolute path. Empty for a path that leads to another machine: a scene may come from anybody, and
/// opening it asks no server for anything.
QUARVELSCENEIO_EXPORT QString SIO_sourceFile(const QString& path, const QString& home);
