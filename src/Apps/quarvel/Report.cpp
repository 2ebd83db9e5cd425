// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Warnings and errors are told at once in both styles, so that whoever watches a script sees them.
#include "Report.h"

#include "Say.h"

#include <QJsonDocument>

Report::Report(std::FILE* results, QString command, ReportStyle style)
    : _results(results), _command(std::move(command)), _style(style)
{}

QString Report::named(QString text) const
{
    for (const auto& [path, name] : _names)
        text.replace(path, name);
    return text;
}

void Report::note(QJsonArray& list, const QString& where, const QString& text) const
{
    QJsonObject entry{{QStringLiteral("text"), text}};
    if (!where.isEmpty())
        entry.insert(QStringLiteral("where"), where);
    list.append(entry);
}

void Report::result(const QJsonObject& fields, const QString& text)
{
    if (isJson())
        _found.append(fields);
    else
        remark(text);
}

void Report::remark(const QString& text)
{
    if (!_quiet && !isJson())
        writeText(_results, named(text));
}

void Report::warning(const QString& where, const QString& text)
{
    const QString place = named(where);
    note(_warnings, place, named(text));
    say((place.isEmpty() ? QString() : place + QStringLiteral(": ")) + QStringLiteral("warning: ") + named(text));
}

void Report::error(const UT_Error& error, const QString& where)
{
    const QString text = error.sentence();
    // Some errors say the file's name themselves, and once is enough.
    const QString begin = where + QStringLiteral(": ");
    const bool isNamed = where.isEmpty() || text.startsWith(begin) || text.startsWith(where + QStringLiteral(", ")) ||
                         text.contains(u'"' + where + u'"');
    note(_errors, named(where), named(!where.isEmpty() && text.startsWith(begin) ? text.mid(begin.size()) : text));
    say(named(isNamed ? text : begin + text));
}

int Report::finish(int exitCode)
{
    if (isJson()) {
        const QJsonObject all{{QStringLiteral("command"), _command},
                              {QStringLiteral("exitCode"), exitCode},
                              {QStringLiteral("results"), _found},
                              {QStringLiteral("warnings"), _warnings},
                              {QStringLiteral("errors"), _errors}};
        std::fputs(named(QString::fromUtf8(QJsonDocument(all).toJson())).toUtf8().constData(), _results);
    }
    if (std::fflush(_results) == 0 && std::ferror(_results) == 0)
        return exitCode;
    say(QStringLiteral("the results cannot be written to standard output; see whether the disk is full"));
    return exitCode == 0 ? 1 : exitCode;
}
