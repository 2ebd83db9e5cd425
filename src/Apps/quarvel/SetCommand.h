// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel set": changes one thing of a scene on disk.
#pragma once

#include <QStringList>

class Report;

/// Runs the command.
///
/// @param words the words after "set"
/// @return the exit code (ExitCodes.h): 0 when it was done, 1 when the scene could not be read or written, 2 when the
/// command line was wrong, 130 or 143 when a signal stopped it. After 1 and 2 the scene is unchanged
int runSetCommand(const QStringList& words, Report& report);

/// What "quarvel help set" prints.
QString setHelp();
