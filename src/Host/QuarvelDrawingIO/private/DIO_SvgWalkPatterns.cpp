// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Patterns. What is filled with one has one colour, the average of what the pattern paints, but the pattern's gaps stay
// gaps: the areas that a tile paints are repeated over the shape, which cuts them. Where that would be too much, and
// for lines, the shape is painted as a whole, with the share that the pattern covers as its opacity.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace {

// The SVG library stops reading longer paths, with some room to spare.
constexpr int kMostElements = 30'000;

// In all of a drawing: about ten megabytes of path data.
constexpr int kMostElementsInAll = 300'000;

// A pattern that covers more has no gaps, and one that covers less shows nothing.
constexpr double kWhole = 0.99;
constexpr double kNothing = 1e-3;

void appendMoved(QString& data, const QPainterPath& path, const QPointF& by)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element& element = path.elementAt(i);
        const QLatin1String command = element.isMoveTo()                             ? QLatin1String("M")
                                      : element.isLineTo()                           ? QLatin1String("L")
                                      : element.type == QPainterPath::CurveToElement ? QLatin1String("C")
                                                                                     : QLatin1String(" ");
        data += command + DIO_number(element.x + by.x()) + u' ' + DIO_number(element.y + by.y());
    }
}

// The first and the last of the steps from 0 that a range touches.
struct Steps
{
    double first;
    double last;

    double count() const { return last - first + 1.0; }
};

Steps stepsWithin(double low, double high, double step)
{
    return {std::floor(low / step), std::max(std::floor(low / step), std::ceil(high / step) - 1.0)};
}

} // namespace

DIO_SvgStyle DIO_SvgWalk::withPatterns(const Visited& visited)
{
    DIO_SvgStyle style = visited.style;
    for (DIO_SvgPaint* const paint : {&style.fill, &style.stroke}) {
        const DIO_XmlNode* const pattern =
            paint->kind == DIO_SvgPaint::Kind::REFERENCE ? _servers.patternCalled(paint->reference) : nullptr;
        if (!pattern || !_servers.dependsOnBox(*pattern))
            continue;
        paint->server = _servers.findFor(paint->reference, boxOf(visited).size());
        if (paint->server < 0)
            paint->kind = paint->colour.isValid() ? DIO_SvgPaint::Kind::COLOUR : DIO_SvgPaint::Kind::NONE;
    }
    return style;
}

std::optional<DIO_SvgWalk::PatternTile> DIO_SvgWalk::tileOf(const DIO_XmlNode& pattern, const QRectF& box) const
{
    const auto attribute = [&](const char* name) { return _servers.attributeOf(pattern, name); };
    PatternTile tile;
    tile.content = _servers.firstOf(pattern, [](const DIO_XmlNode& node) {
        return std::ranges::any_of(node.children, [](const DIO_XmlNode& child) { return !child.isText(); });
    });
    const std::optional<QTransform> transform = DIO_readTransform(attribute("patternTransform"));
    if (!tile.content || !transform)
        return std::nullopt;
    const bool inParts = attribute("patternUnits") != u"userSpaceOnUse";
    const QSizeF whole = inParts ? box.size() : _viewport;
    const auto length = [&](const char* name, double percentOf) {
        const QString text = attribute(name);
        const double value = DIO_readLength(text, {percentOf, 16.0}).value_or(0.0);
        return inParts && !text.contains(u'%') ? value * percentOf : value;
    };
    const QRectF place(length("x", whole.width()), length("y", whole.height()), length("width", whole.width()),
                       length("height", whole.height()));
    if (!(place.width() > 0.0 && place.height() > 0.0))
        return std::nullopt;
    const QPointF origin = place.topLeft() + (inParts ? box.topLeft() : QPointF());
    tile.size = place.size();
    tile.toUser = QTransform::fromTranslate(origin.x(), origin.y()) * *transform;
    if (const auto view = DIO_readViewBox(attribute("viewBox")))
        tile.fromContent =
            DIO_fitTransform(*view, QRectF(QPointF(), tile.size), DIO_readAspectFit(attribute("preserveAspectRatio")));
    else if (attribute("patternContentUnits") == u"objectBoundingBox")
        tile.fromContent = QTransform::fromScale(box.width(), box.height());
    if (!tile.toUser.isInvertible() || !tile.fromContent.isInvertible())
        return std::nullopt;
    return tile;
}

