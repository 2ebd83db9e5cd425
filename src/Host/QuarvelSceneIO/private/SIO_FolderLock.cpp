// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lock of a scene's folder.
#include "QuarvelSceneIO/private/SIO_FolderLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <chrono>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPatience = 30s;
// A lock of another machine, of which nobody here knows whether its process lives, counts for so long.
constexpr std::chrono::milliseconds kStale = 10min;

QString translated(const char* text)
{
    return QCoreApplication::translate("SIO_FolderLock", text);
}

} // namespace

SIO_FolderLock::SIO_FolderLock(const QString& folder) : _folder(folder), _lock(folder + QStringLiteral("/.lock"))
{
    _lock.setStaleLockTime(static_cast<int>(kStale.count()));
}

bool SIO_FolderLock::isReadOnly() const
{
    return _lock.error() == QLockFile::PermissionError || !QFileInfo(_folder).isWritable();
}

UT_Result<void> SIO_FolderLock::lock()
{
    // Where nothing may be written, a lock that somebody left behind would be waited for in vain.
    if (!isReadOnly() && _lock.tryLock(static_cast<int>(kPatience.count())))
        return {};
    const QString shown = QDir::toNativeSeparators(_folder);
    if (isReadOnly())
        return UT_Error{translated("files may not be made in \"%1\"; permit it or name another place").arg(shown)};
    if (_lock.error() == QLockFile::LockFailedError)
        return UT_Error{translated("the scene \"%1\" is being saved by another program; try again later").arg(shown)};
    return UT_Error{translated("cannot write in \"%1\"; see whether the disk is full").arg(shown)};
}
