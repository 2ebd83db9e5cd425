// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lock of a scene's folder.
#include "QuarvelSceneIO/private/SIO_FolderLock.h"

#include <QCoreApplication>
#include <QDir>

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

UT_Result<void> SIO_FolderLock::lock()
{
    if (_lock.tryLock(static_cast<int>(kPatience.count())))
        return {};
    const QString shown = QDir::toNativeSeparators(_folder);
    switch (_lock.error()) {
    case QLockFile::LockFailedError:
        return UT_Error{translated("the scene \"%1\" is being saved by another program; try again later").arg(shown)};
    case QLockFile::PermissionError:
        return UT_Error{translated("files may not be made in \"%1\"; permit it or name another place").arg(shown)};
    default:
        return UT_Error{translated("cannot write in \"%1\"; see whether the disk is full").arg(shown)};
    }
}
