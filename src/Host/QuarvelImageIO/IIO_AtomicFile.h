// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_AtomicFile: a file that appears whole or not at all. It is written under another name in the same folder, forced
// to the disk, and then renamed; whoever opens the path sees the old file or the new one, never a part. When anything
// fails, or the object is destroyed before commit(), the other name is removed and the old file is as it was.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QIODevice>

#include <memory>

/// A file being written. For one thread at a time.
class QUARVELIMAGEIO_EXPORT IIO_AtomicFile
{
public:
    /// @param path the file to make or replace; a symbolic link is followed
    explicit IIO_AtomicFile(const QString& path);
    ~IIO_AtomicFile();
    IIO_AtomicFile(const IIO_AtomicFile&) = delete;
    IIO_AtomicFile& operator=(const IIO_AtomicFile&) = delete;

    /// Makes the file under its other name.
    ///
    /// @return an error when the folder is missing or may not be written, when the path is a folder or a device, and
    /// when a file is there that may not be written
    UT_Result<void> open();

    /// Where to write; seekable. A write that fails or is cut short is remembered; it and those that follow look as if
    /// they had succeeded, and commit() fails.
    QIODevice& device();

    /// Forces what was written to the disk and gives the file its name.
    ///
    /// @return an error, with the old file untouched, when a write failed (a full disk, say) or the file cannot be put
    /// in place
    UT_Result<void> commit();

    /// Gives up, which leaves the old file untouched.
    ///
    /// @return the error of the write that failed; no error when none did and the reason to give up lies elsewhere
    UT_Result<void> abandon();

private:
    class Device;

    UT_Error failure() const;

    QString _path;
    std::unique_ptr<Device> _device;
};
