// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FileSystem: the operations that change the disk while a scene is saved. All changes go through this interface, so
// that tests can make any operation fail, or end the process in the middle of it.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QStringList>

/// The disk. What an operation did survives a crash of the machine only after sync(): of the file for its bytes, of the
/// folder for its names.
class QUARVELSCENEIO_EXPORT SIO_FileSystem
{
public:
    SIO_FileSystem() = default;
    SIO_FileSystem(const SIO_FileSystem&) = delete;
    SIO_FileSystem& operator=(const SIO_FileSystem&) = delete;
    virtual ~SIO_FileSystem();

    /// Makes a folder; its parent must exist. An existing folder is not an error.
    virtual UT_Result<void> makeFolder(const QString& path);
    /// Makes a file. It is an error if anything has this name already. After any other error a part of the file may
    /// exist.
    virtual UT_Result<void> writeFile(const QString& path, const QByteArray& bytes);
    /// Moves a file and atomically replaces the file at the new path, if there is one.
    virtual UT_Result<void> rename(const QString& from, const QString& to);
    /// Removes a file; a missing file is not an error. Removes a symbolic link itself, not its target.
    virtual UT_Result<void> removeFile(const QString& path);
    /// Removes a folder if it is empty. A missing folder, or one that is not empty, is not an error.
    virtual UT_Result<void> removeFolder(const QString& path);
    /// Forces the bytes of files and the names in folders to the disk.
    virtual UT_Result<void> sync(const QStringList& paths);
};
