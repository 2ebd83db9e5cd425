// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Asks the operating system and the environment.
#include "jobs/limits/JobLimits.h"

#include <QFile>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <thread>

#ifdef _WIN32
#include <qt_windows.h>
#else
#include <sched.h>
#include <unistd.h>
#endif

namespace {

std::optional<double> number(const JobLimitSources& sources, const char* variable)
{
    bool ok = false;
    const qulonglong value = sources.environment(variable).trimmed().toULongLong(&ok);
    return ok && value > 0 ? std::optional(static_cast<double>(value)) : std::nullopt;
}

int threadsOf(const JobLimitSources& sources)
{
    double threads = sources.processors;
    if (sources.groups.processors)
        threads = std::min(threads, std::ceil(*sources.groups.processors));
    if (const auto perTask = number(sources, "SLURM_CPUS_PER_TASK"))
        threads = std::min(threads, *perTask);
    return std::max(1, static_cast<int>(threads));
}

std::optional<double> memoryOfSlurm(const JobLimitSources& sources, int threads)
{
    constexpr double kMebibyte = 1024.0 * 1024.0;
    if (const auto perNode = number(sources, "SLURM_MEM_PER_NODE"))
        return *perNode * kMebibyte;
    if (const auto perProcessor = number(sources, "SLURM_MEM_PER_CPU"))
        return *perProcessor * number(sources, "SLURM_CPUS_PER_TASK").value_or(threads) * kMebibyte;
    return std::nullopt;
}

#ifdef _WIN32

JobLimitSources sourcesOfThisProcess()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    JobLimitSources sources;
    DWORD_PTR process = 0;
    DWORD_PTR machine = 0;
    if (GetProcessAffinityMask(GetCurrentProcess(), &process, &machine) && process != 0)
        sources.processors = std::popcount(static_cast<std::uint64_t>(process));
    sources.machineMemory = static_cast<double>(status.ullTotalPhys);
    sources.availableMemory = static_cast<double>(status.ullAvailPhys);
    return sources;
}

#else

int processorsOfThisProcess()
{
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) == 0)
        return CPU_COUNT(&set);
    // On a machine with more than 1,024 processors the call fails, because the set is too small.
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

// "MemAvailable:   20971520 kB"
double availableMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("MemAvailable:"))
            return line.mid(line.indexOf(':') + 1).trimmed().split(' ').first().toDouble() * 1024.0;
    return 0.0;
}

JobLimitSources sourcesOfThisProcess()
{
    JobLimitSources sources;
    sources.processors = processorsOfThisProcess();
    sources.machineMemory = static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGE_SIZE));
    sources.availableMemory = availableMemory();
    sources.groups = controlGroupLimits();
    return sources;
}

#endif

} // namespace

JobLimits jobLimits(const JobLimitSources& sources)
{
    JobLimits limits;
    limits.threads = threadsOf(sources);
    limits.memory = sources.machineMemory;
    if (sources.availableMemory > 0.0)
        limits.memory = std::min(limits.memory, sources.availableMemory);
    if (sources.groups.memory)
        limits.memory = std::min(limits.memory, *sources.groups.memory);
    if (const auto slurm = memoryOfSlurm(sources, limits.threads))
        limits.memory = std::min(limits.memory, *slurm);
    return limits;
}

JobLimits jobLimits()
{
    JobLimitSources sources = sourcesOfThisProcess();
    sources.environment = [](const char* variable) { return qgetenv(variable); };
    return jobLimits(sources);
}
