// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StopSignal: turns Ctrl-C, and the signal by which a system asks programs to end, into a flag that work checks. The
// second signal ends the program at once.
#pragma once

#include <QString>

class Report;

/// Catches the signals for as long as it lives. One at a time.
class StopSignal
{
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Whether a signal came since the object was made. For any thread.
    static bool came();
    /// What a program that ends because of the signal exits with: 128 and the signal's number, as shells say it; 130
    /// for Ctrl-C, 143 for the system's request. 0 when none came.
    static int exitCode();
    /// Tells that the run was stopped before it changed a place, and gives the exit code.
    static int leaveUnchanged(const QString& place, Report& report);

private:
    using Handler = void (*)(int);

    Handler _interrupt;
    Handler _terminate;
};
