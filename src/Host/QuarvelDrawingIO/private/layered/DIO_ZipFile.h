// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ZipFile: files in a zip archive, read by libzip, within limits.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>

#include <cstdint>
#include <memory>

struct zip;

/// An archive, open for reading. For one thread at a time. A small archive may list one file, or many that are nothing
/// but zeros, as the pictures of ten thousand layers; so what is unpacked in all has a limit that follows the archive's
/// size.
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
    /// @return an error when there is none of that name, it is too large or damaged, or when all that was read is too
    ///         large together
    UT_Result<QByteArray> read(const QString& name, qint64 most) const;

private:
    struct Close
    {
        void operator()(zip* archive) const;
    };

    DIO_ZipFile(zip* archive, std::uint64_t most) : _archive(archive), _left(most) {}

    std::unique_ptr<zip, Close> _archive;
    mutable std::uint64_t _left; // bytes that may still be unpacked
};
