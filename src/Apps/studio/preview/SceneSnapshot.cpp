// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts a shown frame to images for the screen and to a surface for lighting.
#include "studio/preview/SceneSnapshot.h"

#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/preview/FrameImages.h"

namespace {

RD_RenderParameters parametersOf(const QSize& size)
{
    return {RD_RenderParameters::IMAGE_PROCESSING_16BIT, {size.width(), size.height()}};
}

UT_Error noMemory()
{
    return UT_noMemory(QStringLiteral("the picture"), QStringLiteral("choose a smaller preview"));
}

UT_Result<void> takeImage(const UT_Result<IIO_Picture>& picture, QImage& image)
{
    if (!picture)
        return picture.error();
    image = imageOf(*picture);
    return image.isNull() ? UT_Result<void>(noMemory()) : UT_Result<void>();
}

UT_Result<void> takeVolume(const ShownFrame& shown, RenderedFrame& made)
{
    if (shown.kind == RenderedKind::COLOURS)
        return {};
    made.node = shown.picture;
    const auto elevation =
        NM_elevationOf(*shown.picture, shown.elevationChannel(), shown.window, shown.window, IIO_SampleType::UINT16);
    if (auto taken = takeImage(elevation, made.elevation); !taken || shown.kind != RenderedKind::NORMALS)
        return taken;
    if (auto taken = takeImage(NM_toPicture(*shown.picture, shown.window, {}), made.normals); !taken)
        return taken;
    return made.surface.setNormals(*shown.picture, shown.window);
}

UT_Result<PaintedDrawing> paint(ShownFrame& shown)
{
    auto picture = NM_drawingPicture(*shown.drawing, shown.window, IIO_SampleType::UINT16);
    PaintedDrawing painted;
    if (const auto taken = takeImage(picture, painted.image); !taken)
        return taken.error();
    painted.pixels = shown.drawing;
    painted.picture = std::make_shared<const IIO_Picture>(std::move(*picture));
    painted.inputs = std::make_shared<const ShownInputs>(std::move(shown.inputs));
    return painted;
}

} // namespace

MO_Module* shownModule(const MO_Scene& scene)
{
    if (MO_Module* const output = scene.outputModule())
        return output;
    MO_Module* node = nullptr;
    scene.root().forEachModule([&](MO_Module& module) {
        if (!node && NormalMapNode::is(module))
            node = &module;
    });
    if (node || scene.root().modules().empty())
        return node;
    return scene.root().modules().back().get();
}

SceneSnapshot::SceneSnapshot(const MO_Scene& scene, const QString& nodeName) : _capture(scene)
{
    const MO_Module* module = nodeName.isEmpty() ? nullptr : scene.findModule(nodeName);
    if (!module)
        module = shownModule(scene);
    if (module)
        _module = module->instanceName();
    scene.root().forEachModule([this](const MO_Module& each) {
        if (const auto* const element = dynamic_cast<const MO_ElementModule*>(&each))
            for (const auto& [name, drawing] : element->drawings())
                _state.drawings.push_back(drawing);
    });
}

UT_Result<ShownModule*> SceneSnapshot::source()
{
    if (_shown)
        return _shown.get();
    auto scene = _capture.makeScene();
    if (!scene)
        return scene.error();
    _scene = std::move(*scene);
    _shown = std::make_unique<ShownModule>(*_scene->findModule(_module));
    _state.graph = drawingGraphOf(*_scene, _module);
    return _shown.get();
}

bool SceneSnapshot::hasOtherBlue()
{
    const UT_Result<ShownModule*> shown = source();
    return shown && (*shown)->hasOtherBlue();
}

SceneSnapshot::~SceneSnapshot() = default;

UT_Result<std::shared_ptr<RenderedFrame>> SceneSnapshot::render(int frame, const QSize& fullSize, const QSize& size,
                                                                const RD_SoftRenderer::Progress& progress,
                                                                DrawingCache* drawings)
{
    const UT_Result<ShownModule*> copy = source();
    if (!copy)
        return copy.error();
    const ShownModule& module = **copy;
    // The picture of another module is its drawing, so there is nothing to reuse.
    const bool mayBeKept = drawings && module.kind() != RenderedKind::COLOURS;
    if (mayBeKept)
        _state.frame = drawingFrameOf(*_scene, frame);
    const PaintedDrawing* const kept = mayBeKept ? drawings->find(_state, size) : nullptr;
    RD_KeptInputs* const inputs = mayBeKept ? &drawings->inputsFor(_state, colourTablesOf(*_scene)) : nullptr;
    auto shown = module.render(frame, parametersOf(size),
                               {.elevation = true,
                                .drawing = !kept,
                                .inputs = !kept,
                                .knownDrawing = kept ? kept->pixels : nullptr,
                                .knownInputs = kept ? kept->inputs : nullptr},
                               progress, inputs);
    if (!shown)
        return shown.error();
    const auto painted = kept ? UT_Result<PaintedDrawing>(*kept) : paint(*shown);
    if (!painted)
        return painted.error();
    if (mayBeKept && !kept)
        drawings->keep(_state, size, *painted);
    auto surface = NM_Surface::create({size.width(), size.height()});
    if (!surface)
        return surface.error();
    auto made = std::make_shared<RenderedFrame>(RenderedFrame{.frame = frame,
                                                              .fullSize = fullSize,
                                                              .size = size,
                                                              .nodeName = _shown->module().instanceName(),
                                                              .kind = _shown->kind(),
                                                              .drawing = painted->image,
                                                              .elevation = {},
                                                              .normals = {},
                                                              .surface = std::move(*surface),
                                                              .node = {},
                                                              .channels = {},
                                                              .inputs = painted->inputs});
    if (const auto done = takeVolume(*shown, *made); !done)
        return done.error();
    if (const auto set = made->surface.setDrawing(*painted->picture); !set)
        return set.error();
    return made;
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> SceneSnapshot::renderChannels(int frame, const QSize& size,
                                                                      const RD_SoftRenderer::Progress& progress)
{
    const UT_Result<ShownModule*> copy = source();
    return copy ? (*copy)->renderChannels(frame, parametersOf(size), progress) : copy.error();
}
