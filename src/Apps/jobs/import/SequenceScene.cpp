// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First the scene of one drawing of each layer, then all drawings and when they are shown.
#include "jobs/import/SequenceScene.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "form/ChooseForms.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/drawing/OwnValues.h"

#include <algorithm>

namespace {

LayeredDrawing firstDrawings(const DrawingSequence& sequence, const FormSettings& form, const ObjectWishes& folder,
                             QStringList& warnings)
{
    // To measure a layer takes milliseconds, and files have up to thousands of layers.
    std::vector<ObjectExtent> extents(sequence.layers.size());
    VL_parallelForEach(static_cast<int>(extents.size()), [&](int i) {
        const auto at = static_cast<std::size_t>(i);
        const SequenceLayer& layer = sequence.layers[at];
        extents[at] = layer.extent ? *layer.extent : measureExtent(layer.measured, sequence.frame);
    });
    LayeredDrawing drawing;
    drawing.frame = sequence.frame;
    drawing.size = sequence.size;
    drawing.palette = sequence.palette;
    for (const SequenceLayer& layer : sequence.layers) {
        const ObjectExtent& extent = extents[drawing.layers.size()];
        const auto number = static_cast<int>(drawing.layers.size()) + 1;
        drawing.layers.push_back({layer.name, layer.drawings.begin()->second, formFor(extent, layer.role, form),
                                  ownSettings(layer.values, folder, number, layer.name, layer.role, warnings)});
    }
    return drawing;
}

QString drawingName(int key)
{
    return key == SequenceLayer::kNothing ? QString() : QString::number(key);
}

void showThroughTime(MO_ElementModule& element, const SequenceLayer& layer)
{
    while (!element.drawings().empty())
        element.setDrawing(QString(element.drawings().begin()->first), nullptr);
    for (const auto& [key, drawing] : layer.drawings)
        element.setDrawing(drawingName(key), drawing);
    AT_ExposureSheet exposures;
    for (const auto& [frame, key] : layer.exposures)
        exposures.setExposure(frame, drawingName(key));
    element.drawingAttr()->setExposures(exposures);
}

} // namespace

UT_Result<std::unique_ptr<MO_Scene>> buildSequenceScene(const DrawingSequence& sequence, const FormSettings& form,
                                                        const SequenceWishes& wishes, QStringList& warnings)
{
    QStringList names;
    for (const SequenceLayer& layer : sequence.layers)
        names << layer.name;
    const UT_Result<ObjectWishes> numbered = withNumberedObjects(wishes.person, names);
    if (!numbered)
        return numbered.error();
    NormalMapSettings settings;
    static_cast<ObjectWishes&>(settings) = *numbered;
    UT_Result<DrawingScene> built =
        DrawingScene::build(firstDrawings(sequence, form, wishes.folder, warnings), settings, FrameShape::DRAWING);
    if (!built)
        return built.error();
    for (std::size_t i = 0; i < sequence.layers.size(); ++i) {
        const SequenceLayer& layer = sequence.layers[i];
        showThroughTime(*built->elements()[i], layer);
        built->elements()[i]->setOrigin({.files = {}, .layer = {}, .reason = reasonInWords(layer.reason, layer.role)});
    }
    built->scene().setFrameRange(sequence.firstFrame, sequence.lastFrame);
    built->scene().setFrameRate(std::clamp(sequence.frameRate, MO_Scene::kSlowest, MO_Scene::kFastest));
    return built->takeScene();
}
