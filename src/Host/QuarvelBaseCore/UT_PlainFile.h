// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Opening files for reading, with one sentence for each reason why that fails, whatever the file is read as.
//
// A file may have been put there by anybody. A pipe keeps its reader waiting until somebody writes to it, and can be
// read once; a device such as /dev/zero never ends. What is read twice, or without a limit, has to be an ordinary file.
// Links are followed: what the user names may be a link.
//
// The kind is asked before the file is opened. Somebody who exchanges the file in between is not guarded against.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"
#include "QuarvelBaseCore/UT_Result.h"

#include <QFile>

/// Whether an ordinary file is there.
///
/// @return an error where nothing is, and for a folder, a pipe or a device; it does not name the file
QUARVELBASECORE_EXPORT UT_Result<void> UT_checkPlainFile(const QString& path);

/// Opens a file, a pipe or a device for reading. The caller reads it once, and with a limit.
///
/// @return an error that says why not; it does not name the file
QUARVELBASECORE_EXPORT UT_Result<void> UT_openFile(QFile& file);

/// The same for ordinary files alone.
QUARVELBASECORE_EXPORT UT_Result<void> UT_openPlainFile(QFile& file);
