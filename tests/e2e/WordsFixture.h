// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs of the program that are judged by what they say.
#pragma once

#include "ProgramFixture.h"

/// A folder with the drawings hero.svg and tree.svg.
class Words : public Program
{
protected:
    void SetUp() override
    {
        draw("hero.svg");
        draw("tree.svg");
    }

    /// Writes a drawing of a square.
    void draw(const char* name) const
    {
        write(name, R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
    }
    QStringList entries() const
    {
        return QDir(path("")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// @return the exit code; what the run said is in said and printed
    int run(const QString& program, const QStringList& words, const Streams& streams = {})
    {
        const Outcome outcome = Program::run(program, words, streams);
        said = outcome.messages;
        printed = outcome.output;
        return outcome.exitCode;
    }
    int quarvel(const QStringList& words, const Streams& streams = {})
    {
        return run(QStringLiteral(QUARVEL_PROGRAM), words, streams);
    }
    int quarvel(const char* words) { return quarvel(QString::fromUtf8(words).split(u' ')); }

    std::string said;    ///< on standard error
    std::string printed; ///< on standard output
};
