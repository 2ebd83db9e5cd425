// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// /proc/self/cgroup names the process's group relative to the root of its hierarchy; /proc/self/mountinfo says where
// that hierarchy is mounted and which of its groups is the mount's root.
#include "jobs/limits/ControlGroup.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <vector>

namespace {

QByteArray contentsOf(const QString& path)
{
    // The kernel reports size 0 for these files, so they are read up to a limit.
    constexpr qint64 kMost = 1 << 20;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(kMost) : QByteArray();
}

// A line of mountinfo:  36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root rw,errors=continue
struct Mount
{
    QString shownGroup; // the group of the hierarchy at the mount point
    QString point;
    QString type;
    QStringList options; // of the file system; in version 1 they name the controllers
};

std::vector<Mount> mountsOf(const QString& root)
{
    std::vector<Mount> mounts;
    for (const QByteArray& line : contentsOf(root + QStringLiteral("/proc/self/mountinfo")).split('\n')) {
        const QStringList words = QString::fromUtf8(line).split(QLatin1Char(' '));
        const qsizetype dash = words.indexOf(QStringLiteral("-"));
        if (dash < 5 || dash + 3 >= words.size())
            continue;
        mounts.push_back({words[3], words[4], words[dash + 1], words[dash + 3].split(QLatin1Char(','))});
    }
    return mounts;
}

// The process's group in the hierarchy of a controller: "4:cpu,cpuacct:/job" in version 1. With an empty controller,
// that of version 2: "0::/user.slice".
std::optional<QString> groupOf(const QString& root, const QString& controller)
{
    for (const QByteArray& line : contentsOf(root + QStringLiteral("/proc/self/cgroup")).split('\n')) {
        const QString text = QString::fromUtf8(line);
        const QStringList controllers = text.section(QLatin1Char(':'), 1, 1).split(QLatin1Char(','));
        if (controller.isEmpty() ? text.startsWith(QLatin1String("0::")) : controllers.contains(controller))
            return text.section(QLatin1Char(':'), 2);
    }
    return std::nullopt;
}

// The folders of a group and of its ancestors within the mount, from the group upwards.
QStringList foldersOf(const QString& root, const Mount& mount, const QString& group)
{
    QString below = group;
    // In a container, the mount's root is often the container's own group, while cgroup gives the group's name on the
    // machine.
    if (mount.shownGroup != QLatin1String("/"))
        below = group.startsWith(mount.shownGroup) ? group.mid(mount.shownGroup.size()) : QString();
    const QString top = QDir::cleanPath(root + mount.point);
    QStringList folders;
    for (QString folder = QDir::cleanPath(top + QLatin1Char('/') + below); folder.startsWith(top);
         folder = folder.section(QLatin1Char('/'), 0, -2))
        folders << folder;
    return folders;
}

std::optional<double> number(const QByteArray& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && value > 0.0 ? std::optional(value) : std::nullopt;
}

void takeSmaller(std::optional<double>& limit, std::optional<double> other)
{
    if (other && (!limit || *other < *limit))
        limit = other;
}

std::optional<double> share(std::optional<double> quota, std::optional<double> period)
{
    return quota && period ? std::optional(*quota / *period) : std::nullopt;
}

// "max 100000" or "150000 100000": microseconds in each period of this many.
std::optional<double> processorsOfVersion2(const QString& folder)
{
    const QList<QByteArray> words = contentsOf(folder + QStringLiteral("/cpu.max")).trimmed().split(' ');
    return words.size() == 2 ? share(number(words[0]), number(words[1])) : std::nullopt;
}

std::optional<double> processorsOfVersion1(const QString& folder)
{
    return share(number(contentsOf(folder + QStringLiteral("/cpu.cfs_quota_us"))),
                 number(contentsOf(folder + QStringLiteral("/cpu.cfs_period_us"))));
}

// Version 1 writes "no limit" as the largest whole number of pages.
std::optional<double> memoryOfVersion1(const QString& folder)
{
    constexpr double kNoLimit = 1LL << 60;
    const auto bytes = number(contentsOf(folder + QStringLiteral("/memory.limit_in_bytes")));
    return bytes && *bytes < kNoLimit ? bytes : std::nullopt;
}

// Calls a function with every folder whose limits apply to the process.
template<typename Function>
void forFolders(const QString& root, const Mount& mount, const QString& controller, const Function& function)
{
    if (const auto group = groupOf(root, controller))
        for (const QString& folder : foldersOf(root, mount, *group))
            function(folder);
}

} // namespace

ControlGroupLimits controlGroupLimits(const QString& root)
{
    const QString memory = QStringLiteral("memory");
    const QString processor = QStringLiteral("cpu");
    ControlGroupLimits limits;
    for (const Mount& mount : mountsOf(root)) {
        if (mount.type == QLatin1String("cgroup2"))
            forFolders(root, mount, QString(), [&](const QString& folder) {
                takeSmaller(limits.memory, number(contentsOf(folder + QStringLiteral("/memory.max"))));
                takeSmaller(limits.processors, processorsOfVersion2(folder));
            });
        if (mount.type == QLatin1String("cgroup") && mount.options.contains(memory))
            forFolders(root, mount, memory,
                       [&](const QString& folder) { takeSmaller(limits.memory, memoryOfVersion1(folder)); });
        if (mount.type == QLatin1String("cgroup") && mount.options.contains(processor))
            forFolders(root, mount, processor,
                       [&](const QString& folder) { takeSmaller(limits.processors, processorsOfVersion1(folder)); });
    }
    return limits;
}
