// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel set": changes one thing of a scene on disk.
#pragma once

#include <QStringList>

class Report;

/// Runs the command.
///
/// @param words the words after "set"
/// @return the exit code: 0 when it was done, 1 when the scene could not be read or written, 2 when the command line
/// was wrong; the scene is then unchanged
int runSetCommand(const QStringList& words, Report& report);

/// What "quarvel help set" prints.
QString setHelp();
