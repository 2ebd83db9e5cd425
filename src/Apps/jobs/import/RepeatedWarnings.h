// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RepeatedWarnings: combines the same warning about many files to one line.
#pragma once

#include <QHash>
#include <QStringList>

class RepeatedWarnings
{
public:
    void add(const QString& file, const QStringList& warnings)
    {
        for (const QString& warning : warnings) {
            if (!_files.contains(warning))
                _order.append(warning);
            _files[warning].append(file);
        }
    }

    /// One line for each different warning, in the order of first use.
    QStringList lines() const
    {
        QStringList lines;
        for (const QString& warning : _order) {
            const QStringList& files = _files.constFind(warning).value();
            const QString more = files.size() > 1 ? QStringLiteral(" and %1 more").arg(files.size() - 1) : QString();
            lines.append(files.first() + more + QStringLiteral(": ") + warning);
        }
        return lines;
    }

private:
    QStringList _order;
    QHash<QString, QStringList> _files;
};
