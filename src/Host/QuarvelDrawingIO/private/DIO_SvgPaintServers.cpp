// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Average colours of paint servers. A gradient whose stops are all of one colour is that solid colour: editors keep
// swatches that way.
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kMaxPatternColours = 1000;

QColor opaque(QColor colour)
{
    colour.setAlpha(255);
    return colour;
}

QString nameOf(const DIO_XmlNode& node, DIO_Paint::Kind kind, const QColor& colour)
{
    if (kind == DIO_Paint::Kind::SOLID)
        return colour.name();
    const QString id = node.attribute(QLatin1String("id"));
    switch (kind) {
    case DIO_Paint::Kind::GRADIENT:
        return QStringLiteral("Gradient ") + id;
    case DIO_Paint::Kind::PATTERN:
        return QStringLiteral("Pattern ") + id;
    default:
        return id.isEmpty() ? QStringLiteral("Picture") : QStringLiteral("Picture ") + id;
    }
}

bool isShapeName(const QString& name)
{
    static const QSet<QString> names = {
        QStringLiteral("path"),    QStringLiteral("rect"),     QStringLiteral("circle"), QStringLiteral("ellipse"),
        QStringLiteral("polygon"), QStringLiteral("polyline"), QStringLiteral("text")};
    return names.contains(name);
}

} // namespace

int DIO_SvgPaintServers::find(const QString& reference)
{
    const DIO_XmlNode* const node = _tree.find(reference);
    if (!node)
        return -1;
    if (const auto known = _indexOf.constFind(node); known != _indexOf.constEnd())
        return *known;
    if (node->name == u"linearGradient" || node->name == u"radialGradient")
        return create(*node, DIO_Paint::Kind::GRADIENT, stopsOf(*node));
    if (node->name != u"pattern")
        return -1;
    const std::vector<QColor> colours = patternColours(*node);
    QGradientStops stops;
    for (std::size_t i = 0; i < colours.size(); ++i)
        stops.append({(static_cast<double>(i) + 0.5) / static_cast<double>(colours.size()), colours[i]});
    return create(*node, DIO_Paint::Kind::PATTERN, stops);
}

int DIO_SvgPaintServers::addPicture(const DIO_XmlNode& image, const QColor& average)
{
    return create(image, DIO_Paint::Kind::PICTURE, {{0.0, average}});
}

int DIO_SvgPaintServers::create(const DIO_XmlNode& node, DIO_Paint::Kind kind, const QGradientStops& stops)
{
    int index = -1;
    if (!stops.isEmpty()) {
        QLinearGradient gradient;
        gradient.setStops(stops);
        const QColor average = DIO_averageColour(gradient);
        const bool uniform = std::all_of(
            stops.begin(), stops.end(), [&](const QGradientStop& stop) { return stop.second == stops.first().second; });
        if (kind == DIO_Paint::Kind::GRADIENT && uniform)
            kind = DIO_Paint::Kind::SOLID;
        const QColor colour = opaque(kind == DIO_Paint::Kind::SOLID ? stops.first().second : average);
        index = static_cast<int>(_servers.size());
        _servers.push_back(
            {{kind, QColor::fromRgb(colour.rgb()), nameOf(node, kind, colour)}, static_cast<double>(average.alphaF())});
    }
    _indexOf.insert(&node, index);
    return index;
}

// A server without content of its own takes that of the one it links to.
const DIO_XmlNode* DIO_SvgPaintServers::contentOf(const DIO_XmlNode& server, QStringView childName) const
{
    const DIO_XmlNode* node = &server;
    for (QSet<const DIO_XmlNode*> seen; node && !seen.contains(node); node = _tree.find(node->link())) {
        seen.insert(node);
        const bool hasContent =
            std::any_of(node->children.begin(), node->children.end(), [&](const DIO_XmlNode& child) {
                return childName.isEmpty() ? !child.isText() : child.name == childName;
            });
        if (hasContent)
            return node;
    }
    return nullptr;
}

QGradientStops DIO_SvgPaintServers::stopsOf(const DIO_XmlNode& gradient) const
{
    QGradientStops stops;
    const DIO_XmlNode* const owner = contentOf(gradient, u"stop");
    if (!owner)
        return stops;
    double last = 0.0;
    for (const DIO_XmlNode& child : owner->children) {
        if (child.name != u"stop")
            continue;
        const DIO_XmlNode* const ancestry[] = {owner, &child};
        const DIO_SvgProperties properties = DIO_cascade(_sheet, ancestry);
        const DIO_SvgStyle style = DIO_SvgStyle().inheritedBy(properties, 0.0);
        const QString colourText = properties.value(QStringLiteral("stop-color"), QStringLiteral("black"));
        QColor colour = colourText.compare(u"currentColor", Qt::CaseInsensitive) == 0
                            ? style.currentColour
                            : DIO_readColour(colourText).value_or(QColor(Qt::black));
        const double opacity = DIO_readNumber(properties.value(QStringLiteral("stop-opacity"))).value_or(1.0);
        colour.setAlphaF(colour.alphaF() * static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
        last = std::clamp(DIO_readNumber(child.attribute(QLatin1String("offset"))).value_or(0.0), last, 1.0);
        stops.append({last, colour});
    }
    return stops;
}

std::vector<QColor> DIO_SvgPaintServers::patternColours(const DIO_XmlNode& pattern) const
{
    std::vector<QColor> colours;
    if (const DIO_XmlNode* const owner = contentOf(pattern, {})) {
        std::vector<const DIO_XmlNode*> ancestry{owner};
        collectColours(ancestry, DIO_SvgStyle(), colours);
    }
    return colours;
}

void DIO_SvgPaintServers::collectColours(std::vector<const DIO_XmlNode*>& ancestry, const DIO_SvgStyle& outer,
                                         std::vector<QColor>& colours) const
{
    const DIO_XmlNode& node = *ancestry.back();
    const DIO_SvgStyle style = outer.inheritedBy(DIO_cascade(_sheet, ancestry), 0.0);
    const auto add = [&](const DIO_SvgPaint& paint) {
        if (paint.kind == DIO_SvgPaint::Kind::COLOUR && colours.size() < kMaxPatternColours)
            colours.push_back(paint.colour);
    };
    if (isShapeName(node.name)) {
        add(style.fill);
        add(style.stroke);
    }
    for (const DIO_XmlNode& child : node.children) {
        if (child.isText())
            continue;
        ancestry.push_back(&child);
        collectColours(ancestry, style, colours);
        ancestry.pop_back();
    }
}
