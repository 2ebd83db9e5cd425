// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelBaseCore/UT_DiskSync.h"

#include "QuarvelBaseCore/UT_NativePath.h"
#include "QuarvelBaseCore/UT_SystemError.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/vfs.h>
#endif
#ifdef Q_OS_WIN
#include <QFileInfo>
#include <qt_windows.h>
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
    const int reason = UT_systemError();
    ::close(descriptor);
    UT_setSystemError(reason);
    return synced;
}

#else

bool UT_syncDescriptor(int)
{
    return true;
}

#ifdef Q_OS_WIN
// Folders cannot be forced there.
bool UT_syncPath(const QString& path)
{
    if (QFileInfo(path).isDir())
        return true;
    const HANDLE handle =
        CreateFileW(UT_nativePath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    const bool synced = FlushFileBuffers(handle) != 0;
    const int reason = UT_systemError();
    CloseHandle(handle);
    UT_setSystemError(reason);
    return synced;
}
#else
bool UT_syncPath(const QString&)
{
    return true;
}
#endif

#endif

namespace {

// More than the files of most scenes, whose saving shall not wait for what other programs wrote.
constexpr qsizetype kMany = 64;

#ifdef Q_OS_LINUX

// File systems whose syncfs() promises what fsync() does for each file. Those that a program of the user serves (FUSE)
// are not told of it.
bool forcesAllAtOnce(int descriptor)
{
    constexpr std::array<std::uint32_t, 6> kKnown = {
        0x0000ef53U, // ext2, ext3, ext4
        0x58465342U, // XFS
        0x9123683eU, // Btrfs
        0xf2f52010U, // F2FS
        0x01021994U, // tmpfs
        0x794c7630U, // overlay
    };
    struct statfs status = {};
    return ::fstatfs(descriptor, &status) == 0 &&
           std::ranges::find(kKnown, static_cast<std::uint32_t>(status.f_type)) != kKnown.end();
}

bool syncFileSystemOf(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    const bool synced = forcesAllAtOnce(descriptor) && ::syncfs(descriptor) == 0;
    ::close(descriptor);
    return synced;
}

#else

bool syncFileSystemOf(const QString&)
{
    return false;
}

#endif

} // namespace

std::optional<QString> UT_syncPaths(const QStringList& paths)
{
    // Where that fails, the calls for each file find the one that it fails for.
    if (paths.size() > kMany && syncFileSystemOf(paths.first()))
        return std::nullopt;
    const auto missing = std::ranges::find_if_not(paths, &UT_syncPath);
    return missing == paths.end() ? std::nullopt : std::optional(*missing);
}
