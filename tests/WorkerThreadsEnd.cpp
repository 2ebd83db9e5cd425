// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Part of every test program that has Qt: when the tests are through, the threads of their loops end before the process
// does. One that was still at it would be reported as a leak of what Qt keeps for each thread.
#include "jobs/WorkerThreads.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

class WorkerThreadsEnd : public testing::Environment
{
public:
    void SetUp() override { _threads.emplace(); }
    void TearDown() override { _threads.reset(); }

private:
    std::optional<WorkerThreads> _threads;
};

const testing::Environment* const kWorkerThreadsEnd = testing::AddGlobalTestEnvironment(new WorkerThreadsEnd);

} // namespace
