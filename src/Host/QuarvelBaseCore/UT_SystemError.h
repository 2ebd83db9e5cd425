// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Why the last call to the system failed, in the system's own numbers: errno, or GetLastError() on Windows. Each thread
// has its own. qt_error_string(number) makes words of it.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

/// The number of the last error. It means something only right after a call that failed: other calls may change it.
QUARVELBASECORE_EXPORT int UT_systemError();

/// Sets the number. 0 before a call that may fail without giving one, so that no earlier error is taken for its own; an
/// earlier number after calls that tidy up.
QUARVELBASECORE_EXPORT void UT_setSystemError(int error);

/// Whether a number of UT_systemError() means that there is no space left, on the disk or for this user.
QUARVELBASECORE_EXPORT bool UT_saysDiskIsFull(int error);
