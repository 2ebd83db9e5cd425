// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Asks the operating system.
#include "jobs/frames/MachineMemory.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

double machineMemory()
{
#ifdef _WIN32
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    return static_cast<double>(status.ullTotalPhys);
#else
    return static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGE_SIZE));
#endif
}
