// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cascade and the inheritance of properties. A value that cannot be understood leaves what was inherited.
#include "QuarvelDrawingIO/private/DIO_SvgStyle.h"

#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QSet>

#include <algorithm>
#include <numeric>
#include <optional>

namespace {

// The properties that may stand as attributes.
const QSet<QString>& presentationAttributes()
{
    static const QSet<QString> names = {
        QStringLiteral("clip-path"),
        QStringLiteral("clip-rule"),
        QStringLiteral("color"),
        QStringLiteral("display"),
        QStringLiteral("fill"),
        QStringLiteral("fill-opacity"),
        QStringLiteral("fill-rule"),
        QStringLiteral("filter"),
        QStringLiteral("font-family"),
        QStringLiteral("font-size"),
        QStringLiteral("font-style"),
        QStringLiteral("font-variant"),
        QStringLiteral("font-weight"),
        QStringLiteral("marker"),
        QStringLiteral("marker-end"),
        QStringLiteral("marker-mid"),
        QStringLiteral("marker-start"),
        QStringLiteral("mask"),
        QStringLiteral("mask-type"),
        QStringLiteral("mix-blend-mode"),
        QStringLiteral("opacity"),
        QStringLiteral("overflow"),
        QStringLiteral("stop-color"),
        QStringLiteral("stop-opacity"),
        QStringLiteral("stroke"),
        QStringLiteral("stroke-dasharray"),
        QStringLiteral("stroke-dashoffset"),
        QStringLiteral("stroke-linecap"),
        QStringLiteral("stroke-linejoin"),
        QStringLiteral("stroke-miterlimit"),
        QStringLiteral("stroke-opacity"),
        QStringLiteral("stroke-width"),
        QStringLiteral("text-anchor"),
        QStringLiteral("transform-box"),
        QStringLiteral("transform-origin"),
        QStringLiteral("vector-effect"),
        QStringLiteral("visibility"),
    };
    return names;
}

void apply(const std::vector<DIO_Declaration>& declarations, bool important, DIO_SvgProperties& properties)
{
    for (const DIO_Declaration& declaration : declarations)
        if (declaration.important == important)
            properties.insert(declaration.property, declaration.value);
}

std::optional<DIO_SvgPaint> readPaint(const QString& text, const DIO_SvgStyle& style)
{
    const auto colourOf = [&](QStringView word) -> std::optional<QColor> {
        return word.compare(u"currentColor", Qt::CaseInsensitive) == 0 ? std::optional(style.currentColour)
                                                                       : DIO_readColour(word);
    };
    const QStringView value = QStringView(text).trimmed();
    if (value == u"none")
        return DIO_SvgPaint{};
    if (value == u"context-fill")
        return style.contextFill;
    if (value == u"context-stroke")
        return style.contextStroke;
    if (value.startsWith(u"url(")) {
        const qsizetype close = value.indexOf(u')');
        QString reference = value.mid(4, close < 0 ? -1 : close - 4).trimmed().toString();
        reference.remove(u'"').remove(u'\'');
        const QStringView rest = close < 0 ? QStringView() : value.mid(close + 1).trimmed();
        return DIO_SvgPaint{DIO_SvgPaint::Kind::REFERENCE,
                            rest.isEmpty() ? QColor() : colourOf(rest).value_or(QColor()), reference};
    }
    if (const std::optional<QColor> colour = colourOf(value))
        return DIO_SvgPaint{DIO_SvgPaint::Kind::COLOUR, *colour, {}};
    return std::nullopt;
}

std::optional<std::vector<double>> readDashes(const QString& text, const DIO_LengthContext& context)
{
    if (text.trimmed() == u"none")
        return std::vector<double>();
    std::vector<double> dashes;
    for (const QString& word : QString(text).replace(u',', u' ').simplified().split(u' ', Qt::SkipEmptyParts)) {
        const std::optional<double> dash = DIO_readLength(word, context);
        if (!dash || *dash < 0.0)
            return std::nullopt;
        dashes.push_back(*dash);
    }
    if (!(std::accumulate(dashes.begin(), dashes.end(), 0.0) > 0.0))
        return std::vector<double>();
    if (const std::vector<double> once = dashes; once.size() % 2 == 1)
        dashes.insert(dashes.end(), once.begin(), once.end());
    return dashes;
}

// Sets a member where the properties hold a value that its reader understands.
class Inheritance
{
public:
    explicit Inheritance(const DIO_SvgProperties& properties) : _properties(properties) {}

