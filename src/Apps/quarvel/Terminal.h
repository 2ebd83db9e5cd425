// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether a stream is shown on a terminal.
#pragma once

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

/// Whether somebody watches the stream on a terminal, where a line can be written over.
inline bool isTerminal(std::FILE* stream)
{
#ifdef _WIN32
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}
