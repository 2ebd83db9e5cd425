// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing is what a composite in the node's place would show: its inputs one over the other, without the objects
// that only cut or are switched off.
#include "studio/preview/SceneSnapshot.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/rendering/RD_RenderJob.h"
#include "studio/preview/FrameImages.h"

namespace {

const QString kNodeKeyword = QStringLiteral("Vallorin");

RD_RenderParameters parametersOf(const QSize& size)
{
    return {RD_RenderParameters::IMAGE_PROCESSING_16BIT, {size.width(), size.height()}};
}

Math::Box2di windowOf(const QSize& size)
{
    return Math::Box2di(0, 0, size.width(), size.height());
}

RD_SoftRenderer::Progress part(const RD_SoftRenderer::Progress& progress, double from, double to)
{
    return [progress, from, to](double done) { return !progress || progress(from + (to - from) * done); };
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderModule(MO_Module& module, int frame, const QSize& size,
                                                     const RD_SoftRenderer::Progress& progress)
{
    const auto cel = RD_SoftRenderer::render(module, frame, parametersOf(size), progress);
    if (!cel)
        return cel.error();
    return (*cel)->pixmap();
}

// The definition that counts for what comes in at a port: the one nearest to the drawing. Null where drawings of
// several objects come together.
const ObjectDefinition* definitionBehind(const MO_Port& in)
{
    const ObjectDefinition* found = nullptr;
    const MO_Port* port = in.realSrcPort();
    while (port && port->module() && port->module()->nInPorts() <= 1) {
        if (const auto* definition = dynamic_cast<const ObjectDefinition*>(port->module()))
            found = definition;
        const MO_Port* const next = port->module()->inPort(0);
        port = next ? next->realSrcPort() : nullptr;
    }
    return found;
}

// What the node left of a pixel is what the drawing shows of it.
void coverLike(IIO_Picture& drawing, const CEL_PixmapArea& node)
{
    const auto* const node16 = dynamic_cast<const CEL_PixmapAreaRGBA16*>(&node);
    if (!node16)
        return;
    for (int y = 0; y < drawing.height(); ++y) {
        const auto samples = drawing.row<std::uint16_t>(y);
        for (int x = 0; x < drawing.width(); ++x) {
            const CEL_PixelRGBA16* const pixel = node16->find(x, y);
            const int left = pixel ? std::clamp<int>(2 * pixel->a + (pixel->a > 16383 ? 1 : 0), 0, 65535) : 0;
            auto& alpha = samples[static_cast<std::size_t>(x) * 4 + 3];
            alpha = std::min(alpha, static_cast<std::uint16_t>(left));
        }
    }
}

UT_Error noMemory()
{
    return {QStringLiteral("the picture does not fit in memory; choose a smaller preview")};
}

} // namespace

MO_Module* shownModule(const MO_Scene& scene)
{
    if (MO_Module* const output = scene.outputModule())
        return output;
    MO_Module* node = nullptr;
    scene.root().forEachModule([&](MO_Module& module) {
        if (!node && module.keyword() == kNodeKeyword)
            node = &module;
    });
    if (node || scene.root().modules().empty())
        return node;
    return scene.root().modules().back().get();
}

SceneSnapshot::SceneSnapshot(const MO_Scene& scene, const QString& nodeName) : _scene(MO_copyScene(scene))
{
    _module = nodeName.isEmpty() ? nullptr : _scene->findModule(nodeName);
    if (!_module)
        _module = shownModule(*_scene);
    if (!_module)
        return;
    _source = pictureSourceOf(*_module);
    if (_source.kind != RenderedKind::NORMALS)
        return;
    for (const MO_Module* node : _source.nodes)
        if (const auto* attr = dynamic_cast<const AT_BoolAttr*>(node->findAttr(QStringLiteral("DepthInBlue"))))
            _otherBlue = _otherBlue || !attr->localValue();
}

SceneSnapshot::~SceneSnapshot() = default;

UT_Result<std::shared_ptr<RenderedFrame>> SceneSnapshot::render(int frame, const QSize& fullSize, const QSize& size,
                                                                const RD_SoftRenderer::Progress& progress)
{
    auto surface = NM_Surface::create({size.width(), size.height()});
    if (!surface)
        return surface.error();
    auto made = std::shared_ptr<RenderedFrame>(new RenderedFrame{.frame = frame,
                                                                 .fullSize = fullSize,
                                                                 .size = size,
                                                                 .nodeName = _module->instanceName(),
                                                                 .kind = _source.kind,
                                                                 .drawing = {},
                                                                 .elevation = {},
                                                                 .normals = {},
                                                                 .surface = std::move(*surface),
                                                                 .node = {},
                                                                 .channels = {}});
    if (_source.kind != RenderedKind::COLOURS)
        if (const auto done = renderNode(*made, part(progress, 0.0, 0.7)); !done)
            return done.error();
    if (const auto done = renderDrawing(*made, part(progress, 0.7, 0.95)); !done)
        return done.error();
    return made;
}

UT_Result<void> SceneSnapshot::renderNode(RenderedFrame& made, const RD_SoftRenderer::Progress& progress)
{
    const Math::Box2di window = windowOf(made.size);
    const bool hasNormals = _source.kind == RenderedKind::NORMALS;
    const DepthInBlue elevated(hasNormals ? _source.nodes : std::vector<MO_Module*>());
    const auto node = renderModule(*_module, made.frame, made.size, progress);
    if (!node)
        return node.error();
    made.node = *node;
    const auto channel = hasNormals ? NM_ElevationChannel::BLUE : NM_ElevationChannel::RED;
    const auto elevation = NM_elevationOf(*made.node, channel, window, window, IIO_SampleType::UINT16);
    if (!elevation)
        return elevation.error();
    made.elevation = imageOf(*elevation);
    if (!hasNormals)
        return made.elevation.isNull() ? UT_Result<void>(noMemory()) : UT_Result<void>();
    const auto normals = NM_toPicture(*made.node, window, {});
    if (!normals)
        return normals.error();
    made.normals = imageOf(*normals);
    if (made.elevation.isNull() || made.normals.isNull())
        return noMemory();
    return made.surface.setNormals(*made.node, window);
}

UT_Result<void> SceneSnapshot::renderDrawing(RenderedFrame& made, const RD_SoftRenderer::Progress& progress)
{
    bool hasCutOuts = false;
    MO_Module* const module = drawingModule(made.frame, hasCutOuts);
    const auto painted = renderModule(*module, made.frame, made.size, progress);
    if (!painted)
        return painted.error();
    auto picture = NM_drawingPicture(**painted, windowOf(made.size), IIO_SampleType::UINT16);
    if (!picture)
        return picture.error();
    if (hasCutOuts && _source.kind == RenderedKind::NORMALS)
        coverLike(*picture, *made.node);
    made.drawing = imageOf(*picture);
    if (made.drawing.isNull())
        return noMemory();
    return made.surface.setDrawing(*picture);
}

MO_Module* SceneSnapshot::drawingModule(int frame, bool& hasCutOuts)
{
    if (_source.nodes.empty())
        return _module;
    XUGroup& group = *_source.nodes.front()->group();
    // Which objects cut may change from frame to frame.
    if (_composite)
        group.take(*_composite);
    _composite = &group.emplace<MO_CompositeModule>();
    _composite->setCompositeOrder(MO_CompositeType::PORT_ORDER);
    unsigned port = 0;
    for (const MO_Module* node : _source.nodes) {
        if (node->group() != &group)
            continue;
        for (unsigned i = 0; i < node->nInPorts(); ++i) {
            const MO_Port* const source = node->inPort(i)->srcPort();
            if (!source || !source->module())
                continue;
            const ObjectDefinition* const definition = definitionBehind(*node->inPort(i));
            const bool cuts = definition && definition->objectId(frame) == 0;
            hasCutOuts = hasCutOuts || cuts;
            if (cuts || (definition && !definition->objectEnabled()->localValue()))
                continue;
            if (MO_Scene::connect(*source->module(), *_composite, port, source->index()))
                ++port;
        }
    }
    return _composite;
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> SceneSnapshot::renderChannels(int frame, const QSize& size,
                                                                      const RD_SoftRenderer::Progress& progress)
{
    return renderModule(*_module, frame, size, progress);
}
