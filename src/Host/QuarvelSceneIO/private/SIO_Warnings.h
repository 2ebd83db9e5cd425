// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_Warnings: what people are told about a scene that loads all the same. A file can give the same reason to warn a
// million times; it is said once, with the first place and a count.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QHash>
#include <QStringList>

#include <vector>

class QUARVELSCENEIO_EXPORT SIO_Warnings
{
public:
    /// The number of different warnings that are kept; of others there is a count.
    static constexpr std::size_t kMost = 100;

    /// @param place where: "FILE" or "FILE, line N"; empty where the reason says it
    /// @param what the reason; warnings of the same reason are one
    void add(const QString& place, const QString& what);

    /// A line each, in the order of their first places: "PLACE: WHAT (and N times more)". A reason that is very long is
    /// cut.
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
