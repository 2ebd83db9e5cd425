// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A job that may run on one processor of several, as by taskset or in a job of a scheduler.
#include "jobs/limits/JobLimits.h"

#include <gtest/gtest.h>

#include <sched.h>

namespace {

// The processors that this thread may run on, which become those of before with the object.
class Affinity
{
public:
    Affinity() { _isKnown = sched_getaffinity(0, sizeof _before, &_before) == 0; }
    ~Affinity()
    {
        if (_isKnown)
            sched_setaffinity(0, sizeof _before, &_before);
    }
    Affinity(const Affinity&) = delete;
    Affinity& operator=(const Affinity&) = delete;

    // @return whether the thread may run on its first processor alone now
    bool keepOne()
    {
        cpu_set_t one;
        CPU_ZERO(&one);
        for (std::size_t i = 0; i < CPU_SETSIZE && CPU_COUNT(&one) == 0; ++i)
            if (CPU_ISSET(i, &_before))
                CPU_SET(i, &one);
        return _isKnown && sched_setaffinity(0, sizeof one, &one) == 0;
    }

private:
    cpu_set_t _before{};
    bool _isKnown = false;
};

TEST(JobLimits, FollowTheAffinityOfTheProcess)
{
    Affinity affinity;
    ASSERT_TRUE(affinity.keepOne());
    EXPECT_EQ(jobLimits().threads, 1);
}

} // namespace
