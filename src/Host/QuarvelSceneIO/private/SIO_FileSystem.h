// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FileSystem: the operations that change something on the disk while a scene is saved. All of them go through this
// interface, so that tests can have any one of them fail, or the process end in its middle.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QString>

/// The disk. What an operation did survives a crash of the machine only after sync() of the folder it was done in.
class QUARVELSCENEIO_EXPORT SIO_FileSystem
{
public:
    SIO_FileSystem() = default;
    SIO_FileSystem(const SIO_FileSystem&) = delete;
    SIO_FileSystem& operator=(const SIO_FileSystem&) = delete;
    virtual ~SIO_FileSystem();

    /// Makes a folder; its parent must exist. No error when it is there.
    virtual UT_Result<void> makeFolder(const QString& path);
    /// Makes a file and forces its bytes to the disk; an error when something has its name already. On another error a
    /// part of it may be there.
    virtual UT_Result<void> writeFile(const QString& path, const QByteArray& bytes);
    /// Gives a file another path, in place of the file that is there; at no moment is there none.
    virtual UT_Result<void> rename(const QString& from, const QString& to);
    /// No error when there is no such file. A symbolic link goes, not what it leads to.
    virtual UT_Result<void> removeFile(const QString& path);
    /// Removes a folder when it is empty; no error when it is not, or is not there.
    virtual UT_Result<void> removeFolder(const QString& path);
    /// Forces the names in a folder to the disk.
    virtual UT_Result<void> sync(const QString& folder);
};
