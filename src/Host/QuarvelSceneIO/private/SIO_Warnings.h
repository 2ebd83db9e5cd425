// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_Warnings: the warnings about a scene that can be loaded nevertheless. A file can cause the same warning a million
// times; it is reported once, with its first place and a count.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QHash>
#include <QStringList>

#include <vector>

class QUARVELSCENEIO_EXPORT SIO_Warnings
{
public:
    /// The number of different warnings that are kept; further ones are only counted.
    static constexpr std::size_t kMost = 100;

    /// @param place the place: "FILE" or "FILE, line N"; empty if the reason names it
    /// @param what the reason; warnings with the same reason become one
    void add(const QString& place, const QString& what);

    /// One line for each warning, in the order in which they first occurred: "PLACE: WHAT (and N times more)". Very
    /// long reasons are shortened.
    QStringList lines() const;

private:
    struct Warning
    {
        QString place;
        QString what;
        qint64 count = 1;
    };

    std::vector<Warning> _warnings;
    QHash<QString, std::size_t> _byReason;
    qint64 _others = 0;
};
