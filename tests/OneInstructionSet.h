// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lets tests of vector code choose its instruction set.
#pragma once

#include "QuarvelVectorLanes/VL_Targets.h"

#include <gtest/gtest.h>

#include <cstdint>

/// Restricts vector code to one instruction set for the lifetime of this object.
class OneInstructionSet
{
public:
    explicit OneInstructionSet(std::int64_t target) { VL_chooseAmong(target); }
    ~OneInstructionSet() { VL_chooseAmong(0); }
    OneInstructionSet(const OneInstructionSet&) = delete;
    OneInstructionSet& operator=(const OneInstructionSet&) = delete;
};

/// Calls work with each instruction set that this machine has, including the baseline.
template<typename Work>
void withEachInstructionSet(const Work& work)
{
    for (std::int64_t rest = VL_supportedTargets() | HWY_SCALAR; rest != 0; rest &= rest - 1) {
        const OneInstructionSet only(rest & -rest);
        SCOPED_TRACE(hwy::TargetName(rest & -rest));
        work();
    }
}
