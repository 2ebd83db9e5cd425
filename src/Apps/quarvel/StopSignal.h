// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StopSignal: Ctrl-C, and the signal by which a system asks programs to end, as a wish that work can look at. The
// second one ends the program at once.
#pragma once

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
    /// for Ctrl-C, 143 for the wish of a system. 0 when none came.
    static int exitCode();

private:
    using Handler = void (*)(int);

    Handler _interrupt;
    Handler _terminate;
};
