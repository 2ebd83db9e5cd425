// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Average colours of paint servers. A gradient whose stops are all of one colour is that solid colour: editors keep
// swatches that way.
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// No gradient of a person has so many; further ones are left out. Each can become strips of every shape it fills.
constexpr qsizetype kMostStops = 1000;

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
    // A pattern that is painted with itself paints nothing.
    _indexOf.insert(node, -1);
    const std::optional<QColor> average = _patternAverage ? _patternAverage(*node, {}) : std::nullopt;
    return average ? create(*node, DIO_Paint::Kind::PATTERN, {{0.0, *average}}) : -1;
}

const DIO_XmlNode* DIO_SvgPaintServers::patternCalled(const QString& reference) const
{
    const DIO_XmlNode* const node = _tree.find(reference);
    return node && node->name == u"pattern" ? node : nullptr;
}

// A view box is fitted into the tile, whatever the units of the content.
bool DIO_SvgPaintServers::dependsOnBox(const DIO_XmlNode& pattern) const
{
    const bool isInParts = attributeOf(pattern, "patternUnits") != u"userSpaceOnUse";
    const bool isContentInParts = attributeOf(pattern, "patternContentUnits") == u"objectBoundingBox";
    return attributeOf(pattern, "viewBox").isEmpty() ? isInParts != isContentInParts : isInParts;
}

int DIO_SvgPaintServers::findFor(const QString& reference, const QSizeF& box)
{
    // Each average is painted anew. No drawing of a person has so many boxes; further ones share an average.
    constexpr std::size_t kMostBoxes = 1000;
    const DIO_XmlNode* const node = _tree.find(reference);
    const std::tuple key(node, box.width(), box.height());
    if (const auto known = _boxedIndexOf.find(key); known != _boxedIndexOf.end())
        return known->second;
    if (!node || !_patternAverage || box.isEmpty() || _boxedIndexOf.size() >= kMostBoxes)
        return find(reference);
    // A pattern that is painted with itself paints nothing.
    if (_averaged.contains(node))
        return -1;
    _averaged.insert(node);
    const std::optional<QColor> average = _patternAverage(*node, box);
    _averaged.remove(node);
    return _boxedIndexOf[key] = average ? create(*node, DIO_Paint::Kind::PATTERN, {{0.0, *average}}) : -1;
}

int DIO_SvgPaintServers::addPicture(const DIO_XmlNode& image, const QImage& picture)
{
    const int index = create(image, DIO_Paint::Kind::PICTURE, {{0.0, DIO_averageColour(picture)}});
    DIO_PaintServer& server = _servers[static_cast<std::size_t>(index)];
    server.opacity = 1.0;
    server.picture = picture;
    return index;
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

const DIO_XmlNode* DIO_SvgPaintServers::firstOf(const DIO_XmlNode& server,
                                                const std::function<bool(const DIO_XmlNode&)>& isWanted) const
{
    const DIO_XmlNode* node = &server;
    for (QSet<const DIO_XmlNode*> seen; node && !seen.contains(node); node = _tree.find(node->link())) {
        seen.insert(node);
        if (isWanted(*node))
            return node;
    }
    return nullptr;
}

QString DIO_SvgPaintServers::attributeOf(const DIO_XmlNode& server, const char* name) const
{
    const DIO_XmlNode* const owner =
        firstOf(server, [name](const DIO_XmlNode& node) { return !node.attribute(QLatin1String(name)).isEmpty(); });
    return owner ? owner->attribute(QLatin1String(name)) : QString();
}

int DIO_SvgPaintServers::opaqueTwinOf(int server)
{
    const auto known = _opaqueOf.constFind(server);
    if (known != _opaqueOf.constEnd())
        return *known;
    const int index = static_cast<int>(_servers.size());
    _servers.push_back({_servers[static_cast<std::size_t>(server)].paint, 1.0});
    _opaqueOf.insert(server, index);
    return index;
}

std::optional<DIO_GradientFade> DIO_SvgPaintServers::fadeOf(const QString& reference, const QSizeF& viewport) const
{
    const DIO_XmlNode* const node = _tree.find(reference);
    if (!node || (node->name != u"linearGradient" && node->name != u"radialGradient"))
        return std::nullopt;
    const QString spread = attributeOf(*node, "spreadMethod");
    const std::optional<QTransform> transform = DIO_readTransform(attributeOf(*node, "gradientTransform"));
    const QGradientStops stops = stopsOf(*node);
    if (stops.isEmpty() || spread == u"reflect" || spread == u"repeat" || !transform || !transform->isInvertible())
        return std::nullopt;
    DIO_GradientFade fade;
    fade.isRadial = node->name == u"radialGradient";
    fade.isInBox = attributeOf(*node, "gradientUnits") != u"userSpaceOnUse";
    fade.transform = *transform;
    for (const QGradientStop& stop : stops)
        fade.stops.push_back({stop.first, static_cast<double>(stop.second.alphaF())});
    const QSizeF whole = fade.isInBox ? QSizeF(1.0, 1.0) : viewport;
    const auto length = [&](const char* name, double percentOf, double otherwise) {
        return DIO_readLength(attributeOf(*node, name), {percentOf, DIO_LengthContext().fontSize}).value_or(otherwise);
    };
    const auto point = [&](const char* x, const char* y, const QPointF& otherwise) {
        return QPointF(length(x, whole.width(), otherwise.x()), length(y, whole.height(), otherwise.y()));
    };
    if (fade.isRadial) {
        fade.end = point("cx", "cy", QPointF(whole.width(), whole.height()) / 2.0);
        fade.start = point("fx", "fy", fade.end);
        const double diagonal = std::hypot(whole.width(), whole.height()) / std::numbers::sqrt2;
        fade.radius = length("r", diagonal, diagonal / 2.0);
    } else {
        fade.start = point("x1", "y1", {});
        fade.end = point("x2", "y2", {whole.width(), 0.0});
    }
    return fade.isVisible() ? std::optional(fade) : std::nullopt;
}

QGradientStops DIO_SvgPaintServers::stopsOf(const DIO_XmlNode& gradient) const
{
    QGradientStops stops;
    // A gradient without stops of its own takes those of the one that it links to.
    const DIO_XmlNode* const owner = firstOf(gradient, [](const DIO_XmlNode& node) {
        return std::ranges::any_of(node.children, [](const DIO_XmlNode& child) { return child.name == u"stop"; });
    });
    if (!owner)
        return stops;
    if (const auto known = _stopsOf.constFind(owner); known != _stopsOf.constEnd())
        return *known;
    double last = 0.0;
    for (const DIO_XmlNode& child : owner->children) {
        if (child.name != u"stop" || stops.size() == kMostStops)
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
    _stopsOf.insert(owner, stops);
    return stops;
}
