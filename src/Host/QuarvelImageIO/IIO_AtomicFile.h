// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_AtomicFile: a file that appears complete or not at all. It is written under a temporary name in the same folder,
// forced to the disk, and then renamed, so a program that opens the path sees the old file or the new one, never a
// part. If anything fails, or the object is destroyed before commit(), the temporary file is removed and the old file
// is unchanged.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QByteArray>
#include <QIODevice>

#include <memory>

/// A file that is being written. Only one thread may use it at a time.
class QUARVELIMAGEIO_EXPORT IIO_AtomicFile
{
public:
    /// @param path the file to make or replace; a symbolic link is followed
    explicit IIO_AtomicFile(const QString& path);
    ~IIO_AtomicFile();
    IIO_AtomicFile(const IIO_AtomicFile&) = delete;
    IIO_AtomicFile& operator=(const IIO_AtomicFile&) = delete;

    /// Makes the temporary file.
    ///
    /// @return an error if the folder is missing or not writable, if the path is a folder or a device, or if a file
    /// with this path is not writable
    UT_Result<void> open();

    /// The device to write to; it is seekable. It remembers a write or seek that fails: this call and later ones appear
    /// to succeed, and commit() fails.
    QIODevice& device();

    /// Forces the data to the disk and gives the file its name.
    ///
    /// @return an error if a write failed or the file cannot be renamed; the old file is then unchanged. Its kind is
    /// DISK_FULL if there was no space left
    UT_Result<void> commit();

    /// Removes the temporary file; the old file is unchanged.
    ///
    /// @return the error of the first failed write; no error if none failed
    UT_Result<void> abandon();

private:
    class Device;

    UT_Error failure() const;

    QString _path;
    std::unique_ptr<Device> _device;
};

/// Writes a whole file in this way.
QUARVELIMAGEIO_EXPORT UT_Result<void> IIO_writeFile(const QString& path, const QByteArray& bytes);
