// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A thread starts a program, as the encoder of a film is started, and then writes a variable that another thread writes
// too: a race, which the thread sanitizer must report.
#include <QCoreApplication>
#include <QProcess>

#include <thread>

namespace {

void inTwoThreads(int& value)
{
    ++value;
}

} // namespace

// racing_program PROGRAM
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QProcess program;
    program.start(QCoreApplication::arguments().value(1), {});
    if (!program.waitForFinished())
        return 1;
    int value = 0;
    std::thread other([&] { inTwoThreads(value); });
    inTwoThreads(value);
    other.join();
    return value == 0 ? 1 : 0;
}
