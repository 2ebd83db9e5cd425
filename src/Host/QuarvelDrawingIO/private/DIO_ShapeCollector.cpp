// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From recorded shapes to layers and palette.
#include "QuarvelDrawingIO/private/DIO_ShapeCollector.h"

#include "QuarvelDrawingIO/DIO_Palette.h"
#include "QuarvelDrawingIO/DIO_PathSets.h"
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_PlacedPicture.h"
#include "QuarvelDrawingIO/private/DIO_SvgMarks.h"

#include <algorithm>
#include <cmath>

namespace {

// No picture reaches this far; larger coordinates come from a mistake in the file.
constexpr double kFarthest = 1e9;

// The SVG library stops reading a path once it has more than this many elements; a curve adds three at a time.
constexpr int kLongestPath = 32768;

bool looksCutShort(const QPainterPath& path)
{
    return path.elementCount() >= kLongestPath && path.elementCount() < kLongestPath + 3;
}

enum class Extent
{
    NOTHING, ///< without area
    USABLE,
    UNREACHABLE ///< not a number, or beyond all bounds
};

Extent extentOf(const QPainterPath& path)
{
    const QRectF bounds = path.controlPointRect();
    for (const double edge : {bounds.left(), bounds.top(), bounds.right(), bounds.bottom()})
        if (!(std::abs(edge) <= kFarthest))
            return Extent::UNREACHABLE;
    return bounds.width() > 0.0 && bounds.height() > 0.0 ? Extent::USABLE : Extent::NOTHING;
}

// QPainterPath's bounds ignore coordinates that are NaN.
bool isFinite(const QPainterPath& path)
{
    for (int i = 0; i < path.elementCount(); ++i)
        if (!std::isfinite(path.elementAt(i).x) || !std::isfinite(path.elementAt(i).y))
            return false;
    return true;
}

QString namesOf(const std::vector<DIO_Paint>& palette, DIO_Paint::Kind kind)
{
    constexpr int kShown = 5;
    QStringList names;
    int more = 0;
    for (const DIO_Paint& paint : palette)
        if (paint.kind == kind && names.size() < kShown)
            names.append(paint.name);
        else if (paint.kind == kind)
            ++more;
    const QString list = names.join(QStringLiteral(", "));
    return more == 0 ? list : QStringLiteral("%1 and %2 more").arg(list, QString::number(more));
}

} // namespace

DIO_ShapeCollector::DIO_ShapeCollector(const DIO_SvgLayers& layers, const std::vector<DIO_PaintServer>& servers,
                                       qint64 picturePixels)
    : _layers(layers), _servers(servers), _groups(picturePixels), _picturePixels(picturePixels)
{}

bool DIO_ShapeCollector::polyline(std::span<const QPointF> points)
{
    const std::optional<DIO_SvgMark> mark = DIO_SvgMark::read(points);
    if (!mark)
        return false;
    using Command = DIO_SvgMark::Command;
    switch (mark->command) {
    case Command::LAYER:
        _groups.setLayer(mark->argument);
        break;
    case Command::NO_LAYER:
        _groups.setLayer(DIO_ShapeGroups::kNoLayer);
        break;
    case Command::CLIP_BEGIN:
        _clips.begin();
        break;
    case Command::CLIP_END:
        _clips.end();
        break;
    case Command::CLIP_POP:
        _clips.pop();
        break;
    case Command::FADE_BEGIN:
        _groups.beginFading(static_cast<double>(mark->argument) / kDIO_fullOpacity);
        break;
    case Command::FADE_END:
        _groups.endFading();
        break;
    case Command::MASK_BEGIN:
        _groups.beginMask(static_cast<DIO_MaskKind>(mark->argument));
        break;
    case Command::MASK_END:
        _groups.endMask(_maskPalette);
        break;
    case Command::MASK_POP:
        _groups.endMasked(_groups.isInMask() ? _maskPalette : _drawing.palette);
        break;
    }
    return true;
}

void DIO_ShapeCollector::shape(DIO_RecordedShape recorded)
{
    const Extent extent = isFinite(recorded.path) ? extentOf(recorded.path) : Extent::UNREACHABLE;
    if (extent == Extent::UNREACHABLE)
        ++_unreachable;
    if (extent != Extent::USABLE)
        return;
    if (_clips.isGathering()) {
        _clips.add(recorded.path);
        return;
    }
    if (looksCutShort(recorded.path))
        ++_cutShort;
    DIO_Shape shape;
    shape.opacity = recorded.opacity;
    const DIO_PaintServer* const server = serverOf(recorded.brush);
    shape.paint = paintOf(recorded.brush, server, shape.opacity);
    shape.path = std::move(recorded.path);
    if (shape.paint < 0 || !applyClip(shape))
        return;
    if (server && !server->picture.isNull() && !applyPicture(shape, server->picture))
        return;
    _groups.add(std::move(shape));
}

