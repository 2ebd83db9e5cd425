// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What was written is on the disk only when the system says so: until then a crash of the machine can take it back, and
// a network disk may still find out that it is full. A file's bytes and the name that it has in its folder are two
// questions; who renames a file into place asks both.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QStringList>

#include <optional>

/// Waits until the disk has all that was written through a descriptor. A call that a signal cut short is made again.
/// File systems that cannot be forced to write count as having written.
///
/// @return false when the disk does not have it; errno says why
QUARVELBASECORE_EXPORT bool UT_syncDescriptor(int descriptor);

/// The same for a file or a folder by its path; a folder's content are the names in it. Always true on systems that
/// have no such call for paths.
QUARVELBASECORE_EXPORT bool UT_syncPath(const QString& path);

/// The same for files and folders of one file system. Of many, a single call forces all of the file system, since the
/// disk takes milliseconds for each call, however little it writes.
///
/// @return the first path that the disk does not have, errno says why; nothing when it has all of them
QUARVELBASECORE_EXPORT std::optional<QString> UT_syncPaths(const QStringList& paths);

/// Whether an error of a system call (errno) means that there is no space left.
QUARVELBASECORE_EXPORT bool UT_saysDiskIsFull(int error);
