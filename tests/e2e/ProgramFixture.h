// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The program as people run it, in a folder that goes with the test.
#pragma once

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "TestFolder.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <memory>

/// Runs the program in a folder of its own.
class Program : public testing::Test, protected TestFolder
{
protected:
    /// The files that standard input comes from and standard output goes to; none where they are empty.
    struct Streams
    {
        QString input;
        QString output;
    };
    /// What came of a run.
    struct Outcome
    {
        int exitCode;
        std::string output;
        std::string messages;

        QString text() const { return QString::fromStdString(output); }
    };

    /// Starts a program that runs beside the test.
    std::unique_ptr<QProcess> started(const QString& program, const QStringList& words,
                                      const Streams& streams = {}) const
    {
        auto process = std::make_unique<QProcess>();
        process->setWorkingDirectory(path());
        process->setProcessEnvironment(environment);
        if (!streams.input.isEmpty())
            process->setStandardInputFile(streams.input);
        if (!streams.output.isEmpty())
            process->setStandardOutputFile(streams.output);
        process->start(program, words);
        return process;
    }
    /// Waits for a program's end, and ends one that hangs.
    static Outcome finished(QProcess& process)
    {
        if (!process.waitForFinished(120'000)) {
            ADD_FAILURE() << "the program hangs: " << process.errorString().toStdString();
            process.kill();
            process.waitForFinished();
        }
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
    Outcome run(const QString& program, const QStringList& words, const Streams& streams = {}) const
    {
        return finished(*started(program, words, streams));
    }

    Outcome quarvel(const QStringList& words) const { return run(QStringLiteral(QUARVEL_PROGRAM), words); }
    /// The words apart by single spaces.
    Outcome quarvel(const QString& words) const { return quarvel(words.split(QLatin1Char(' '))); }
    Outcome quarvel(const char* words) const { return quarvel(QString::fromUtf8(words)); }
    /// With a file of the folder at standard input.
    Outcome piped(const char* file, const char* words) const
    {
        return run(QStringLiteral(QUARVEL_PROGRAM), QString::fromUtf8(words).split(QLatin1Char(' ')), {path(file), {}});
    }

    IIO_Picture read(const char* name) const
    {
        UT_Result<IIO_Picture> picture = IIO_read(path(name));
        EXPECT_TRUE(picture) << picture.error().text.toStdString();
        return std::move(*picture);
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};
