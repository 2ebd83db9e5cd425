// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Part of every program that is built for the thread sanitizer. To start a program, Qt calls clone() with CLONE_VM:
// until the new program runs, the child shares the caller's memory, and with it the sanitizer's. The sanitizer takes
// the child for a forked process and stops watching its thread, which then is the caller's thread too: from there on it
// would see neither what that thread writes nor what that thread hands to others, and so miss races and invent some.
// This clone() comes before the sanitizer's and gives the child a copy of the memory, as fork() does.
#include <sched.h>
#include <sys/types.h>

#include <cstdarg>
#include <dlfcn.h>

extern "C" [[gnu::visibility("default")]] int clone(int (*work)(void*), void* stack, int flags, void* argument,
                                                    ...) noexcept
{
    using Clone = int (*)(int (*)(void*), void*, int, void*, ...);
    static const auto next = reinterpret_cast<Clone>(dlsym(RTLD_NEXT, "clone"));

    va_list more;
    va_start(more, argument);
    auto* const parentThread = va_arg(more, pid_t*);
    auto* const threadStorage = va_arg(more, void*);
    auto* const childThread = va_arg(more, pid_t*);
    va_end(more);

    // A thread shares memory on purpose; a child for whose program the caller waits does not need to.
    if ((flags & CLONE_VFORK) != 0)
        flags &= ~(CLONE_VM | CLONE_VFORK);
    return next(work, stack, flags, argument, parentThread, threadStorage, childThread);
}
