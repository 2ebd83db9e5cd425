// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The files of a test: a folder that goes with it, and functions that write and read whole files. What cannot be
// written or read fails the test.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Writes a file, and makes the folders that it lies in.
///
/// @return its path
inline QString writeTestFile(const QString& path, const QByteArray& bytes)
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size()) << path.toStdString();
    return path;
}

inline QByteArray bytesOfFile(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// A folder that is removed with this object. Names of files are relative to it.
class TestFolder
{
public:
    QString path() const { return _folder.path(); }
    QString path(const QString& name) const { return QDir(_folder.path()).filePath(name); }
    QString path(const char* name) const { return path(QString::fromUtf8(name)); }

    bool exists(const char* name) const { return QFile::exists(path(name)); }

    QString write(const QString& name, const QByteArray& bytes) const { return writeTestFile(path(name), bytes); }
    QString write(const char* name, const QByteArray& bytes) const { return writeTestFile(path(name), bytes); }
    QByteArray bytes(const QString& name) const { return bytesOfFile(path(name)); }
    QByteArray bytes(const char* name) const { return bytesOfFile(path(name)); }

    /// The names of the files in it, or in a folder in it, in alphabetical order, including hidden ones.
    QStringList files(const char* folder = "") const
    {
        return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

private:
    QTemporaryDir _folder;
};
