// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where standard error goes.
#pragma once

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

/// Whether somebody watches standard error on a terminal, where a line can be written over.
inline bool standardErrorIsTerminal()
{
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}
