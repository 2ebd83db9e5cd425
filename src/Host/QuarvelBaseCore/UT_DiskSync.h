// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Forces written files to the disk. Until the system confirms that, a crash of the machine can lose what was written,
// and a network disk may still report that it is full. A file's bytes and its name are stored separately, the name in
// the folder: code that renames a file into place forces the file first and its folder afterwards.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QStringList>

#include <optional>

/// Waits until the disk has all that was written through a descriptor. A call that a signal cut short is made again.
/// File systems that cannot be forced to write count as having written.
///
/// @return false when the disk does not have it; UT_systemError() says why
QUARVELBASECORE_EXPORT bool UT_syncDescriptor(int descriptor);

/// The same for a file or a folder by its path; the content of a folder is the names in it. Always true on systems
/// that have no such call for paths.
QUARVELBASECORE_EXPORT bool UT_syncPath(const QString& path);

/// The same for files and folders of one file system. Of many, a single call forces all of the file system, since the
/// disk takes milliseconds for each call, however little it writes.
///
/// @return the first path that the disk does not have, UT_systemError() says why; nothing when it has all of them
QUARVELBASECORE_EXPORT std::optional<QString> UT_syncPaths(const QStringList& paths);
