// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelBaseCore/UT_SystemError.h"

#include <QtGlobal>

#ifdef Q_OS_WIN

#include <qt_windows.h>

namespace {

// ERROR_DISK_QUOTA_EXCEEDED, which mingw's headers of Debian 12 lack.
constexpr int kDiskQuotaExceeded = 1295;

} // namespace

int UT_systemError()
{
    return static_cast<int>(GetLastError());
}

void UT_setSystemError(int error)
{
    SetLastError(static_cast<DWORD>(error));
}

bool UT_saysDiskIsFull(int error)
{
    return error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL || error == kDiskQuotaExceeded;
}

#else

#include <cerrno>

int UT_systemError()
{
    return errno;
}

void UT_setSystemError(int error)
{
    errno = error;
}

bool UT_saysDiskIsFull(int error)
{
    return error == ENOSPC || error == EDQUOT;
}

#endif
