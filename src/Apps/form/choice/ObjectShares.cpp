// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints the shapes into a map of the grid's cells, from the bottom up, and counts.
#include "form/choice/ObjectShares.h"

#include "form/choice/PartMap.h"
#include "form/choice/ShapeFacts.h"

#include <algorithm>

void nameColours(const std::map<int, int>& cells, const DIO_Drawing& drawing, ChosenObject& object)
{
    constexpr std::size_t kNamed = 4;
    std::vector<std::pair<int, int>> areas; // negative area, paint
    areas.reserve(cells.size());
    for (const auto& [paint, area] : cells)
        areas.emplace_back(-area, paint);
    std::ranges::sort(areas);
    for (std::size_t i = 0; i < std::min(areas.size(), kNamed); ++i)
        object.colours.append(drawing.palette[static_cast<std::size_t>(areas[i].second)].name);
}

void measureShares(ChosenObjects& chosen)
{
    const auto isMeasured = [](const ChosenObject& object) { return object.share > 0.0 || !object.colours.isEmpty(); };
    const DIO_Drawing& drawing = chosen.drawing;
    if (drawing.viewBox.isEmpty() || std::ranges::all_of(chosen.objects, isMeasured))
        return;
    const Grid grid = gridFor(drawing);
    const std::vector<const DIO_Shape*> shapes = shapesInOrder(drawing);
    PartMap map(grid);
    int shape = 0;
    for (std::size_t layer = 0; layer < drawing.layers.size(); ++layer)
        for (const DIO_Shape& painted : drawing.layers[layer].shapes) {
            if (chosen.objects[layer].role != ObjectRole::RELIEF)
                map.paint(CellMask::of(std::span(&painted, 1), grid), shape, static_cast<int>(layer));
            ++shape;
        }

    std::vector<std::map<int, int>> cells(chosen.objects.size()); // of each object, by paint
    std::vector<int> areas(chosen.objects.size(), 0);
    map.forEachShown([&](int count, const ShownCell& cell) {
        const auto object = static_cast<std::size_t>(cell.part);
        const DIO_Shape& seen = *shapes[static_cast<std::size_t>(cell.shape)];
        areas[object] += count;
        if (seen.picture.isNull())
            cells[object][seen.paint] += count;
    });
    for (std::size_t i = 0; i < chosen.objects.size(); ++i)
        if (ChosenObject& object = chosen.objects[i]; !isMeasured(object)) {
            object.share = static_cast<double>(areas[i]) / (static_cast<double>(grid.width) * grid.height);
            nameColours(cells[i], drawing, object);
        }
}
