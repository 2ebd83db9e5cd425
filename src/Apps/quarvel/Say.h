// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the program speaks to people.
#pragma once

#include "TerminalText.h"

/// A line on standard error, with the program's name before it.
inline void say(const QString& what)
{
    writeText(stderr, QStringLiteral("quarvel: %1\n").arg(what));
}
