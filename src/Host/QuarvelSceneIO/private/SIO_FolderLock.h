// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FolderLock: lets one process at a time save a scene, or finish a save that was cut short. The lock is the file
// ".lock" in the scene's folder. One that a process left behind which is no more does not count.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QLockFile>

/// The lock of a scene's folder, held until the object goes.
class SIO_FolderLock
{
public:
    explicit SIO_FolderLock(const QString& folder);

    /// Waits for other processes, half a minute at most.
    ///
    /// @return an error when another process holds on to the lock, or there can be none
    UT_Result<void> lock();
    /// After lock() failed: true when the reason is that nothing may be changed in the folder.
    bool isReadOnly() const;

private:
    QString _folder;
    QLockFile _lock;
};
