// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each picture is a rectangle that shows it. A layer's colour is the average of its first picture.
#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

#include "QuarvelDrawingIO/DIO_Palette.h"
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QFileInfo>

#include <algorithm>
#include <span>

namespace {

bool isEmpty(const DIO_BitmapCel& cel)
{
    if (cel.image.isNull() || !(cel.opacity > 0.0))
        return true;
    const QImage pixels = GR_imageInFormat(cel.image, QImage::Format_RGBA64);
    for (int y = 0; y < pixels.height(); ++y) {
        const std::span row(reinterpret_cast<const QRgba64*>(pixels.constScanLine(y)),
                            static_cast<std::size_t>(pixels.width()));
        if (std::ranges::any_of(row, [](const QRgba64& pixel) { return pixel.alpha() > 0; }))
            return false;
    }
    return true;
}

int paintOf(const DIO_BitmapLayer& layer, std::vector<DIO_Paint>& palette)
{
    return DIO_paintIndex(palette, DIO_solidPaint(DIO_averageColour(layer.cels.front().image)));
}

DIO_Shape shapeOf(const DIO_BitmapCel& cel, int paint)
{
    DIO_Shape shape;
    shape.path.addRect(QRectF(cel.place, cel.image.size()));
    shape.opacity = std::min(cel.opacity, 1.0);
    shape.paint = paint;
    shape.picture = cel.image;
    return shape;
}

// The layer of the drawing that a layer of the file becomes part of.
//
// @param below the layer of the file below it that is shown; null for the lowest
DIO_Layer& layerFor(const DIO_BitmapLayer& layer, const DIO_BitmapLayer* below, DIO_Grouping grouping,
                    DIO_Drawing& drawing)
{
    std::vector<DIO_Layer>& layers = drawing.layers;
    const bool isGroup = grouping == DIO_Grouping::GROUPS && layer.group.number > 0;
    const bool isOne = grouping == DIO_Grouping::ONE;
    // What lies between the layers of a group keeps its place: the group begins anew above it.
    if (below && (isOne || (isGroup && below->group.number == layer.group.number)))
        return layers.back();
    const QString& ownName = isGroup && !layer.group.name.isEmpty() ? layer.group.name : layer.name;
    layers.push_back({isOne ? drawing.name : ownName, !isOne, {}});
    return layers.back();
}

} // namespace

void DIO_warnOfBlendModes(const QStringList& modes, QStringList& warnings)
{
    if (modes.isEmpty())
        return;
    constexpr qsizetype kMost = 8;
    const QString more = modes.size() > kMost ? QStringLiteral(" and %1 more").arg(modes.size() - kMost) : QString();
    warnings.append(QStringLiteral("blend modes are shown as normal: %1%2").arg(modes.mid(0, kMost).join(u", "), more));
}

void DIO_tidyLayers(DIO_BitmapLayers& layers)
{
    for (DIO_BitmapLayer& layer : layers.layers) {
        std::vector<int> places;
        std::vector<DIO_BitmapCel> kept;
        for (DIO_BitmapCel& cel : layer.cels) {
            const bool shows = !isEmpty(cel);
            places.push_back(shows ? static_cast<int>(kept.size()) : -1);
            if (shows)
                kept.push_back(std::move(cel));
        }
        layer.cels = std::move(kept);
        for (int& shown : layer.shown)
            shown = shown < 0 ? -1 : places[static_cast<std::size_t>(shown)];
    }
    std::erase_if(layers.layers, [](const DIO_BitmapLayer& layer) { return layer.cels.empty(); });
    for (std::size_t i = 0; i < layers.layers.size(); ++i)
        if (layers.layers[i].name.isEmpty())
            layers.layers[i].name = QStringLiteral("Layer %1").arg(i + 1);
}

DIO_Drawing DIO_drawingOf(const DIO_BitmapLayers& layers, const QString& path, DIO_Grouping grouping)
{
    DIO_Drawing drawing;
    drawing.name = QFileInfo(path).completeBaseName();
    drawing.size = layers.size;
    drawing.viewBox = QRectF(QPointF(), drawing.size);
    drawing.warnings = layers.warnings;
    const DIO_BitmapLayer* below = nullptr;
    for (const DIO_BitmapLayer& layer : layers.layers) {
        const int cel = layer.shown.front();
        if (cel < 0)
            continue;
        const int paint = paintOf(layer, drawing.palette);
        layerFor(layer, below, grouping, drawing)
            .shapes.push_back(shapeOf(layer.cels[static_cast<std::size_t>(cel)], paint));
        below = &layer;
    }
    if (layers.frames > 1)
        drawing.warnings.append(QStringLiteral("only the first of %1 frames is read").arg(layers.frames));
    return drawing;
}

DIO_Animation DIO_animationOf(const DIO_BitmapLayers& layers, const QString& path)
{
    constexpr double kUsualRate = 24.0;
    DIO_Animation animation;
    animation.name = QFileInfo(path).completeBaseName();
    animation.size = layers.size;
    animation.viewBox = QRectF(QPointF(), animation.size);
    animation.frameRate = layers.frameRate > 0.0 ? layers.frameRate : kUsualRate;
    animation.frames = layers.frames;
    animation.warnings = layers.warnings;
    for (const DIO_BitmapLayer& layer : layers.layers) {
        const int paint = paintOf(layer, animation.palette);
        DIO_AnimatedLayer animated{layer.name, {}, layer.shown};
        for (const DIO_BitmapCel& cel : layer.cels)
            animated.drawings.push_back({shapeOf(cel, paint)});
        animation.layers.push_back(std::move(animated));
    }
    return animation;
}
