// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names that are equal in full are shortened alike.
#include "studio/docks/timeline/ShortNames.h"

#include <QFontMetricsF>
#include <QHash>

std::vector<QString> shortNames(const std::vector<RoomForName>& names, const QFontMetricsF& metrics)
{
    std::vector<QString> result(names.size());
    std::vector<bool> isFound(names.size());
    for (const Qt::TextElideMode mode : {Qt::ElideMiddle, Qt::ElideRight, Qt::ElideLeft}) {
        std::vector<QString> texts(names.size());
        QHash<QString, int> uses;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (!isFound[i]) {
                texts[i] = metrics.elidedText(names[i].name, mode, names[i].width);
                ++uses[texts[i]];
            }
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (isFound[i])
                continue;
            // What differs nowhere is shortened in the middle.
            if (mode == Qt::ElideMiddle || uses[texts[i]] == 1)
                result[i] = texts[i];
            isFound[i] = uses[texts[i]] == 1 || texts[i] == names[i].name;
        }
    }
    return result;
}
