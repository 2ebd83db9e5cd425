// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/text/NameList.h"

QString namesForPeople(const QStringList& names)
{
    constexpr qsizetype kMost = 30;
    QStringList shown = names.mid(0, kMost);
    if (names.size() > kMost)
        shown << QStringLiteral("...");
    return shown.join(QStringLiteral(", "));
}
