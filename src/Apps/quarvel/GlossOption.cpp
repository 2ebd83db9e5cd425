// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A colour and a number, joined by an equals sign.
#include "GlossOption.h"

#include "OptionValues.h"

Taken addGloss(GlossSettings& settings, const QString& option, const QString& value)
{
    const auto equals = value.lastIndexOf(QLatin1Char('='));
    if (equals < 1)
        return UT_Error{
            QStringLiteral("%1 takes a colour and its gloss, such as '#9aa=0.8', not \"%2\"").arg(option, value)};
    const auto gloss = parseNumber(option + QStringLiteral(" (the gloss)"), value.mid(equals + 1), 0.0, 1.0);
    if (!gloss)
        return gloss.error();
    const QString colourText = value.left(equals);
    if (colourText == QLatin1String("all")) {
        settings.others = *gloss;
        return {};
    }
    return keep(parseColour(option, colourText), [&](const QColor& colour) {
        settings.colours.push_back({colour, *gloss});
    });
}

QString glossWarning(const std::vector<QColor>& missing)
{
    QStringList names;
    for (const QColor& colour : missing)
        names << colour.name();
    return names.isEmpty() ? QString()
                           : QStringLiteral("no place has the colour %1 of --gloss; quarvel inspect lists a drawing's "
                                            "colours")
                                 .arg(names.join(QStringLiteral(", ")));
}
