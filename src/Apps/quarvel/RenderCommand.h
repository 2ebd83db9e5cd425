// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel render": renders frames of a scene into files.
#pragma once

#include <QStringList>

class Report;

/// Runs the command.
///
/// @param words the words after "render"
/// @return the exit code (ExitCodes.h): 0 when every frame was done, 1 when one was not or the scene cannot be
/// rendered, 2 when the command line was wrong, 130 or 143 when a signal stopped it
int runRenderCommand(const QStringList& words, Report& report);
