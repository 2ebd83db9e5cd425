// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelBaseCore/UT_DiskSync.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

#ifdef Q_OS_UNIX

bool UT_syncDescriptor(int descriptor)
{
    int outcome = 0;
    do
        outcome = ::fsync(descriptor);
    while (outcome != 0 && errno == EINTR);
    return outcome == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

bool UT_syncPath(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    const bool synced = UT_syncDescriptor(descriptor);
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
    return synced;
}

#else

bool UT_syncDescriptor(int)
{
    return true;
}

bool UT_syncPath(const QString&)
{
    return true;
}

#endif
