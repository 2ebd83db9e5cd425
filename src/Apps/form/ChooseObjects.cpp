// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/ChooseObjects.h"

#include "form/ContinueBeyondFrame.h"
#include "form/PageFrame.h"
#include "form/ReliefLayers.h"
#include "form/bitmap/BitmapObjects.h"
#include "form/choice/FewParts.h"
#include "form/choice/HiddenShapes.h"
#include "form/choice/Islands.h"
#include "form/choice/LayerAssembly.h"
#include "form/lines/LineDrawing.h"

#include <algorithm>
#include <map>

namespace {

// Makes every layer of the drawing one object.
ChosenObjects believed(const DIO_Drawing& drawing)
{
    ChosenObjects chosen;
    chosen.drawing = drawing;
    for (const DIO_Layer& layer : drawing.layers) {
        ChosenObject object;
        object.name = layer.name;
        object.reason = layerReason(layer);
        object.values = layer.values;
        chosen.objects.push_back(object);
    }
    return chosen;
}

// Makes every shape with an area on the grid a part of its own.
FoundParts everyShape(const std::vector<ShapeFacts>& facts, const Grid& grid)
{
    FoundParts found{{}, {}, PartMap(grid)};
    for (std::size_t i = 0; i < facts.size(); ++i) {
        if (facts[i].area == 0)
            continue;
        const auto index = static_cast<int>(found.parts.size());
        found.map.paint(facts[i].mask, static_cast<int>(i), index);
        found.parts.push_back(
            {{static_cast<int>(i)}, {}, facts[i].mask, 0.0, ObjectRole::BODY, QStringLiteral("a shape")});
        found.order.push_back(index);
    }
    return found;
}

// The parts that the rules find in what the picture shows.
FoundParts shownParts(std::vector<ShapeFacts>& facts, const Grid& grid)
{
    const std::vector<int> hiders = findHidden(facts, grid);
    FoundParts found = findParts(facts, grid);
    wearHidden(hiders, found.parts);
    return fewerParts(std::move(found));
}

// Whether the drawing's own layers are the objects: it declares at least two, or one has values, which the file gives
// to that layer.
bool hasLayers(const DIO_Drawing& drawing)
{
    const auto hasValues = [](const DIO_Layer& layer) { return !layer.values.isEmpty(); };
    return std::ranges::count(drawing.layers, true, &DIO_Layer::declared) >= 2 ||
           std::ranges::any_of(drawing.layers, hasValues);
}

ChosenObjects chooseOfShapes(const DIO_Drawing& drawing, ObjectChoice choice)
{
    const bool found = choice == ObjectChoice::SHAPES || (choice == ObjectChoice::AUTO && !hasLayers(drawing));
    if (!found || drawing.viewBox.isEmpty())
        return believed(drawing);
    const Grid grid = gridFor(drawing);
    const bool everyOne = choice == ObjectChoice::SHAPES;
    auto [shapes, masks] = everyOne ? SplitDrawing{drawing, {}} : splitIntoIslands(drawing, grid);
    std::vector<ShapeFacts> facts = collectFacts(shapes, grid, std::move(masks));
    if (!everyOne)
        fillBetweenLines(shapes, facts, grid);
    const FoundParts parts = everyOne ? everyShape(facts, grid) : shownParts(facts, grid);
    return parts.parts.empty() ? believed(drawing) : assembleLayers(shapes, facts, parts, grid);
}

ChosenObjects chooseOfSeen(const DIO_Drawing& drawing, ObjectChoice choice, double aspect)
{
    const QRectF page = pageAround(drawing.viewBox, aspect);
    if (choice == ObjectChoice::AUTO && !hasLayers(drawing) && isBitmap(drawing))
        return chooseBitmapObjects(drawing, page);
    ChosenObjects chosen = chooseOfShapes(drawing, choice);
    if (choice == ObjectChoice::AUTO)
        continueBeyondFrame(chosen, page);
    return chosen;
}

} // namespace

QString layerReason(const DIO_Layer& layer)
{
    return layer.declared ? QStringLiteral("a layer of the file") : QStringLiteral("shapes outside all layers");
}

QString ChosenObjects::warning() const
{
    const auto flat = static_cast<std::size_t>(std::ranges::count(objects, ObjectRole::FLAT, &ChosenObject::role));
    const bool hasBackdrop = flat > 0 && flat < objects.size();
    if (!drawing.opaqueEdge || hasBackdrop)
        return {};
    return QStringLiteral("the picture is opaque up to its borders, so nothing in it has an outline; make its "
                          "background transparent if it has one");
}

DIO_Grouping groupingFor(ObjectChoice choice)
{
    switch (choice) {
    case ObjectChoice::GROUPS:
        return DIO_Grouping::GROUPS;
    case ObjectChoice::ONE:
    case ObjectChoice::SHAPES:
        return DIO_Grouping::ONE;
    case ObjectChoice::AUTO:
    case ObjectChoice::LAYERS:
        break;
    }
    return DIO_Grouping::AUTO;
}

ChosenObjects chooseObjects(const DIO_Drawing& drawing, ObjectChoice choice, double aspect)
{
    DIO_Drawing seen = drawing;
    std::vector<std::size_t> places;
    const std::vector<DIO_Layer> reliefs = takeReliefLayers(seen, places);
    ChosenObjects chosen = chooseOfSeen(seen, choice, aspect);
    if (choice == ObjectChoice::AUTO && !hasLayers(seen))
        places.clear();
    addReliefLayers(reliefs, places, drawing.palette, chosen);
    return chosen;
}
