// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parses a command's help text. Manual pages and shell completion are made of the result, so that an option is
// described in one place. A help text has four kinds of blocks, with an empty line between them:
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
    QStringList text; ///< the lines of its explanation, without indentation

    bool isOption() const { return term.startsWith(QLatin1Char('-')); }
    /// The names of an option, with their hyphens, as they are written in the term.
    QStringList optionNames() const;
    /// The value after an option's names: "FILE", "up|down"; empty where it takes none.
    QString optionValue() const;
};

/// The text between two empty lines: a heading or none, and one of the other three kinds.
struct HelpBlock
{
    QString heading;
    QString paragraph;
    QStringList commandLines;
    std::vector<HelpEntry> entries;
};

/// The blocks of a help text after its first line.
std::vector<HelpBlock> readHelpText(const QString& text);
