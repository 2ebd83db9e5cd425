// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ZipFile: files in a zip archive, read by libzip, within limits.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>

#include <memory>

struct zip;

/// An archive, open for reading. For one thread at a time.
class DIO_ZipFile
{
public:
    /// @return an error when there is no such file or it is no archive
    static UT_Result<DIO_ZipFile> open(const QString& path);

    /// Whether there is a file of this name, with its folders.
    bool contains(const QString& name) const;

    /// A file of the archive.
    ///
    /// @param name with its folders
    /// @param most how many bytes it may have when it is unpacked
    /// @return an error when there is none of that name, it is too large or damaged
    UT_Result<QByteArray> read(const QString& name, qint64 most) const;

private:
    struct Close
    {
        void operator()(zip* archive) const;
    };

    explicit DIO_ZipFile(zip* archive) : _archive(archive) {}

    std::unique_ptr<zip, Close> _archive;
};
