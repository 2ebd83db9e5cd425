// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The paths that stand in a scene's files. They are relative to the scene's folder and cannot leave it, so that a scene
// can be moved, and one from a stranger opens nothing but itself.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QString>

/// The path of a file within a folder.
///
/// @param relative parts of plain names between single slashes
/// @return an error when it is empty, absolute, or has a part that is empty, ".", "..", ends in a dot or a space, or
/// holds a backslash, a colon or a control character
QUARVELSCENEIO_EXPORT UT_Result<QString> SIO_pathInside(const QString& folder, const QString& relative);
