// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tests of vector code choose the instruction set that it runs with.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include <hwy/targets.h>

/// Makes the vector code run with one instruction set until it is gone.
class OneInstructionSet
{
public:
    explicit OneInstructionSet(std::int64_t target)
    {
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    }
    ~OneInstructionSet()
    {
        hwy::SetSupportedTargetsForTest(0);
        hwy::GetChosenTarget().DeInit();
    }
    OneInstructionSet(const OneInstructionSet&) = delete;
    OneInstructionSet& operator=(const OneInstructionSet&) = delete;
};

/// Runs work with each instruction set that this machine has, the plainest included.
template<typename Work>
void withEachInstructionSet(const Work& work)
{
    for (std::int64_t rest = hwy::SupportedTargets() | HWY_SCALAR; rest != 0; rest &= rest - 1) {
        const OneInstructionSet only(rest & -rest);
        SCOPED_TRACE(hwy::TargetName(rest & -rest));
        work();
    }
}
