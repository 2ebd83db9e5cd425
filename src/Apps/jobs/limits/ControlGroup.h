// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limits of the Linux control groups that a process runs in, as schedulers and containers set them: version 2, and
// the controllers "memory" and "cpu" of version 1. A group's limit applies to all groups below it, so the smallest of a
// group and its ancestors counts. The kernel's documentation (admin-guide/cgroup-v2 and cgroup-v1) describes the files.
#pragma once

#include <QString>

#include <optional>

/// The groups' limits; nothing where they set none.
struct ControlGroupLimits
{
    std::optional<double> processors; ///< processor time as a number of processors, such as 1.5
    std::optional<double> memory;     ///< bytes
};

/// Reads the limits of this process. Unreadable files set no limit. Any thread may call it.
///
/// @param root the folder that contains "proc/self/cgroup", "proc/self/mountinfo" and the mount points; tests use other
/// folders than "/"
ControlGroupLimits controlGroupLimits(const QString& root = QStringLiteral("/"));
