// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// WorkerThreads: the lifetime of the threads on which parallel loops run.
#pragma once

#include <oneapi/tbb/global_control.h>

#include <new>
#include <optional>

/// Waits at the end of its scope until the threads have ended. Otherwise they could still destroy Qt's thread-local
/// data while the process already unloads Qt.
class WorkerThreads
{
public:
    WorkerThreads() = default;
    /// @param most the largest number of threads of loops during the object's lifetime, at least 1
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
