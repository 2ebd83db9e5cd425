// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Counts names without their numbers.
#include "jobs/sheets/AnimationNames.h"

#include <QHash>
#include <QRegularExpression>

namespace {

QString withoutNumber(const QString& name)
{
    static const QRegularExpression number(QStringLiteral("[0-9]+(?=[^0-9]*$)"));
    return QString(name).replace(number, QStringLiteral("#"));
}

} // namespace

void nameAnimations(std::vector<SheetRegion>& regions)
{
    QHash<QString, int> counts;
    for (const SheetRegion& region : regions)
        ++counts[withoutNumber(region.name)];
    for (SheetRegion& region : regions)
        if (const QString name = withoutNumber(region.name); region.animation.isEmpty() && counts.value(name) > 1)
            region.animation = name;
}
