// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each layer is measured on a small picture of all its shapes together.
#include "form/ChooseForms.h"

#include "form/PageFrame.h"
#include "form/raster/OutlineDistance.h"

#include <cmath>
#include <numbers>

ObjectExtent measureExtent(std::span<const DIO_Shape> shapes, const QRectF& frame)
{
    if (frame.isEmpty())
        return {};
    const Grid grid = Grid::over(frame, kCellsMeasured);
    const OutlineDistance measured = measureOutlineDistance(CellMask::of(shapes, grid), grid.bounds());
    if (measured.area == 0)
        return {};
    const double discRadius = std::sqrt(measured.area / std::numbers::pi);
    return {3.0 * measured.mean * grid.sceneUnitsPerCell(), measured.cut ? 0.0 : measured.largest / discRadius};
}

std::vector<ObjectForm> chooseForms(const ChosenObjects& chosen, const FormSettings& settings)
{
    const QRectF page = pageAround(chosen.drawing.viewBox, settings.aspect);
    std::vector<ObjectForm> forms;
    for (std::size_t i = 0; i < chosen.drawing.layers.size(); ++i) {
        const std::vector<DIO_Shape>& layer = chosen.drawing.layers[i].shapes;
        const ChosenObject& object = chosen.objects[i];
        const auto& shapes = object.measured.empty() ? layer : object.measured;
        forms.push_back(formFor(measureExtent(shapes, page), object.role, settings));
    }
    return forms;
}
