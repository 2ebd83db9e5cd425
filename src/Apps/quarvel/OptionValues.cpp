// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Readers of single command line values.
#include "OptionValues.h"

#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"
#include "jobs/text/WrongValue.h"

#include <cmath>

UT_Result<double> parseNumber(const QString& option, const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return wrongValue(option, QStringLiteral("a number such as 24 or 0.5"), text);
    return value;
}

UT_Result<double> parseNumber(const QString& option, const QString& text, double low, double high)
{
    UT_Result<double> value = parseNumber(option, text);
    if (!value || *value < low || *value > high)
        return wrongValue(option, QStringLiteral("a number from %1 to %2").arg(low).arg(high, 0, 'g', 10), text);
    return value;
}

UT_Result<int> parseWholeNumber(const QString& option, const QString& text, int low, int high)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < low || value > high)
        return wrongValue(option, QStringLiteral("a whole number from %1 to %2").arg(low).arg(high), text);
    return value;
}

UT_Result<double> parseHeightRange(const QString& option, const QString& text)
{
    return parseNumber(option, text, 0.001, 1e6);
}

UT_Result<QSize> parseSize(const QString& option, const QString& text)
{
    const QStringList numbers = text.toLower().split(QLatin1Char('x'));
    bool widthOk = false;
    bool heightOk = true;
    const int width = numbers.first().toInt(&widthOk);
    const int height = numbers.size() == 2 ? numbers.last().toInt(&heightOk) : 0;
    if (numbers.size() > 2 || !widthOk || !heightOk)
        return wrongValue(option, QStringLiteral("a width and a height in pixels such as 1920x1080, or a width alone"),
                          text);
    if (width < 1 || (numbers.size() == 2 && height < 1))
        return UT_Error{QStringLiteral("%1 %2: a picture is at least 1 pixel wide and 1 pixel high").arg(option, text)};
    constexpr int kMost = RD_RenderParameters::kMaxResolution;
    if (width > kMost || height > kMost)
        return UT_Error{QStringLiteral("%1 %2: a picture is at most %3 pixels wide and %3 pixels high")
                            .arg(option, text)
                            .arg(kMost)};
    return QSize(width, height);
}

UT_Result<QColor> parseColour(const QString& option, const QString& text)
{
    const QColor colour(text.trimmed());
    if (!colour.isValid() || colour.alpha() != 255)
        return wrongValue(option, QStringLiteral("a colour such as #1b1b1b"), text);
    return colour;
}

UT_Result<std::pair<QString, QString>> splitColourValue(const QString& option, const QString& text, const QString& what)
{
    const auto equals = text.lastIndexOf(QLatin1Char('='));
    if (equals < 1)
        return wrongValue(option, what, text);
    return std::pair{text.left(equals), text.mid(equals + 1)};
}

UT_Result<std::optional<QColor>> parseColourOrAll(const QString& option, const QString& text)
{
    if (text == QLatin1String("all"))
        return std::optional<QColor>();
    const UT_Result<QColor> colour = parseColour(option, text);
    if (!colour)
        return colour.error();
    return std::optional<QColor>(*colour);
}

UT_Result<int> parseChoice(const QString& option, const QString& text, const QStringList& choices)
{
    const auto index = choices.indexOf(text.toLower());
    if (index < 0)
        return wrongValue(option, QStringLiteral("one of ") + choices.join(QStringLiteral(", ")), text);
    return static_cast<int>(index);
}
