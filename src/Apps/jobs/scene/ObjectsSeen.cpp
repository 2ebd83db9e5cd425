// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawings are put on a small picture of the scene's frame and measured as those of a single drawing are.
#include "jobs/scene/ObjectsSeen.h"

#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "form/choice/ObjectShares.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/SurfaceLines.h"

#include <unordered_map>

namespace {

constexpr int kWidth = 720; // pixels

// The colours of all drawings as one drawing's palette, each once.
class SolidPaints
{
public:
    explicit SolidPaints(std::vector<DIO_Paint>& palette) : _palette(palette) {}

    int indexOf(const QColor& colour)
    {
        const auto [entry, isNew] = _indices.try_emplace(colour.rgb(), static_cast<int>(_palette.size()));
        if (isNew)
            _palette.push_back({DIO_Paint::Kind::SOLID, colour, colour.name()});
        return entry->second;
    }

private:
    std::vector<DIO_Paint>& _palette;
    std::unordered_map<QRgb, int> _indices;
};

QColor colourOf(const CELVEC_Kvd& drawing, const CELVEC_Shape& shape)
{
    const auto colour = drawing.palette() ? drawing.palette()->findColor(shape.color) : nullptr;
    const CM_Rgba rgba = colour ? colour->GetNominalColor() : CM_Rgba();
    return {rgba.red, rgba.green, rgba.blue};
}

void addShapes(const CELVEC_Kvd& drawing, const QTransform& toPixel, DIO_Layer& layer, SolidPaints& paints)
{
    for (const CELVEC_Shape& shape : drawing.shapes(GR_Art::COLOUR)) {
        DIO_Shape seen;
        seen.path = toPixel.map(shape.path);
        if (shape.clip)
            seen.clip = toPixel.map(*shape.clip);
        seen.opacity = shape.opacity;
        seen.paint = paints.indexOf(colourOf(drawing, shape));
        seen.picture = shape.picture;
        layer.shapes.push_back(std::move(seen));
    }
}

} // namespace

std::vector<SeenObject> objectsSeen(const MO_Scene& scene, std::span<const ObjectInput> inputs, double frame)
{
    const int height = scene.heightInPixels(kWidth);
    ChosenObjects chosen;
    chosen.drawing.viewBox = QRectF(0, 0, kWidth, height);
    SolidPaints paints(chosen.drawing.palette);
    for (const ObjectInput& input : inputs) {
        DIO_Layer layer;
        for (const MO_ElementModule* const element : elementsBehind(*input.port))
            if (const auto drawing = element->drawingAt(frame)) {
                const QTransform toPixel = scene.sceneToPixel(frame, {kWidth, height});
                addShapes(*drawing, element->drawingToScene(frame) * toPixel, layer, paints);
            }
        ChosenObject object;
        object.role = bendsTheSurface(*input.definition, frame) ? ObjectRole::RELIEF : ObjectRole::BODY;
        chosen.objects.push_back(object);
        chosen.drawing.layers.push_back(std::move(layer));
    }
    measureShares(chosen);
    std::vector<SeenObject> seen;
    for (ChosenObject& object : chosen.objects)
        seen.push_back({object.share, std::move(object.colours)});
    return seen;
}
