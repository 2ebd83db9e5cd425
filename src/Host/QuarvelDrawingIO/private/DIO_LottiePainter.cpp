// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flattening of an animation's layers.
#include "QuarvelDrawingIO/private/DIO_LottiePainter.h"

#include "QuarvelDrawingIO/private/DIO_AverageColour.h"

#include <QLinearGradient>

#include <algorithm>

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
    return {DIO_Paint::Kind::SOLID, colour, colour.name()};
}

} // namespace

std::vector<DIO_Shape> DIO_LottiePainter::paint(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte)
{
    std::vector<DIO_Shape> shapes;
    paintMatted(layer, matte, 1.0, shapes);
    return shapes;
}

void DIO_LottiePainter::paintLayers(const std::vector<DIO_LottieLayer>& layers, double alpha,
                                    std::vector<DIO_Shape>& shapes)
{
    DIO_forEachPainted(layers, [&](std::size_t, const DIO_LottieLayer& layer, const DIO_LottieLayer* matte) {
        paintMatted(layer, matte, alpha, shapes);
    });
}

void DIO_LottiePainter::paintMatted(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte, double alpha,
                                    std::vector<DIO_Shape>& shapes)
{
    if (!matte || layer.matte != ALPHA_MATTE) {
        paintLayer(layer, alpha, shapes);
        return;
    }
    // The colours of what only cuts are nobody's business.
    std::vector<DIO_Paint> noPalette;
    const std::vector<DIO_Shape> cutting = DIO_LottiePainter(noPalette).paint(*matte, nullptr);
    _clips.begin();
    for (const DIO_Shape& shape : cutting)
        _clips.add(shape.clip ? shape.path.intersected(*shape.clip) : shape.path);
    _clips.end();
    paintLayer(layer, alpha, shapes);
    _clips.pop();
}

void DIO_LottiePainter::paintLayer(const DIO_LottieLayer& layer, double alpha, std::vector<DIO_Shape>& shapes)
{
    alpha *= layer.alpha;
    if (!layer.visible || !(alpha > 0.0))
        return;
    const int clips = pushClips(layer);
    paintLayers(layer.layers, alpha, shapes);
    for (const DIO_LottieNode& node : layer.nodes)
        paintNode(node, alpha, shapes);
    popClips(clips);
}

void DIO_LottiePainter::paintNode(const DIO_LottieNode& node, double alpha, std::vector<DIO_Shape>& shapes)
{
    if (node.brush == PICTURE_BRUSH || node.path.isEmpty() || (_clips.current() && _clips.current()->isEmpty()))
        return;
    double opacity = alpha;
    const DIO_Paint paint = paintOf(node, opacity);
    if (!(opacity > 0.0))
        return;
    const QPainterPath path = node.stroke ? _outliner.outline(node.path, *node.stroke, {}) : node.path;
    if (path.isEmpty())
        return;
    DIO_Shape shape;
    shape.path = path;
    if (const QPainterPath* clip = _clips.current())
        shape.clip = *clip;
    shape.opacity = opacity;
    shape.paint = paintIndex(paint);
    shapes.push_back(shape);
}

int DIO_LottiePainter::pushClips(const DIO_LottieLayer& layer)
{
    int count = 0;
    const auto push = [&](const auto& gather) {
        _clips.begin();
        gather();
        _clips.end();
        ++count;
    };
    if (!layer.clip.isEmpty())
        push([&] { _clips.add(layer.clip); });
    const auto adds = [](const DIO_LottieMask& mask) { return mask.mode == ADD_MASK; };
    if (std::ranges::any_of(layer.masks, adds))
        push([&] {
            for (const DIO_LottieMask& mask : layer.masks)
                if (adds(mask))
                    _clips.add(mask.path);
        });
    for (const DIO_LottieMask& mask : layer.masks)
        if (mask.mode == INTERSECT_MASK)
            push([&] { _clips.add(mask.path); });
    return count;
}

void DIO_LottiePainter::popClips(int count)
{
    for (int i = 0; i < count; ++i)
        _clips.pop();
}

int DIO_LottiePainter::paintIndex(const DIO_Paint& paint)
{
    const auto found = _indexOf.constFind(paint.name);
    if (found != _indexOf.constEnd())
        return *found;
    _palette.push_back(paint);
    return *_indexOf.insert(paint.name, static_cast<int>(_palette.size()) - 1);
}
