// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A folder of its own in which a test runs the program.
#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class ProgramFolder : public testing::Test
{
protected:
    /// What a run of the program came to.
    struct Outcome
    {
        int exitCode;
        QString output;
        std::string messages;
    };

    QString path(const char* name) const { return QDir(_folder.path()).filePath(QString::fromUtf8(name)); }

    void write(const char* name, const QByteArray& content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(content);
    }

    QByteArray bytes(const char* name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }

    Outcome quarvel(const QStringList& words) const
    {
        QProcess process;
        process.setWorkingDirectory(_folder.path());
        process.start(QStringLiteral(QUARVEL_PROGRAM), words);
        EXPECT_TRUE(process.waitForFinished(120'000)) << process.errorString().toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                process.readAllStandardError().toStdString()};
    }
    /// The words apart by single spaces.
    Outcome quarvel(const char* words) const { return quarvel(QString::fromUtf8(words).split(u' ')); }
    Outcome quarvel(const QString& words) const { return quarvel(words.split(u' ')); }

private:
    QTemporaryDir _folder;
};
