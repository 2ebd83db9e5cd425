// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Transforms are read function by function, each multiplied from the right: the last one acts first.
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QRegularExpression>

#include <cmath>
#include <numbers>

namespace {

// What the numbers of a transform are relative to.
struct Reference
{
    QRectF box;
    double fontSize;
};

std::optional<double> degreesOf(const QString& text)
{
    constexpr std::pair<QLatin1String, double> kUnits[] = {{QLatin1String("deg"), 1.0},
                                                           {QLatin1String("grad"), 0.9},
                                                           {QLatin1String("rad"), 180.0 / std::numbers::pi},
                                                           {QLatin1String("turn"), 360.0}};
    for (const auto& [unit, degrees] : kUnits)
        if (text.endsWith(unit))
            if (const auto value = DIO_readNumber(QStringView(text).chopped(unit.size())))
                return *value * degrees;
    return DIO_readNumber(text);
}

// One function, such as "rotate" of "45deg".
std::optional<QTransform> functionOf(const QString& name, const QStringList& words, const Reference& reference)
{
    const auto along = [&](qsizetype i, double percentOf) {
        return i < words.size() ? DIO_readLength(words[i], {percentOf, reference.fontSize}).value_or(0.0) : 0.0;
    };
    const auto x = [&](qsizetype i) { return along(i, reference.box.width()); };
    const auto y = [&](qsizetype i) { return along(i, reference.box.height()); };
    const auto number = [&](qsizetype i, double otherwise) {
        return i < words.size() ? DIO_readNumber(words[i]).value_or(otherwise) : otherwise;
    };
    const auto degrees = [&](qsizetype i) { return i < words.size() ? degreesOf(words[i]).value_or(0.0) : 0.0; };
    const auto shear = [&](qsizetype i) { return std::tan(degrees(i) * std::numbers::pi / 180.0); };
    QTransform made;
    if (name == u"matrix" && words.size() == 6)
        return QTransform(number(0, 1), number(1, 0), number(2, 0), number(3, 1), number(4, 0), number(5, 0));
    if (name == u"translate" || name == u"translate3d")
        return made.translate(x(0), y(1));
    if (name == u"translateX")
        return made.translate(x(0), 0.0);
    if (name == u"translateY")
        return made.translate(0.0, y(0));
    if (name == u"scale" || name == u"scale3d")
        return made.scale(number(0, 1), number(1, number(0, 1)));
    if (name == u"scaleX")
        return made.scale(number(0, 1), 1.0);
    if (name == u"scaleY")
        return made.scale(1.0, number(0, 1));
    if (name == u"rotate" || name == u"rotateZ") {
        made.translate(x(1), y(2)).rotate(degrees(0));
        return made.translate(-x(1), -y(2));
    }
    if (name == u"skewX")
        return made.shear(shear(0), 0.0);
    if (name == u"skewY")
        return made.shear(0.0, shear(0));
    if (name == u"skew")
        return made.shear(shear(0), shear(1));
    if (name == u"translateZ")
        return made;
    return std::nullopt;
}

std::optional<QTransform> transformOf(const QString& text, const Reference& reference)
{
    static const QRegularExpression function(QStringLiteral("([a-zA-Z0-9]+)\\s*\\(([^()]*)\\)"));
    QTransform all;
    for (auto matches = function.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QStringList words = match.captured(2).replace(u',', u' ').simplified().split(u' ', Qt::SkipEmptyParts);
        const std::optional<QTransform> one = functionOf(match.captured(1), words, reference);
        if (!one)
            return std::nullopt;
        all = *one * all;
    }
    return all;
}

// "left", "50%" or a length; without a word for the other axis, that is the middle.
QPointF originOf(const QString& text, const Reference& reference)
{
    QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return reference.box.topLeft();
    if (words.size() == 1)
        words.append(QStringLiteral("center"));
    const auto isVertical = [](const QString& word) { return word == u"top" || word == u"bottom"; };
    const auto isHorizontal = [](const QString& word) { return word == u"left" || word == u"right"; };
    if (isVertical(words[0]) || isHorizontal(words[1]))
        words.swapItemsAt(0, 1);
    const auto along = [&](const QString& word, double start, double length) {
        if (word == u"left" || word == u"top")
            return start;
        if (word == u"right" || word == u"bottom")
            return start + length;
        if (word == u"center")
            return start + length / 2.0;
        return start + DIO_readLength(word, {length, reference.fontSize}).value_or(0.0);
    };
    return {along(words[0], reference.box.x(), reference.box.width()),
            along(words[1], reference.box.y(), reference.box.height())};
}

} // namespace

QString DIO_matrixText(const QTransform& t)
{
    return QStringLiteral("matrix(%1 %2 %3 %4 %5 %6)")
        .arg(DIO_number(t.m11()), DIO_number(t.m12()), DIO_number(t.m21()), DIO_number(t.m22()), DIO_number(t.dx()),
             DIO_number(t.dy()));
}

std::optional<QTransform> DIO_readTransform(const QString& text)
{
    return transformOf(text, {});
}

std::optional<QTransform> DIO_styledTransform(const DIO_SvgProperties& properties, const QString& attribute,
                                              const QSizeF& viewport, double fontSize,
                                              const std::function<QRectF()>& box)
{
    const QString own = properties.value(QStringLiteral("transform")).trimmed();
    const QString origin = properties.value(QStringLiteral("transform-origin")).trimmed();
    if (own.isEmpty() && (origin.isEmpty() || attribute.isEmpty()))
        return std::nullopt;
    if (own == u"none")
        return QTransform();
    const bool byBox = properties.value(QStringLiteral("transform-box")).trimmed() == u"fill-box";
    const Reference reference{byBox ? box() : QRectF(QPointF(), viewport), fontSize};
    const std::optional<QTransform> transform = transformOf(own.isEmpty() ? attribute : own, reference);
    if (!transform)
        return std::nullopt;
    const QPointF fixed = originOf(origin, reference);
    return QTransform::fromTranslate(-fixed.x(), -fixed.y()) * *transform *
           QTransform::fromTranslate(fixed.x(), fixed.y());
}
