// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Standard output is replaced at the level of file descriptors, below the buffers of C and C++.
#include "jobs/ResultStream.h"

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
std::FILE* streamOf(int file)
{
    _setmode(file, _O_BINARY);
    return _fdopen(file, "wb");
}
void replace(int file, int by)
{
    _dup2(by, file);
    _close(by);
}
void closeFile(int file)
{
    _close(file);
}
#else
constexpr int kStandardOutput = STDOUT_FILENO;
int openNothing()
{
    return open("/dev/null", O_WRONLY | O_CLOEXEC);
}
// Programs that are started, such as the film's encoder, do not inherit the copy.
int duplicate(int file)
{
    return fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}
std::FILE* streamOf(int file)
{
    return fdopen(file, "w");
}
void replace(int file, int by)
{
    dup2(by, file);
    close(by);
}
void closeFile(int file)
{
    close(file);
}
#endif

} // namespace

ResultStream::ResultStream()
{
    std::fflush(stdout);
    const int copy = duplicate(kStandardOutput);
    if (copy < 0)
        return;
    std::FILE* const stream = streamOf(copy);
    const int nothing = stream ? openNothing() : -1;
    if (nothing < 0) {
        if (stream)
            std::fclose(stream);
        else
            closeFile(copy);
        return;
    }
    replace(kStandardOutput, nothing);
    _file = stream;
}

ResultStream::~ResultStream()
{
    if (_file == stdout)
        return;
    std::fflush(stdout);
    std::fflush(_file);
#ifdef _WIN32
    _dup2(_fileno(_file), kStandardOutput);
#else
    dup2(fileno(_file), kStandardOutput);
#endif
    std::fclose(_file);
}
