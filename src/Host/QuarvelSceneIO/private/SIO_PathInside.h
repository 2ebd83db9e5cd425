// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Checks the paths in a scene's files. They are relative to the scene's folder and cannot lead out of it, so that a
// scene can be moved, and a scene from a stranger cannot open other files.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QString>

/// Joins the path of a folder and a relative path inside it.
///
/// @param relative parts of plain names between single slashes
/// @return an error if it is empty, absolute, or has a part that is empty, ".", "..", ends in a dot or a space, or
/// holds a backslash, a colon or a control character
QUARVELSCENEIO_EXPORT UT_Result<QString> SIO_pathInside(const QString& folder, const QString& relative);
