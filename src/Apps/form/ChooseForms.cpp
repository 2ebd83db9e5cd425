// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each layer is measured on a small picture of all its shapes together.
#include "form/ChooseForms.h"

#include "form/PageFrame.h"
#include "form/raster/OutlineDistance.h"
#include "form/raster/ShapePainter.h"

#include <cmath>
#include <numbers>

namespace {

ObjectExtent extentOf(std::span<const DIO_Shape> shapes, ShapePainter& painter)
{
    const Grid& grid = painter.grid();
    const OutlineDistance measured = measureOutlineDistance(painter.mask(shapes), grid.bounds());
    if (measured.area == 0)
        return {};
    const double discRadius = std::sqrt(measured.area / std::numbers::pi);
    return {3.0 * measured.mean * grid.sceneUnitsPerCell(), measured.cut ? 0.0 : measured.largest / discRadius};
}

} // namespace

ObjectExtent measureExtent(std::span<const DIO_Shape> shapes, const QRectF& frame)
{
    if (frame.isEmpty())
        return {};
    ShapePainter painter(Grid::over(frame, kCellsMeasured));
    return extentOf(shapes, painter);
}

std::vector<ObjectForm> chooseForms(const ChosenObjects& chosen, const FormSettings& settings)
{
    const QRectF page = pageAround(chosen.drawing.viewBox, settings.aspect);
    ShapePainter painter(page.isEmpty() ? Grid() : Grid::over(page, kCellsMeasured));
    std::vector<ObjectForm> forms;
    for (std::size_t i = 0; i < chosen.drawing.layers.size(); ++i) {
        const std::vector<DIO_Shape>& layer = chosen.drawing.layers[i].shapes;
        const ChosenObject& object = chosen.objects[i];
        const auto& shapes = object.measured.empty() ? layer : object.measured;
        const ObjectExtent extent = page.isEmpty() ? ObjectExtent() : extentOf(shapes, painter);
        forms.push_back(formFor(extent, object.role, settings));
    }
    return forms;
}
