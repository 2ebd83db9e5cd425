// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#pragma once

#include <oneapi/tbb/global_control.h>

#include <new>

/// The threads that loops run on, as the part of a program that needs them: the end of its scope waits until they have
/// ended. Otherwise they would still be putting away what Qt keeps for each thread while the process takes Qt apart.
class WorkerThreads
{
public:
    WorkerThreads() = default;
    ~WorkerThreads() { tbb::finalize(_threads, std::nothrow); }
    WorkerThreads(const WorkerThreads&) = delete;
    WorkerThreads& operator=(const WorkerThreads&) = delete;

private:
    tbb::task_scheduler_handle _threads{tbb::attach{}};
};
