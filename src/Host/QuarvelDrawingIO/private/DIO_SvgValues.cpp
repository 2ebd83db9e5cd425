// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading of attribute values.
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Finds one number at a time; what may stand between two of them is skipped.
const QRegularExpression& numberPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\G[\\s,]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
    return pattern;
}

struct Unit
{
    QLatin1String name;
    double pixels;
};

constexpr std::array kUnits = {
    Unit{QLatin1String("px"), 1.0},         Unit{QLatin1String("pt"), 96.0 / 72.0}, Unit{QLatin1String("pc"), 16.0},
    Unit{QLatin1String("mm"), 96.0 / 25.4}, Unit{QLatin1String("cm"), 96.0 / 2.54}, Unit{QLatin1String("in"), 96.0},
    Unit{QLatin1String("q"), 96.0 / 101.6}, Unit{QLatin1String(""), 1.0},
};

std::optional<double> unitSize(QStringView unit, const DIO_LengthContext& context)
{
    if (unit.startsWith(u'%'))
        return context.percentOf / 100.0;
    if (unit == u"em" || unit == u"rem")
        return context.fontSize;
    if (unit == u"ex" || unit == u"ch")
        return context.fontSize / 2.0;
    for (const Unit& known : kUnits)
        if (unit == known.name)
            return known.pixels;
    return std::nullopt;
}

std::optional<double> ifFinite(double value)
{
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// One component of rgb(): a number up to `full`, or a percentage of it; as a part of 1.
double componentOf(const QString& text, double full)
{
    const double value = QStringView(text).left(text.endsWith(u'%') ? text.size() - 1 : text.size()).toDouble();
    const double part = text.endsWith(u'%') ? value / 100.0 : value / full;
    return std::isfinite(part) ? std::clamp(part, 0.0, 1.0) : 0.0;
}

std::optional<QColor> functionColour(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^(rgba?|hsla?)\\(([^)]*)\\)"));
    static const QRegularExpression separators(QStringLiteral("[\\s,/]+"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QStringList parts = match.captured(2).split(separators, Qt::SkipEmptyParts);
    if (!match.hasMatch() || parts.size() < 3)
        return std::nullopt;
    const float alpha = parts.size() > 3 ? static_cast<float>(componentOf(parts[3], 1.0)) : 1.0F;
    const auto component = [&](qsizetype i, double full) { return static_cast<float>(componentOf(parts[i], full)); };
    if (match.capturedView(1).startsWith(u"rgb"))
        return QColor::fromRgbF(component(0, 255.0), component(1, 255.0), component(2, 255.0), alpha);
    const double turns = DIO_readNumbers(parts[0]).empty() ? 0.0 : DIO_readNumbers(parts[0]).front() / 360.0;
    const auto hue = static_cast<float>(turns - std::floor(turns));
    return QColor::fromHslF(std::min(hue, 1.0F), component(1, 100.0), component(2, 100.0), alpha).toRgb();
}

std::optional<QColor> hexColour(QStringView digits)
{
    bool ok = false;
    const uint value = digits.toUInt(&ok, 16);
    if (!ok)
        return std::nullopt;
    const auto nibble = [&](int i) { return static_cast<int>((value >> (4 * i)) & 0xF) * 17; };
    const auto byte = [&](int i) { return static_cast<int>((value >> (8 * i)) & 0xFF); };
    switch (digits.size()) {
    case 3:
        return QColor(nibble(2), nibble(1), nibble(0));
    case 4:
        return QColor(nibble(3), nibble(2), nibble(1), nibble(0));
    case 6:
        return QColor(byte(2), byte(1), byte(0));
    case 8:
        return QColor(byte(3), byte(2), byte(1), byte(0));
    default:
        return std::nullopt;
    }
}

} // namespace

std::vector<double> DIO_readNumbers(QStringView text)
{
    std::vector<double> numbers;
    const QString all = text.toString();
    qsizetype position = 0;
    while (true) {
        const QRegularExpressionMatch match = numberPattern().match(all, position);
        if (!match.hasMatch() || !ifFinite(match.capturedView(1).toDouble()))
            return numbers;
        numbers.push_back(match.capturedView(1).toDouble());
        position = match.capturedEnd();
    }
}

std::optional<double> DIO_readNumber(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    const std::vector<double> numbers = DIO_readNumbers(trimmed);
    if (numbers.empty())
        return std::nullopt;
    return trimmed.endsWith(u'%') ? numbers.front() / 100.0 : numbers.front();
}

std::optional<double> DIO_readLength(QStringView text, const DIO_LengthContext& context)
{
    const QString trimmed = text.trimmed().toString().toLower();
    const QRegularExpressionMatch match = numberPattern().match(trimmed);
    if (!match.hasMatch())
        return std::nullopt;
    static const QRegularExpression unitEnd(QStringLiteral("[\\s,]"));
    const QString unit = trimmed.mid(match.capturedEnd()).section(unitEnd, 0, 0);
    const std::optional<double> size = unitSize(unit, context);
    return size ? ifFinite(match.capturedView(1).toDouble() * *size) : std::nullopt;
}

std::optional<QColor> DIO_readColour(QStringView text)
{
    const QString lower = text.trimmed().toString().toLower();
    if (lower.startsWith(u"rgb") || lower.startsWith(u"hsl"))
        return functionColour(lower);
    // A colour profile's value may follow the plain colour.
    const QString word = lower.section(u' ', 0, 0);
    if (word.startsWith(u'#'))
        return hexColour(QStringView(word).mid(1));
    if (word == u"transparent")
        return QColor(0, 0, 0, 0);
    const QColor named(word);
    return named.isValid() ? std::optional(named) : std::nullopt;
}

std::optional<QRectF> DIO_readViewBox(QStringView text)
{
    const std::vector<double> numbers = DIO_readNumbers(text);
    if (numbers.size() < 4 || !(numbers[2] > 0.0) || !(numbers[3] > 0.0))
        return std::nullopt;
    return QRectF(numbers[0], numbers[1], numbers[2], numbers[3]);
}

DIO_AspectFit DIO_readAspectFit(QStringView text)
{
    const auto part = [&](QStringView axis) {
        if (text.contains(axis.toString() + "Min"))
            return 0.0;
        return text.contains(axis.toString() + "Max") ? 1.0 : 0.5;
    };
    DIO_AspectFit fit;
    fit.stretch = text.contains(u"none");
    fit.slice = text.contains(u"slice");
    fit.alignX = part(u"x");
    fit.alignY = part(u"Y");
    return fit;
}

QTransform DIO_fitTransform(const QRectF& box, const QRectF& into, const DIO_AspectFit& fit)
{
    double scaleX = into.width() / box.width();
    double scaleY = into.height() / box.height();
    if (!fit.stretch)
        scaleX = scaleY = fit.slice ? std::max(scaleX, scaleY) : std::min(scaleX, scaleY);
    const double left = into.left() + fit.alignX * (into.width() - box.width() * scaleX);
    const double top = into.top() + fit.alignY * (into.height() - box.height() * scaleY);
    QTransform transform;
    transform.translate(left, top);
    transform.scale(scaleX, scaleY);
    transform.translate(-box.left(), -box.top());
    return transform;
}
