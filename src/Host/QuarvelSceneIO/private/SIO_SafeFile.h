// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading of files that came with a scene. A scene may come from anybody: a name in it can be a link to a file of
// somebody else's, a pipe on which a reader would wait for ever, or a device without an end. Only plain files below the
// scene's folder are read, through no link, and no more of them than a limit.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a file in a scene's folder.
///
/// @param folder the scene's folder; this path may lead through links, since a person named it
/// @param relative the path within it
/// @param maxBytes the most that the file may hold
/// @return nothing when there is no such file; an error when a part of the path below the folder is a link, when the
/// file is no plain file (a folder, a pipe, a device), is larger than the limit, or cannot be read
QUARVELSCENEIO_EXPORT UT_Result<std::optional<QByteArray>> SIO_readInside(const QString& folder,
                                                                          const QString& relative, qint64 maxBytes);

/// True when no part of a path below a scene's folder, as far as it exists, is a link. An empty path has no parts.
QUARVELSCENEIO_EXPORT bool SIO_hasNoLinks(const QString& folder, const QString& relative);