QByteArray DIO_SvgWalk::contentOf(const PatternTile& tile)
{
    DIO_FlatWriter scratch(_servers);
    DIO_FlatWriter* const before = std::exchange(_writer, &scratch);
    _ancestry.push_back(tile.content);
    Surroundings inside{tile.shown().size()};
    inside.inUse = true;
    const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
    visitContent(*tile.content, DIO_SvgStyle().inheritedBy(properties, inside.diagonal()), inside);
    _ancestry.pop_back();
    _writer = before;
    return scratch.document();
}

std::optional<QColor> DIO_SvgWalk::averageOf(const DIO_XmlNode& pattern, const QSizeF& box)
{
    const auto tile = tileOf(pattern, QRectF(QPointF(), box.isEmpty() ? _viewport : box));
    if (!tile)
        return std::nullopt;
    const QColor average = DIO_averageOfSvg(contentOf(*tile), tile->shown(), _servers.servers());
    return average.alpha() > 0 ? std::optional(average) : std::nullopt;
}

const QPainterPath* DIO_SvgWalk::areaOf(const DIO_XmlNode& pattern, const PatternTile& tile, const QSizeF& box)
{
    // Each area is put together anew. No drawing of a person has so many boxes.
    constexpr std::size_t kMostAreas = 1000;
    const bool isOfBox = _servers.dependsOnBox(pattern);
    const std::tuple key(&pattern, isOfBox ? box.width() : 0.0, isOfBox ? box.height() : 0.0);
    const auto known = _patternAreas.find(key);
    if (known != _patternAreas.end())
        return &known->second;
    if (_patternAreas.size() >= kMostAreas || _openPatterns.contains(&pattern))
        return nullptr;
    // A pattern that is painted with itself paints nothing.
    _openPatterns.insert(&pattern);
    const auto leave = qScopeGuard([&] { _openPatterns.remove(&pattern); });
    const auto painted = DIO_areaOfSvg(contentOf(tile), _servers.servers());
    const QRectF place(QPointF(), tile.size);
    const auto area = painted ? DIO_intersected(tile.fromContent.map(*painted), DIO_rectangle(place)) : std::nullopt;
    return &(_patternAreas[key] = area.value_or(QPainterPath()));
}

std::optional<DIO_SvgWalk::TiledFill> DIO_SvgWalk::tiledFillOf(const Visited& visited, const DIO_SvgPaint& fill)
{
    const DIO_XmlNode* const pattern =
        fill.kind == DIO_SvgPaint::Kind::REFERENCE ? _servers.patternCalled(fill.reference) : nullptr;
    if (!pattern)
        return std::nullopt;
    const QRectF box = boxOf(visited);
    const auto tile = tileOf(*pattern, box);
    const int server = fill.server >= 0 ? fill.server : _servers.find(fill.reference);
    const QPainterPath* const area = tile && server >= 0 ? areaOf(*pattern, *tile, box.size()) : nullptr;
    if (!area || area->isEmpty())
        return std::nullopt;
    const double share = DIO_shareOf(*area, QRectF(QPointF(), tile->size));
    const QRectF place = tile->toUser.inverted().mapRect(box);
    const Steps across = stepsWithin(place.left(), place.right(), tile->size.width());
    const Steps down = stepsWithin(place.top(), place.bottom(), tile->size.height());
    const double elements = across.count() * down.count() * area->elementCount();
    if (share < kNothing || share > kWhole || !(elements <= kMostElements) ||
        _patternElements + elements > kMostElementsInAll)
        return std::nullopt;
    _patternElements += static_cast<int>(elements);
    TiledFill tiled{{}, DIO_matrixText(tile->toUser), _servers.opaqueTwinOf(server)};
    // Counted in integers, because far away from the origin adding 1 to a double may leave it as it is.
    for (int j = 0; j < static_cast<int>(down.count()); ++j)
        for (int i = 0; i < static_cast<int>(across.count()); ++i)
            appendMoved(tiled.data, *area,
                        {(across.first + i) * tile->size.width(), (down.first + j) * tile->size.height()});
    tiled.evenOdd = area->fillRule() == Qt::OddEvenFill;
    tiled.opacity = std::min(1.0, _servers.servers()[static_cast<std::size_t>(server)].opacity / share);
    return tiled;
}

void DIO_SvgWalk::writeTiledFill(const Visited& visited, const QString& data, const TiledFill& tiled, double opacity)
{
    _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
    _writer->clipPath(data, visited.style.evenOdd, {});
    _writer->mark(DIO_SvgMark::Command::CLIP_END);
    _writer->serverPath(tiled.data, tiled.server, {tiled.transform, opacity * tiled.opacity, false}, tiled.evenOdd);
    _writer->mark(DIO_SvgMark::Command::CLIP_POP);
}
