// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads files of a scene safely. A scene may come from anybody: a name in it can be a link to somebody else's file, a
// pipe on which a reader would wait for ever, or an endless device. These functions read only regular files below the
// scene's folder, do not follow links, and read no more than a limit.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a file in a scene's folder.
///
/// @param folder the scene's folder; this path may contain links, since a person named it
/// @param relative the path within it
/// @param maxBytes the most that the file may hold
/// @return std::nullopt if there is no such file; an error if a part of the path below the folder is a link, or if the
/// file is not a regular file (but a folder, a pipe, a device), is larger than the limit, or cannot be read
QUARVELSCENEIO_EXPORT UT_Result<std::optional<QByteArray>> SIO_readInside(const QString& folder,
                                                                          const QString& relative, qint64 maxBytes);

/// True if no part of a path below a scene's folder, as far as it exists, is a link. An empty path has no parts.
QUARVELSCENEIO_EXPORT bool SIO_hasNoLinks(const QString& folder, const QString& relative);
