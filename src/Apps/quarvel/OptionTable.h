// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The options of a command as a table: each row has an option's names and the function that takes its value.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QCommandLineParser>

#include <functional>
#include <vector>

/// What comes of taking a value: nothing, or what is wrong with it.
using Taken = UT_Result<void>;

/// Stores a value in the command's options. The option's name is for messages.
template<typename Options>
using Take = std::function<Taken(Options&, const QString& option, const QString& value)>;

/// One option.
template<typename Options>
struct OptionRow
{
    QStringList names; ///< without their hyphens, the long one last
    bool takesValue;
    Take<Options> take;
};

/// Stores a parsed value, or passes its error on.
template<typename T, typename Store>
Taken keep(const UT_Result<T>& parsed, Store store)
{
    if (!parsed)
        return parsed.error();
    store(*parsed);
    return {};
}

/// An option as people write it. The one-letter option "y" is written as a long one.
inline QString spelled(const QString& name)
{
    return (name.size() == 1 && name != QLatin1String("y") ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

/// Stores the values of all options that are among the words, each as often as it is given.
///
/// @param command its name, as it is typed
/// @return the words that belong to no option
template<typename Options>
UT_Result<QStringList> takeOptions(const QString& command, const QStringList& words,
                                   const std::vector<OptionRow<Options>>& table, Options& options)
{
    QCommandLineParser parser;
    for (const auto& row : table)
        parser.addOption(
            QCommandLineOption(row.names, QString(), row.takesValue ? QStringLiteral("value") : QString()));
    // The parser takes the first word for the program's name.
    if (!parser.parse(QStringList{command} + words))
        return UT_Error{
            QStringLiteral("%1; quarvel help %2 lists what there is").arg(parser.errorText().chopped(1), command)};
    for (const auto& row : table) {
        if (!parser.isSet(row.names.last()))
            continue;
        const QStringList values = row.takesValue ? parser.values(row.names.last()) : QStringList{QString()};
        for (const QString& value : values)
            if (Taken taken = row.take(options, spelled(row.names.last()), value); !taken)
                return taken.error();
    }
    return parser.positionalArguments();
}
