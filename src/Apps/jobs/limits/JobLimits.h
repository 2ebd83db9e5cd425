// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// JobLimits: how much of the machine this process may use. A render farm gives a job a part of a machine, and slows
// down or kills a job that takes more, so the smallest of these counts:
//
//     threads    the processors that the system schedules the process on (affinity), the quota of its control groups
//                (rounded up), SLURM_CPUS_PER_TASK
//     memory     the machine's memory, its available part, the limits of the control groups, and Slurm's
//                SLURM_MEM_PER_NODE or SLURM_MEM_PER_CPU times the processors (both in MiB)
#pragma once

#include "jobs/limits/ControlGroup.h"

#include <QByteArray>

#include <functional>

/// What a process may use.
struct JobLimits
{
    int threads = 1;     ///< at least 1
    double memory = 0.0; ///< bytes

    /// The bytes that the frames of a run may take together unless somebody says otherwise: half, because what they are
    /// made of, their files and other programs take memory, too.
    double memoryForFrames() const { return memory / 2.0; }
};

/// The limits of the different sources.
struct JobLimitSources
{
    int processors = 1;           ///< those that the process may run on
    double machineMemory = 0.0;   ///< bytes
    double availableMemory = 0.0; ///< bytes available without swapping; 0 where the system does not tell
    ControlGroupLimits groups = {};
    std::function<QByteArray(const char*)> environment = {}; ///< a variable's value, empty where it is not set
};

/// The limits that follow from these sources. A variable without a whole number above 0 is ignored.
JobLimits jobLimits(const JobLimitSources& sources);

/// The current limits of this process. Any thread may call it.
JobLimits jobLimits();
