// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Part of every test program with Qt: after the tests, the worker threads of their loops end before the process does. A
// thread that still runs would be reported as a leak of the data that Qt keeps for each thread. The process then ends
// as the programs do.
#include "jobs/ProgramEnd.h"
#include "jobs/WorkerThreads.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace {

class WorkerThreadsEnd : public testing::Environment
{
public:
    void SetUp() override
    {
        _threads.emplace();
        std::atexit([] { endProgram(testing::UnitTest::GetInstance()->Failed() ? 1 : 0); });
    }
    void TearDown() override { _threads.reset(); }

private:
    std::optional<WorkerThreads> _threads;
};

const testing::Environment* const kWorkerThreadsEnd = testing::AddGlobalTestEnvironment(new WorkerThreadsEnd);

} // namespace
