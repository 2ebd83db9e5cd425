// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FolderLock: lets one process at a time save a scene, or finish an interrupted save. The operating system holds
// the lock on the scene's folder and releases it when the process ends, for any reason. Nothing is left behind. Where
// folders cannot be locked (Windows, some network disks), the lock is held on the file ".lock" in the folder; a ".lock"
// that a killed process left behind does not lock anything.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <cstdint>
#include <functional>

/// The lock of a scene's folder, held until the object is destroyed.
class SIO_FolderLock
{
public:
    explicit SIO_FolderLock(const QString& folder);
    ~SIO_FolderLock();
    SIO_FolderLock(const SIO_FolderLock&) = delete;
    SIO_FolderLock& operator=(const SIO_FolderLock&) = delete;

    /// Whether another process holds the lock of a folder now, as far as this can be told without making a file.
    static bool isHeldByOthers(const QString& folder);

    /// Takes the lock. Waits for other processes, half a minute at most.
    ///
    /// @param goOn asked while it waits; may be empty
    /// @return an error if another process still holds the lock, if the folder cannot be locked, or, of the kind
    /// STOPPED, when goOn said to stop
    UT_Result<void> lock(const std::function<bool()>& goOn = {});
    /// After lock() failed: true if the reason is that the folder is not writable.
    bool isReadOnly() const { return _readOnly; }

private:
    enum class Attempt
    {
        LOCKED,
        HELD_BY_OTHERS,
        NOT_PERMITTED,
        IN_THE_WAY, ///< something other than a regular file has the lock file's name
        FAILED
    };

    Attempt tryLock();
    Attempt tryLockOfFile();

    QString _folder;
    QString _path;
    bool _readOnly = false;
    std::intptr_t _file = -1; ///< the system's handle of the locked folder or file; -1: not locked
    bool _madeFile = false;   ///< ".lock" must be removed
};
