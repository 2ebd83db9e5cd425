// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FolderLock: lets one process at a time save a scene, or finish a save that was cut short. The system itself holds
// the lock, on the scene's folder, and lets go of it when the process ends, however it ends. Nothing is left behind.
// Where folders cannot be locked (Windows, some network disks) it is held on the file ".lock" in the folder; one that a
// killed process left behind means nothing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <cstdint>

/// The lock of a scene's folder, held until the object goes.
class SIO_FolderLock
{
public:
    explicit SIO_FolderLock(const QString& folder);
    ~SIO_FolderLock();
    SIO_FolderLock(const SIO_FolderLock&) = delete;
    SIO_FolderLock& operator=(const SIO_FolderLock&) = delete;

    /// Whether another process holds the lock of a folder just now, as far as the system tells without making a file.
    static bool isHeldByOthers(const QString& folder);

    /// Waits for other processes, half a minute at most.
    ///
    /// @return an error when another process holds on to the lock, or there can be none
    UT_Result<void> lock();
    /// After lock() failed: true when the reason is that nothing may be changed in the folder.
    bool isReadOnly() const { return _readOnly; }

private:
    enum class Attempt
    {
        LOCKED,
        HELD_BY_OTHERS,
        NOT_PERMITTED,
        IN_THE_WAY, ///< something that is no plain file has the lock's name
        FAILED
    };

    Attempt tryLock();
    Attempt tryLockOfFile();

    QString _folder;
    QString _path;
    bool _readOnly = false;
    std::intptr_t _file = -1; ///< the system's handle of what is locked; -1: not locked
    bool _madeFile = false;   ///< ".lock" is to be removed
};
