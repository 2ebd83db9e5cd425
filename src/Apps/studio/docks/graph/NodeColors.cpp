// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The host's own kinds have hues that are easy to tell apart; those of plug-ins get theirs from their keyword.
#include "studio/docks/graph/NodeColors.h"

#include "QuarvelBaseCore/UT_Id.h"
#include "jobs/shown/NormalMapNode.h"

#include <QHash>

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor blended(const QColor& first, const QColor& second, double share)
{
    const auto between = [share](float a, float b) { return a + (b - a) * static_cast<float>(share); };
    return QColor::fromRgbF(between(first.redF(), second.redF()), between(first.greenF(), second.greenF()),
                            between(first.blueF(), second.blueF()), between(first.alphaF(), second.alphaF()));
}

QColor quietText(const QPalette& palette)
{
    return blended(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.35);
}

QColor kindColor(const QString& keyword, const QPalette& palette)
{
    static const QHash<QString, int> hues{{QStringLiteral("READ"), 210},     {QStringLiteral("DISPLAY"), 140},
                                          {QStringLiteral("COMPOSITE"), 32}, {QStringLiteral("GLUE"), 52},
                                          {QStringLiteral("GROUP"), 275},    {NormalMapNode::keyword(), 350}};
    const int hue = hues.value(keyword, static_cast<int>(UT_Id::fromName(keyword).value() % 360));
    // In the light theme, yellow (the brightest hue) must have a contrast of 3 with the background.
    return QColor::fromHsl(hue, 150, isDark(palette) ? 150 : 95);
}
