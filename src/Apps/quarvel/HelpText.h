// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A command's help text, read for what it consists of: manual pages and the completion of shells are made of it, so
// that an option is described in one place. The text keeps to four forms, with an empty line between its blocks:
//
//   quarvel COMMAND - what it does                the first line
//   A paragraph, at the margin.
//     quarvel COMMAND ...                         command lines: two blanks, then the program's name
//   A heading
//     -o, --option VALUE  its explanation         entries: up to six blanks, what is explained, two blanks or more;
//                         goes on                 deeper lines go on with the entry above
#pragma once

#include <QStringList>

#include <vector>

/// A command as its help describes it.
struct CommandHelp
{
    QString name; ///< as it is typed: normalmap
    QString text; ///< what "quarvel help NAME" prints

    /// What the command does, in the words of the text's first line.
    QString purpose() const;
};

/// An option, or something else, that a help text explains.
struct HelpEntry
{
    QString term;     ///< "-o, --output FILE"
    QStringList text; ///< the lines of its explanation, without the blanks before them

    bool isOption() const { return term.startsWith(QLatin1Char('-')); }
    /// The names of an option, with their hyphens, as they are written in the term.
    QStringList optionNames() const;
    /// What stands behind an option's names: "FILE", "up|down", or nothing where it takes no value.
    QString optionValue() const;
};

/// What stands between two empty lines: a heading or none, and one of the other three.
struct HelpBlock
{
    QString heading;
    QString paragraph;
    QStringList commandLines;
    std::vector<HelpEntry> entries;
};

/// The blocks of a help text after its first line.
std::vector<HelpBlock> readHelpText(const QString& text);
