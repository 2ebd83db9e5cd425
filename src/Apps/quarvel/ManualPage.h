// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Manual pages for man(1), made of the texts that "quarvel help" prints.
#pragma once

#include "HelpText.h"

/// The page quarvel-COMMAND(1), as text for man.
///
/// @param version the program's, which stands at the foot of the page
QString manualPage(const CommandHelp& command, const QString& version);

/// The page quarvel(1), which leads to those of the commands.
QString manualOverview(const std::vector<CommandHelp>& commands, const QString& version);
