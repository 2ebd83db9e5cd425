// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A bitmap is repeated as a larger bitmap, because its objects are found in its pixels. Of other drawings, the shapes
// are copied and moved.
#include "jobs/drawing/TileDrawing.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/bitmap/BitmapObjects.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

// Whether one picture fills the drawing.
bool isFilledByBitmap(const DIO_Drawing& drawing)
{
    return isBitmap(drawing) && drawing.layers.front().shapes.front().path.boundingRect() == drawing.viewBox;
}

QImage tiled(const QImage& image, int columns, int rows)
{
    QImage result = GR_newImage({image.width() * columns, image.height() * rows}, image.format());
    const auto bytes = static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.depth() / 8);
    for (int y = 0; y < result.height(); ++y)
        for (int column = 0; column < columns; ++column)
            std::copy_n(image.constScanLine(y % image.height()), bytes,
                        result.scanLine(y) + static_cast<std::size_t>(column) * bytes);
    return result;
}

DIO_Shape moved(const DIO_Shape& shape, const QPointF& by)
{
    DIO_Shape copy = shape;
    copy.path.translate(by);
    if (copy.clip)
        copy.clip = copy.clip->translated(by);
    return copy;
}

// In the order of painting: all copies of a shape, then all copies of the next.
std::vector<DIO_Shape> tiled(const std::vector<DIO_Shape>& shapes, const QSizeF& step, const Tiling& tiling)
{
    std::vector<DIO_Shape> all;
    for (const DIO_Shape& shape : shapes)
        for (int row = 0; row < tiling.rows(); ++row)
            for (int column = 0; column < tiling.columns(); ++column)
                all.push_back(moved(shape, {step.width() * column, step.height() * row}));
    return all;
}

void shrink(std::optional<double>& value)
{
    if (value)
        *value /= kTileCopies;
}

void shrink(ObjectSettings& object)
{
    shrink(object.bevel);
    shrink(object.elevation);
    // Its height is measured in bevels.
    if (object.rim)
        object.rim->bevel /= kTileCopies;
}

} // namespace

DIO_Drawing tiled(const DIO_Drawing& drawing, const Tiling& tiling)
{
    const int columns = tiling.columns();
    const int rows = tiling.rows();
    const QSizeF step = drawing.viewBox.size();
    DIO_Drawing result = drawing;
    result.size = {drawing.size.width() * columns, drawing.size.height() * rows};
    result.viewBox.setSize({step.width() * columns, step.height() * rows});
    if (isFilledByBitmap(drawing)) {
        DIO_Shape& shape = result.layers.front().shapes.front();
        shape.picture = tiled(shape.picture, columns, rows);
        shape.path = {};
        shape.path.addRect(result.viewBox);
        return result;
    }
    for (DIO_Layer& layer : result.layers)
        layer.shapes = tiled(layer.shapes, step, tiling);
    return result;
}

NormalMapSettings settingsForTiles(const NormalMapSettings& settings, const QSizeF& size, const Tiling& tiling)
{
    NormalMapSettings result = settings;
    const QSizeF alone(size.width() / tiling.columns(), size.height() / tiling.rows());
    const auto [width, height] = pictureSize(alone, settings);
    // Sizes beyond every limit stay beyond it, and representable.
    const auto copies = [](int side, int count) {
        return static_cast<int>(std::min<std::int64_t>(std::int64_t{side} * count, std::numeric_limits<int>::max()));
    };
    result.size = {copies(width, tiling.columns()), copies(height, tiling.rows())};
    if (!tiling.x)
        return result;
    shrink(result.allObjects);
    for (auto& [number, object] : result.objects)
        shrink(object);
    for (auto& [name, object] : result.namedObjects)
        shrink(object);
    return result;
}

void shrinkGivenForms(LayeredDrawing& drawing, const Tiling& tiling, FormShape shape)
{
    if (!tiling.x)
        return;
    const bool all = shape == FormShape::RIM;
    for (LayeredDrawing::Layer& layer : drawing.layers) {
        layer.form.bevel /= all || layer.own.bevel ? kTileCopies : 1;
        layer.form.elevation /= all || layer.own.elevation ? kTileCopies : 1;
        shrink(layer.own);
    }
}

Math::Box2di middleOf(const Math::Box2di& window, const Tiling& tiling)
{
    const int width = window.width() / tiling.columns();
    const int height = window.height() / tiling.rows();
    const int x = window.x1 + (tiling.x ? width : 0);
    const int y = window.y1 + (tiling.y ? height : 0);
    return {x, y, x + width, y + height};
}
