// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/text/TextTable.h"

#include <algorithm>

namespace {

std::vector<qsizetype> widthsOf(const std::vector<QStringList>& rows)
{
    std::vector<qsizetype> widths;
    for (const QStringList& row : rows) {
        widths.resize(static_cast<std::size_t>(row.size()), 0);
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[static_cast<qsizetype>(i)].size());
    }
    return widths;
}

} // namespace

QStringList tableLines(const std::vector<QStringList>& rows)
{
    const std::vector<qsizetype> widths = widthsOf(rows);
    QStringList lines;
    for (const QStringList& row : rows) {
        QString line;
        for (std::size_t i = 0; i < widths.size(); ++i)
            line += row[static_cast<qsizetype>(i)].leftJustified(widths[i] + 2);
        lines << QStringLiteral("  ") + line.trimmed();
    }
    return lines;
}
