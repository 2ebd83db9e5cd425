// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel normalmap": turns drawings into normal maps, one after the other.
#pragma once

#include <QStringList>

class Report;

/// Runs the command.
///
/// @param words the words after "normalmap"
/// @return the exit code (ExitCodes.h): 0 when every drawing was done, 1 when one was not, 2 when the command line was
/// wrong, 130 or 143 when a signal stopped it
int runNormalMapCommand(const QStringList& words, Report& report);
