// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Report: all that a command says. For people, results are lines on standard output, warnings and errors lines on
// standard error. For scripts (--json), standard output gets one JSON object at the end of the run:
//
//   {"command": "normalmap", "exitCode": 0, "results": [...], "warnings": [{"where": ..., "text": ...}], "errors":
//   [...]}
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <cstdio>
#include <utility>
#include <vector>

/// How a command tells its results.
enum class ReportStyle
{
    TEXT,
    JSON
};

/// What a command says. For one thread at a time.
class Report
{
public:
    /// @param results where results go; stays the caller's
    Report(std::FILE* results, QString command, ReportStyle style);

    /// No results for people from now on; warnings and errors are still told.
    void beQuiet() { _quiet = true; }
    bool isJson() const { return _style == ReportStyle::JSON; }
    /// Where results go, for what is no report: pictures, and progress that schedulers read.
    std::FILE* results() const { return _results; }

    /// From now on texts name a path by another name.
    void call(const QString& path, const QString& name) { _names.emplace_back(path, name); }
    /// A text with these names.
    QString named(QString text) const;

    /// A result: its fields for scripts, and its lines for people, the last with its line break.
    void result(const QJsonObject& fields, const QString& text);
    /// What --help asks for.
    void help(const QString& text) { result({{QStringLiteral("help"), text}}, text); }
    /// Lines for people, which say nothing that scripts need.
    void remark(const QString& text);
    /// Something that the user should know although the work goes on.
    ///
    /// @param where the file that it is about; empty: the whole run
    void warning(const QString& where, const QString& text);
    /// What went wrong.
    ///
    /// @param where the file that it is about, unless the error says it; empty: the whole run
    void error(const UT_Error& error, const QString& where = {});
    void error(const QString& text) { error(UT_Error{text}); }

    /// Tells the rest. Results that nobody received are an error: a full disk behind a redirection shows only now.
    ///
    /// @return the exit code of the program
    int finish(int exitCode);

private:
    void note(QJsonArray& list, const QString& where, const QString& text) const;

    std::FILE* _results;
    QString _command;
    ReportStyle _style;
    bool _quiet = false;
    std::vector<std::pair<QString, QString>> _names;
    QJsonArray _found;
    QJsonArray _warnings;
    QJsonArray _errors;
};
