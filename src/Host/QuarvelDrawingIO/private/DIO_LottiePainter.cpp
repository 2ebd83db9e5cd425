// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flattening of an animation's layers.
#include "QuarvelDrawingIO/private/DIO_LottiePainter.h"

#include "QuarvelDrawingIO/DIO_Palette.h"
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_GroupedShapes.h"

#include <QLinearGradient>

#include <algorithm>
#include <iterator>

using namespace DIO_LottieStream;

namespace {

DIO_Paint paintOf(const DIO_LottieNode& node, double& opacity)
{
    QColor colour = node.colour;
    const bool isGradient = node.brush == GRADIENT_BRUSH;
    if (isGradient) {
        QLinearGradient gradient;
        gradient.setStops(node.stops);
        colour = DIO_averageColour(gradient);
    }
    opacity *= static_cast<double>(colour.alphaF());
    colour = QColor::fromRgb(colour.rgb());
    if (isGradient)
        return {DIO_Paint::Kind::GRADIENT, colour, QStringLiteral("gradient ") + colour.name()};
    return DIO_solidPaint(colour);
}

// Outside these two rectangles there is nothing to cut and nothing that cuts.
QRectF pageOf(const QRectF& content, const QRectF& cutting)
{
    return (content | cutting).adjusted(-1.0, -1.0, 1.0, 1.0);
}

// An adding mask starts from an empty area, a subtracting one from the whole page.
DIO_CoverageLevels coverageOf(const std::vector<DIO_LottieMask>& masks, const QRectF& content, DIO_PathWork& work)
{
    QRectF cutting;
    for (const DIO_LottieMask& mask : masks)
        cutting |= mask.path.controlPointRect();
    const MaskMode first = masks.front().mode;
    DIO_CoverageLevels levels(pageOf(content, cutting), first == ADD_MASK || first == DIFFERENCE_MASK ? 0.0 : 1.0,
                              work);
    for (const DIO_LottieMask& mask : masks) {
        switch (mask.mode) {
        case ADD_MASK:
            levels.paint(mask.path, mask.inverted, mask.opacity, 1.0);
            break;
        case SUBTRACT_MASK:
            levels.paint(mask.path, mask.inverted, mask.opacity, 0.0);
            break;
        case INTERSECT_MASK:
            levels.paint(mask.path, !mask.inverted, 1.0, 0.0);
            levels.paint(mask.path, mask.inverted, 1.0 - mask.opacity, 0.0);
            break;
        case DIFFERENCE_MASK:
            levels.change(mask.path, mask.inverted, 1.0 - 2.0 * mask.opacity, mask.opacity);
            break;
        }
    }
    return levels;
}

// The brightness by which a matte cuts, as the players of such animations weigh it.
double brightness(const QColor& colour)
{
    return 0.299 * static_cast<double>(colour.redF()) + 0.587 * static_cast<double>(colour.greenF()) +
           0.114 * static_cast<double>(colour.blueF());
}

DIO_CoverageLevels coverageOf(const std::vector<DIO_Shape>& matte, const std::vector<DIO_Paint>& palette, Matte kind,
                              const QRectF& content, DIO_PathWork& work)
{
    const bool byBrightness = kind == LUMA_MATTE || kind == LUMA_INVERTED_MATTE;
    DIO_CoverageLevels levels(pageOf(content, DIO_boundsOf(matte)), 0.0, work);
    std::vector<DIO_CoverageLevels::Painted> areas;
    for (const DIO_Shape& shape : matte) {
        const QColor& colour = palette[static_cast<std::size_t>(shape.paint)].colour;
        if (shape.path.controlPointRect().intersects(content))
            areas.push_back({DIO_paintedArea(shape, &work), shape.opacity, byBrightness ? brightness(colour) : 1.0});
    }
    levels.paint(areas);
    if (kind == ALPHA_INVERTED_MATTE || kind == LUMA_INVERTED_MATTE)
        levels.invert();
    return levels;
}

} // namespace

std::vector<DIO_Shape> DIO_LottiePainter::paint(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte)
{
    _work = DIO_PathWork();
    return paintMatted(layer, matte);
}

std::vector<DIO_Shape> DIO_LottiePainter::paintMatted(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte)
{
    Shapes shapes = paintLayer(layer);
    if (!matte || shapes.empty())
        return shapes;
    // The colours of what only cuts do not belong in the animation's palette.
    std::vector<DIO_Paint> palette;
    DIO_LottiePainter cutter(palette);
    cutter._work = _work;
    const Shapes cutting = cutter.paintLayer(*matte);
    _work = cutter._work;
    cut(shapes, coverageOf(cutting, palette, layer.matte, DIO_boundsOf(shapes), _work));
    return shapes;
}

std::vector<DIO_Shape> DIO_LottiePainter::paintLayer(const DIO_LottieLayer& layer)
{
    Shapes shapes;
    if (!layer.visible || !(layer.alpha > 0.0))
        return shapes;
    DIO_forEachPainted(layer.layers, [&](std::size_t, const DIO_LottieLayer& inner, const DIO_LottieLayer* matte) {
        std::ranges::move(paintMatted(inner, matte), std::back_inserter(shapes));
    });
    for (const DIO_LottieNode& node : layer.nodes)
        if (std::optional<DIO_Shape> shape = paintNode(node))
            shapes.push_back(std::move(*shape));
    if (!layer.clip.isEmpty())
        _tooDetailed += DIO_clip(shapes, layer.clip, _work);
    if (!layer.masks.empty() && !shapes.empty())
        cut(shapes, coverageOf(layer.masks, DIO_boundsOf(shapes), _work));
    _tooDetailed += DIO_fade(shapes, layer.alpha, _work);
    return shapes;
}

void DIO_LottiePainter::cut(Shapes& shapes, const DIO_CoverageLevels& levels)
{
    _tooDetailed += levels.skipped() + DIO_cut(shapes, levels, _work);
}

std::optional<DIO_Shape> DIO_LottiePainter::paintNode(const DIO_LottieNode& node)
{
    if (node.brush == PICTURE_BRUSH || node.path.isEmpty())
        return std::nullopt;
    DIO_Shape shape;
    const DIO_Paint paint = paintOf(node, shape.opacity);
    if (!(shape.opacity > 0.0))
        return std::nullopt;
    shape.path = node.stroke ? _outliner.outline(node.path, *node.stroke, {}) : node.path;
    if (shape.path.isEmpty())
        return std::nullopt;
    shape.paint = paintIndex(paint);
    return shape;
}

int DIO_LottiePainter::paintIndex(const DIO_Paint& paint)
{
    const auto found = _indexOf.constFind(paint.name);
    if (found != _indexOf.constEnd())
        return *found;
    _palette.push_back(paint);
    return *_indexOf.insert(paint.name, static_cast<int>(_palette.size()) - 1);
}