// The path is the rectangle of the picture, as it lies in the drawing, from its top left corner clockwise.
bool DIO_ShapeCollector::applyPicture(DIO_Shape& shape, const QImage& picture)
{
    if (shape.path.elementCount() < 4)
        return false;
    const QPointF topLeft = shape.path.elementAt(0);
    const QPointF across = (QPointF(shape.path.elementAt(1)) - topLeft) / picture.width();
    const QPointF down = (QPointF(shape.path.elementAt(3)) - topLeft) / picture.height();
    const QTransform toDrawing(across.x(), across.y(), down.x(), down.y(), topLeft.x(), topLeft.y());
    if (!toDrawing.isInvertible())
        return false;
    DIO_PlacedPicture placed = DIO_placePicture(picture, toDrawing, _picturePixels);
    shape.path = std::move(placed.path);
    shape.picture = std::move(placed.picture);
    if (placed.clip)
        shape.clip = shape.clip ? DIO_intersected(*shape.clip, *placed.clip).value_or(*shape.clip) : *placed.clip;
    return true;
}

bool DIO_ShapeCollector::applyClip(DIO_Shape& shape) const
{
    const QPainterPath* const clip = _clips.current();
    if (!clip)
        return true;
    const QRectF bounds = shape.path.controlPointRect();
    if (!clip->controlPointRect().intersects(bounds))
        return false;
    if (!(DIO_isRectangle(*clip) && clip->controlPointRect().contains(bounds)))
        shape.clip = *clip;
    return true;
}

void DIO_ShapeCollector::collectLayers()
{
    for (DIO_ShapeGroups::Run& run : _groups.take()) {
        if (run.shapes.empty())
            continue;
        const bool declared = run.layer >= 0 && run.layer < _layers.names.size();
        DIO_Layer layer{declared ? _layers.names[run.layer] : QString(), declared, std::move(run.shapes)};
        if (declared)
            layer.values = _layers.values[static_cast<std::size_t>(run.layer)];
        _drawing.layers.push_back(std::move(layer));
    }
}

// The server that a brush stands for, if it does.
const DIO_PaintServer* DIO_ShapeCollector::serverOf(const QBrush& brush) const
{
    const QGradient* const gradient = brush.gradient();
    if (!gradient || gradient->type() != QGradient::LinearGradient)
        return nullptr;
    const QPointF start = static_cast<const QLinearGradient*>(gradient)->start();
    const auto index = static_cast<std::size_t>(std::max(0L, std::lround(start.y())));
    return start.x() == kDIO_serverX && index < _servers.size() ? &_servers[index] : nullptr;
}

// The palette's entry for a brush, or -1 when it paints nothing; its own opacity goes into the shape's.
int DIO_ShapeCollector::paintOf(const QBrush& brush, const DIO_PaintServer* server, double& opacity)
{
    const QColor average = server ? QColor() : DIO_averageColour(brush);
    opacity = std::clamp(opacity * (server ? server->opacity : static_cast<double>(average.alphaF())), 0.0, 1.0);
    if (!(opacity > 0.0))
        return -1;
    return indexOfPaint(server ? server->paint : DIO_solidPaint(average));
}

// The colours of a mask are not the drawing's.
int DIO_ShapeCollector::indexOfPaint(const DIO_Paint& paint)
{
    std::vector<DIO_Paint>& palette = _groups.isInMask() ? _maskPalette : _drawing.palette;
    QHash<QString, int>& indices = _groups.isInMask() ? _maskPaintIndex : _paintIndex;
    const QString key = QString::number(static_cast<int>(paint.kind)) + paint.colour.name() + paint.name;
    const auto known = indices.constFind(key);
    if (known != indices.constEnd())
        return *known;
    const int index = static_cast<int>(palette.size());
    palette.push_back(paint);
    indices.insert(key, index);
    return index;
}

void DIO_ShapeCollector::addSimplificationWarnings()
{
    const std::pair<DIO_Paint::Kind, QString> kinds[] = {
        {DIO_Paint::Kind::GRADIENT, QStringLiteral("gradients are painted in their average colour: ")},
        {DIO_Paint::Kind::PATTERN, QStringLiteral("patterns are painted in the average of their colours: ")},
    };
    for (const auto& [kind, text] : kinds)
        if (const QString names = namesOf(_drawing.palette, kind); !names.isEmpty())
            _drawing.warnings.append(text + names);
    if (_unreachable > 0)
        _drawing.warnings.append(QStringLiteral("left out: shapes with impossible coordinates (%1)").arg(_unreachable));
    if (_cutShort > 0)
        _drawing.warnings.append(QStringLiteral("paths of more than %1 points are cut short, split them: %2")
                                     .arg(kLongestPath)
                                     .arg(_cutShort));
    if (_clips.skippedIntersections() > 0)
        _drawing.warnings.append(
            QStringLiteral("clips within clips that are too detailed, the inner one alone cuts: %1")
                .arg(_clips.skippedIntersections()));
    if (_groups.tooDetailed() > 0)
        _drawing.warnings.append(
            QStringLiteral("masks and groups that are too detailed, shapes are painted by themselves: %1")
                .arg(_groups.tooDetailed()));
}

DIO_Drawing DIO_ShapeCollector::takeDrawing()
{
    collectLayers();
    addSimplificationWarnings();
    return std::move(_drawing);
}
