// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/ProgramEnd.h"

#ifdef _WIN32
#include <qt_windows.h>

#include <cstdio>
#endif

int endProgram(int exitCode)
{
#ifdef _WIN32
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
#endif
    return exitCode;
}
