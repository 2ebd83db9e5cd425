// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files that anybody may have put there. A pipe keeps its reader waiting until somebody writes to it, and can be read
// once; a device such as /dev/zero never ends. What is read twice, or without a limit, has to be an ordinary file.
// Links are followed: what the user names may be a link.
//
// The kind is asked before the file is opened. Somebody who exchanges the file in between is not guarded against.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"
#include "QuarvelBaseCore/UT_Result.h"

#include <QFile>

/// @return an error for a folder, a pipe or a device; it does not name the file
QUARVELBASECORE_EXPORT UT_Result<void> UT_checkPlainFile(const QString& path);

/// Opens a file for reading.
///
/// @return an error that says why not; it does not name the file
QUARVELBASECORE_EXPORT UT_Result<void> UT_openPlainFile(QFile& file);
