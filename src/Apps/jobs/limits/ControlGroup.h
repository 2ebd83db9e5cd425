// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limits of the control groups that Linux runs a process in, as schedulers and containers set them: version 2, and
// the controllers "memory" and "cpu" of version 1. A limit counts for all groups below the one that has it, so the
// smallest of a group and those above it is taken. The files are described in the kernel's documentation
// (admin-guide/cgroup-v2 and cgroup-v1).
#pragma once

#include <QString>

#include <optional>

/// What the groups allow; nothing where they set no limit.
struct ControlGroupLimits
{
    std::optional<double> processors; ///< time on so many processors, such as 1.5
    std::optional<double> memory;     ///< bytes
};

/// Reads the limits of this process. What cannot be read limits nothing. Any thread may call it.
///
/// @param root the folder that "proc/self/cgroup", "proc/self/mountinfo" and the mount points are looked for in; other
///             folders than "/" are for tests
ControlGroupLimits controlGroupLimits(const QString& root = QStringLiteral("/"));
