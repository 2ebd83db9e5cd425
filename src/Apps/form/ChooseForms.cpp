// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A layer that the choice of objects did not measure is measured on a small picture of all its shapes together.
#include "form/ChooseForms.h"

#include "form/PageFrame.h"
#include "form/raster/ShapePainter.h"

namespace {

ObjectExtent extentOf(std::span<const DIO_Shape> shapes, ShapePainter& painter)
{
    const Grid& grid = painter.grid();
    return extentOf(measureOutlineDistance(painter.mask(shapes), grid.bounds()), grid.sceneUnitsPerCell());
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
        // What was measured in the drawing's frame does not hold in a larger one.
        const bool isMeasured = object.extent && object.measured.empty() && page == chosen.drawing.viewBox;
        const auto measured = [&] { return page.isEmpty() ? ObjectExtent() : extentOf(shapes, painter); };
        forms.push_back(formFor(isMeasured ? *object.extent : measured(), object.role, settings));
    }
    return forms;
}
