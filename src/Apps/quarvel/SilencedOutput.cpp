// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Standard output is replaced at the level of file descriptors, below the buffers of C and C++.
#include "SilencedOutput.h"

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

#ifdef _WIN32
constexpr int kStandardOutput = 1;
int openNothing()
{
    return _open("NUL", _O_WRONLY);
}
int duplicate(int file)
{
    return _dup(file);
}
void replace(int file, int by)
{
    _dup2(by, file);
    _close(by);
}
#else
constexpr int kStandardOutput = STDOUT_FILENO;
int openNothing()
{
    return open("/dev/null", O_WRONLY | O_CLOEXEC);
}
int duplicate(int file)
{
    return dup(file);
}
void replace(int file, int by)
{
    dup2(by, file);
    close(by);
}
#endif

} // namespace

SilencedOutput::SilencedOutput(bool silence)
{
    if (!silence)
        return;
    std::fflush(stdout);
    const int nothing = openNothing();
    if (nothing < 0)
        return;
    _saved = duplicate(kStandardOutput);
    replace(kStandardOutput, nothing);
}

SilencedOutput::~SilencedOutput()
{
    if (_saved < 0)
        return;
    std::fflush(stdout);
    replace(kStandardOutput, _saved);
}
