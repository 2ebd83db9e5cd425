// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What shells propose while a command line is typed: commands, options, and the words that an option takes, out of the
// texts that "quarvel help" prints.
#pragma once

#include "HelpText.h"

/// An option that shells propose.
struct CompletedOption
{
    QStringList names;   ///< with their hyphens, the long one last
    QString explanation; ///< its first line
    QString value;       ///< what the help calls its value; empty: it takes none
    QStringList choices; ///< the words that it takes; empty: any
};

/// The options of a command, in the order of its help, each once.
std::vector<CompletedOption> completedOptions(const CommandHelp& command);

/// A script that bash sources.
QString bashCompletion(const std::vector<CommandHelp>& commands);

/// A function that zsh finds as _quarvel in its fpath.
QString zshCompletion(const std::vector<CommandHelp>& commands);