    template<typename T, typename Reader>
    void set(QLatin1String property, T& member, Reader read) const
    {
        const auto found = _properties.constFind(property);
        if (found == _properties.constEnd() || found->trimmed() == u"inherit")
            return;
        if (const auto value = read(*found))
            member = *value;
    }

private:
    const DIO_SvgProperties& _properties;
};

std::optional<double> readOpacity(const QString& text)
{
    const std::optional<double> value = DIO_readNumber(text);
    return value ? std::optional(std::clamp(*value, 0.0, 1.0)) : std::nullopt;
}

std::optional<bool> readEvenOdd(const QString& text)
{
    return text.trimmed() == u"evenodd";
}

std::optional<QString> readWord(const QString& text)
{
    const QString word = text.trimmed();
    return word.isEmpty() ? std::nullopt : std::optional(word);
}

std::optional<double> readFontSize(const QString& text, double inherited)
{
    static const QHash<QString, double> named = {{QStringLiteral("xx-small"), 9.0}, {QStringLiteral("x-small"), 10.0},
                                                 {QStringLiteral("small"), 13.0},   {QStringLiteral("medium"), 16.0},
                                                 {QStringLiteral("large"), 18.0},   {QStringLiteral("x-large"), 24.0},
                                                 {QStringLiteral("xx-large"), 32.0}};
    if (const auto found = named.constFind(text.trimmed()); found != named.constEnd())
        return *found;
    const std::optional<double> size = DIO_readLength(text, {inherited, inherited});
    return size && *size > 0.0 ? size : std::nullopt;
}

} // namespace

DIO_SvgProperties DIO_cascade(const DIO_StyleSheet& sheet, std::span<const DIO_XmlNode* const> ancestry)
{
    const DIO_XmlNode& node = *ancestry.back();
    DIO_SvgProperties properties;
    for (const auto& [name, value] : node.attributes)
        if (presentationAttributes().contains(name))
            properties.insert(name, value);
    const std::vector<DIO_Declaration> fromSheet = sheet.declarationsFor(ancestry);
    const std::vector<DIO_Declaration> own = DIO_readDeclarations(node.attribute(QLatin1String("style")));
    apply(fromSheet, false, properties);
    apply(own, false, properties);
    apply(fromSheet, true, properties);
    apply(own, true, properties);
    return properties;
}

DIO_SvgStyle DIO_SvgStyle::inheritedBy(const DIO_SvgProperties& properties, double diagonal) const
{
    DIO_SvgStyle style = *this;
    if (properties.isEmpty())
        return style;
    const Inheritance from(properties);
    from.set(QLatin1String("color"), style.currentColour, [](const QString& text) { return DIO_readColour(text); });
    from.set(QLatin1String("font-size"), style.fontSize,
             [this](const QString& text) { return readFontSize(text, fontSize); });
    const DIO_LengthContext lengths{diagonal, style.fontSize};
    const auto paint = [&style](const QString& text) { return readPaint(text, style); };
    const auto length = [&lengths](const QString& text) { return DIO_readLength(text, lengths); };
    const auto notNegative = [&lengths](const QString& text) -> std::optional<double> {
        const std::optional<double> value = DIO_readLength(text, lengths);
        return value && *value >= 0.0 ? value : std::nullopt;
    };

    from.set(QLatin1String("fill"), style.fill, paint);
    from.set(QLatin1String("fill-opacity"), style.fillOpacity, readOpacity);
    from.set(QLatin1String("fill-rule"), style.evenOdd, readEvenOdd);
    from.set(QLatin1String("clip-rule"), style.clipEvenOdd, readEvenOdd);
    from.set(QLatin1String("stroke"), style.stroke, paint);
    from.set(QLatin1String("stroke-opacity"), style.strokeOpacity, readOpacity);
    from.set(QLatin1String("stroke-width"), style.strokeWidth, notNegative);
    from.set(QLatin1String("stroke-linecap"), style.lineCap, readWord);
    from.set(QLatin1String("stroke-linejoin"), style.lineJoin, readWord);
    from.set(QLatin1String("stroke-miterlimit"), style.miterLimit, notNegative);
    from.set(QLatin1String("stroke-dasharray"), style.dashes,
             [&](const QString& text) { return readDashes(text, lengths); });
    from.set(QLatin1String("stroke-dashoffset"), style.dashOffset, length);
    from.set(QLatin1String("visibility"), style.visible,
             [](const QString& text) { return std::optional(text.trimmed() == u"visible"); });
    for (const char* name : {"marker", "marker-start"})
        from.set(QLatin1String(name), style.markerStart, readWord);
    for (const char* name : {"marker", "marker-mid"})
        from.set(QLatin1String(name), style.markerMid, readWord);
    for (const char* name : {"marker", "marker-end"})
        from.set(QLatin1String(name), style.markerEnd, readWord);
    for (const char* name : {"font-family", "font-style", "font-weight", "font-variant", "text-anchor"}) {
        QString word;
        from.set(QLatin1String(name), word, readWord);
        if (!word.isEmpty())
            style.font.insert(QLatin1String(name), word);
    }
    return style;
}
