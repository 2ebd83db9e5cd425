// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel inspect": says what is in a scene, or which objects are chosen in a drawing.
#pragma once

#include <QStringList>

class Report;

/// Runs the command.
///
/// @param words the words after "inspect"
/// @return the exit code (ExitCodes.h): 0, 1 when a scene or a drawing could not be read, 2 when the command line was
/// wrong, 130 or 143 when a signal stopped it
int runInspectCommand(const QStringList& words, Report& report);

/// What "quarvel help inspect" prints.
QString inspectHelp();
