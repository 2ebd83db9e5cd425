// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The distance of Damerau and Levenshtein in its restricted form (optimal string alignment), by three rows of its
// table.
#include "jobs/text/NearestWord.h"

#include <algorithm>
#include <vector>

namespace {

int distance(const QString& a, const QString& b)
{
    const auto width = static_cast<std::size_t>(b.size()) + 1;
    std::vector<int> beforeLast(width);
    std::vector<int> last(width);
    std::vector<int> row(width);
    for (std::size_t j = 0; j < width; ++j)
        row[j] = static_cast<int>(j);
    for (qsizetype i = 0; i < a.size(); ++i) {
        std::swap(beforeLast, last);
        std::swap(last, row);
        row[0] = static_cast<int>(i) + 1;
        for (qsizetype j = 0; j < b.size(); ++j) {
            const auto at = static_cast<std::size_t>(j);
            row[at + 1] = std::min({last[at] + (a[i] == b[j] ? 0 : 1), last[at + 1] + 1, row[at] + 1});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                row[at + 1] = std::min(row[at + 1], beforeLast[at - 1] + 1);
        }
    }
    return row.back();
}

} // namespace

QString nearestWord(const QString& typed, const QStringList& words)
{
    QString nearest;
    int fewest = 0;
    for (const QString& word : words) {
        const int changes = distance(typed, word);
        const bool isFar = changes >= word.size() || 3 * changes > std::max<qsizetype>(3, word.size());
        if (isFar || (!nearest.isEmpty() && changes >= fewest))
            continue;
        nearest = word;
        fewest = changes;
    }
    return nearest;
}
