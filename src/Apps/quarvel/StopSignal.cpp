// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The handler does nothing but what a handler may do: it sets a number that needs no lock.
#include "StopSignal.h"

#include "Report.h"

#include <atomic>
#include <csignal>

namespace {

std::atomic<int> signalThatCame = 0;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void noteStop(int signal)
{
    signalThatCame = signal;
    std::signal(signal, SIG_DFL);
}

// What is to be ignored, as for programs in the background of some shells, stays ignored.
void (*catchSignal(int signal))(int)
{
    void (*const before)(int) = std::signal(signal, noteStop);
    if (before == SIG_IGN)
        std::signal(signal, SIG_IGN);
    return before;
}

} // namespace

StopSignal::StopSignal() : _interrupt(nullptr), _terminate(nullptr)
{
    signalThatCame = 0;
    _interrupt = catchSignal(SIGINT);
    _terminate = catchSignal(SIGTERM);
}

StopSignal::~StopSignal()
{
    std::signal(SIGINT, _interrupt);
    std::signal(SIGTERM, _terminate);
}

bool StopSignal::came()
{
    return signalThatCame != 0;
}

int StopSignal::exitCode()
{
    const int signal = signalThatCame;
    return signal == 0 ? 0 : 128 + signal;
}

int StopSignal::leaveUnchanged(const QString& place, Report& report)
{
    report.error(QStringLiteral("stopped; %1 is as it was").arg(place));
    return exitCode();
}
