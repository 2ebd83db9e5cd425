// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much of a machine a job may use, from the files of the kernel and the variables of a scheduler.
#include "jobs/limits/JobLimits.h"
#include "TestFolder.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace {

constexpr double kGibibyte = 1024.0 * 1024.0 * 1024.0;

// A machine of 16 processors and 64 GiB, of which 48 are available.
JobLimitSources machine(const std::map<std::string, QByteArray>& variables = {})
{
    return {.processors = 16,
            .machineMemory = 64.0 * kGibibyte,
            .availableMemory = 48.0 * kGibibyte,
            .groups = {},
            .environment = [variables](const char* name) {
                const auto found = variables.find(name);
                return found == variables.end() ? QByteArray() : found->second;
            }};
}

TEST(JobLimits, AreThoseOfTheMachineWhereNothingElseLimits)
{
    EXPECT_EQ(jobLimits(machine()).threads, 16);
    EXPECT_EQ(jobLimits(machine()).memory, 48.0 * kGibibyte);
}

TEST(JobLimits, RoundAQuotaOfProcessorsUp)
{
    JobLimitSources sources = machine();
    sources.groups.processors = 2.5;
    EXPECT_EQ(jobLimits(sources).threads, 3);
    sources.groups.processors = 0.1;
    EXPECT_EQ(jobLimits(sources).threads, 1);
    sources.groups.processors = 64.0;
    EXPECT_EQ(jobLimits(sources).threads, 16);
}

TEST(JobLimits, FollowTheControlGroupsMemory)
{
    JobLimitSources sources = machine();
    sources.groups.memory = 2.0 * kGibibyte;
    EXPECT_EQ(jobLimits(sources).memory, 2.0 * kGibibyte);
    sources.groups.memory = 100.0 * kGibibyte;
    EXPECT_EQ(jobLimits(sources).memory, 48.0 * kGibibyte);
}

TEST(JobLimits, FollowSlurm)
{
    const JobLimits node = jobLimits(machine({{"SLURM_CPUS_PER_TASK", "4"}, {"SLURM_MEM_PER_NODE", "3072"}}));
    EXPECT_EQ(node.threads, 4);
    EXPECT_EQ(node.memory, 3.0 * kGibibyte);
    const JobLimits processor = jobLimits(machine({{"SLURM_CPUS_PER_TASK", "4"}, {"SLURM_MEM_PER_CPU", "512"}}));
    EXPECT_EQ(processor.memory, 2.0 * kGibibyte);
    const JobLimits perProcessor = jobLimits(machine({{"SLURM_MEM_PER_CPU", "512"}}));
    EXPECT_EQ(perProcessor.memory, 8.0 * kGibibyte) << "a task of 16 processors";
}

TEST(JobLimits, IgnoreVariablesThatHoldNoAmount)
{
    const JobLimits limits = jobLimits(machine({{"SLURM_CPUS_PER_TASK", "0"}, {"SLURM_MEM_PER_NODE", "all"}}));
    EXPECT_EQ(limits.threads, 16);
    EXPECT_EQ(limits.memory, 48.0 * kGibibyte);
}

TEST(JobLimits, AreNoReasonForComplaintsOnOneProcessor)
{
    if (QStandardPaths::findExecutable(QStringLiteral("taskset")).isEmpty())
        GTEST_SKIP() << "taskset (package util-linux) is not installed";
    const QTemporaryDir folder;
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(QStringLiteral("taskset"),
                  {QStringLiteral("-c"), QStringLiteral("0"), QStringLiteral(QUARVEL_PROGRAM),
                   QStringLiteral("normalmap"), QStringLiteral(EXAMPLE_DRAWING), QStringLiteral("-q"),
                   QStringLiteral("--size"), QStringLiteral("64"), QStringLiteral("-o"), QStringLiteral("n.png")});
    ASSERT_TRUE(process.waitForFinished(120'000)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAllStandardError().toStdString(), "") << "no library complains of its threads";
}

// A folder that imitates the root of a machine.
class ControlGroups : public testing::Test, protected TestFolder
{
protected:
    ControlGroupLimits limits() const { return controlGroupLimits(path()); }
};

TEST_F(ControlGroups, LimitNothingWhereThereAreNone)
{
    EXPECT_FALSE(limits().memory);
    EXPECT_FALSE(limits().processors);
}

TEST_F(ControlGroups, OfVersion2CountWithThoseAboveThem)
{
    write("proc/self/cgroup", "0::/render/job/step\n");
    write("proc/self/mountinfo", "30 24 0:26 / /sys/fs/cgroup rw,nosuid shared:9 - cgroup2 cgroup2 rw\n");
    write("sys/fs/cgroup/render/memory.max", "4294967296\n");
    write("sys/fs/cgroup/render/cpu.max", "800000 100000\n");
    write("sys/fs/cgroup/render/job/memory.max", "2147483648\n");
    write("sys/fs/cgroup/render/job/cpu.max", "max 100000\n");
    write("sys/fs/cgroup/render/job/step/memory.max", "max\n");
    write("sys/fs/cgroup/render/job/step/cpu.max", "150000 100000\n");
    EXPECT_EQ(limits().memory, 2.0 * kGibibyte);
    EXPECT_EQ(limits().processors, 1.5);
}

TEST_F(ControlGroups, OfAContainerStandAtTheMountsRoot)
{
    write("proc/self/cgroup", "0::/docker/4f5c\n");
    write("proc/self/mountinfo", "30 24 0:26 /docker/4f5c /sys/fs/cgroup ro - cgroup2 cgroup2 rw\n");
    write("sys/fs/cgroup/memory.max", "1073741824\n");
    EXPECT_EQ(limits().memory, kGibibyte);
}

TEST_F(ControlGroups, OfVersion1StandWithTheirControllers)
{
    write("proc/self/cgroup", "5:cpu,cpuacct:/job\n3:memory:/job\n");
    write("proc/self/mountinfo", "30 24 0:26 / /sys/fs/cgroup/memory rw - cgroup cgroup rw,memory\n"
                                 "31 24 0:27 / /sys/fs/cgroup/cpu,cpuacct rw - cgroup cgroup rw,cpu,cpuacct\n");
    write("sys/fs/cgroup/memory/memory.limit_in_bytes", "9223372036854771712\n");
    write("sys/fs/cgroup/memory/job/memory.limit_in_bytes", "3221225472\n");
    write("sys/fs/cgroup/cpu,cpuacct/job/cpu.cfs_quota_us", "200000\n");
    write("sys/fs/cgroup/cpu,cpuacct/job/cpu.cfs_period_us", "100000\n");
    write("sys/fs/cgroup/cpu,cpuacct/cpu.cfs_quota_us", "-1\n");
    write("sys/fs/cgroup/cpu,cpuacct/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(limits().memory, 3.0 * kGibibyte);
    EXPECT_EQ(limits().processors, 2.0);
}

} // namespace
