// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A colour and a number, joined by an equals sign.
#include "GlossOption.h"

#include "OptionValues.h"

Taken addGloss(GlossSettings& settings, const QString& option, const QString& value)
{
    const auto words = splitColourValue(option, value, QStringLiteral("a colour and its gloss, such as '#9aa=0.8'"));
    if (!words)
        return words.error();
    const auto gloss = parseNumber(option + QStringLiteral(" (the gloss)"), words->second, 0.0, 1.0);
    if (!gloss)
        return gloss.error();
    return keep(parseColourOrAll(option, words->first), [&](const std::optional<QColor>& colour) {
        if (colour)
            settings.colours.push_back({*colour, *gloss});
        else
            settings.others = *gloss;
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
