// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// WorkerThreads: the threads that loops run on, as the part of a program that needs them.
#pragma once

#include <oneapi/tbb/global_control.h>

#include <new>
#include <optional>

/// Waits at the end of its scope until the threads have ended. Otherwise they would still be putting away what Qt keeps
/// for each thread while the process takes Qt apart.
class WorkerThreads
{
public:
    WorkerThreads() = default;
    /// @param most at least 1: loops run on no more threads than this as long as the object lives
    explicit WorkerThreads(int most)
        : _most(std::in_place, tbb::global_control::max_allowed_parallelism, static_cast<std::size_t>(most))
    {}
    ~WorkerThreads()
    {
        _most.reset();
        tbb::finalize(_threads, std::nothrow);
    }
    WorkerThreads(const WorkerThreads&) = delete;
    WorkerThreads& operator=(const WorkerThreads&) = delete;

private:
    tbb::task_scheduler_handle _threads{tbb::attach{}};
    std::optional<tbb::global_control> _most;
};
