// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The options of a command as a table: each row has an option's names and the function that takes its value.
#pragma once

#include "NameEncoding.h"
#include "OptionValues.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/text/NearestWord.h"

#include <QCommandLineParser>
#include <QFileInfo>

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

/// For an option without a value: makes a member true.
template<typename Options>
Take<Options> flag(bool Options::*member)
{
    return [member](Options& options, const QString&, const QString&) -> Taken {
        options.*member = true;
        return {};
    };
}

/// Stores what a function of OptionValues.h makes of the value in a member.
template<typename Options, typename Parse, typename Member>
Take<Options> stored(Parse parse, Member member)
{
    return [=](Options& options, const QString& option, const QString& value) {
        return keep(parse(option, value), [&](const auto& made) { options.*member = made; });
    };
}

/// For an option whose value is one of a few words: stores the word's index.
template<typename Options>
Take<Options> choice(const QStringList& choices, const std::function<void(Options&, int)>& store)
{
    return [=](Options& options, const QString& option, const QString& value) {
        return keep(parseChoice(option, value, choices), [&](int index) { store(options, index); });
    };
}

/// An option as people write it. The one-letter option "y" is written as a long one.
inline QString spelled(const QString& name)
{
    return (name.size() == 1 && name != QLatin1String("y") ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

/// What is wrong with a word that is taken for an option that there is not.
///
/// @param word  as it was typed
/// @param names of all options, without their hyphens
inline UT_Error unknownOption(const QString& command, const QString& word, const QStringList& names)
{
    const QString typed = word.section(QLatin1Char('='), 0, 0);
    // "-dash.svg" is read as the option -d.
    if (QFileInfo::exists(word) || (!word.startsWith(QLatin1String("--")) && word.contains(QLatin1Char('.'))))
        return {QStringLiteral("%1 looks like an option; if it is a file, write ./%1").arg(word)};
    const QString nearest = nearestWord(typed.mid(typed.startsWith(QLatin1String("--")) ? 2 : 1), names);
    const QString meant = nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(spelled(nearest));
    return {QStringLiteral("there is no option %1%2 quarvel help %3 lists what there is")
                .arg(typed, meant.isEmpty() ? QStringLiteral(";") : meant, command)};
}

/// The word among those typed that the option's name comes from that the parser does not know.
inline QString wordOf(const QString& name, const QStringList& words)
{
    for (const QString& word : words) {
        const QString bare = word.section(QLatin1Char('='), 0, 0);
        const bool isLong = bare.startsWith(QLatin1String("--"));
        if (isLong ? bare.mid(2) == name : bare.startsWith(QLatin1Char('-')) && bare.mid(1).contains(name))
            return word;
    }
    return spelled(name);
}

/// What is wrong with options that are known: only the last word can lack its value, others take the next word.
///
/// @param otherwise the parser's own words for all else
inline UT_Error valueMistake(const QStringList& words, const QString& command, const QString& otherwise)
{
    const QString& last = words.last();
    if (last.startsWith(QLatin1Char('-')) && otherwise.contains(last))
        return {QStringLiteral("%1 is followed by its value, and there is none; quarvel help %2 says which")
                    .arg(last, command)};
    return {QStringLiteral("%1; quarvel help %2 lists what there is").arg(otherwise.chopped(1), command)};
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
    const bool isParsed = parser.parse(QStringList{command} + words);
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty()) {
        // What every command takes is not in the tables.
        QStringList names{QStringLiteral("json")};
        for (const auto& row : table)
            names += row.names;
        return unknownOption(command, wordOf(unknown.first(), words), names);
    }
    // All that is left to be wrong is a value that is missing, or one that is too many.
    if (!isParsed)
        return valueMistake(words, command, parser.errorText());
    for (const auto& row : table) {
        if (!parser.isSet(row.names.last()))
            continue;
        const QStringList values = row.takesValue ? parser.values(row.names.last()) : QStringList{QString()};
        for (const QString& value : values) {
            if (!isText(value))
                return UT_Error{QStringLiteral("%1 is not UTF-8; %2 takes names and words that are")
                                    .arg(escapedName(value), spelled(row.names.last()))};
            if (Taken taken = row.take(options, spelled(row.names.last()), value); !taken)
                return taken.error();
        }
    }
    return parser.positionalArguments();
}
