// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One render a part, each of the scene or of the copy that the part needs.
#include "jobs/shown/ShownFrame.h"

#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>

namespace {

// The node takes most of the time; of two renders of it, each half.
constexpr double kNodeEnds = 0.8;

RD_SoftRenderer::Progress part(const RD_SoftRenderer::Progress& progress, double from, double to)
{
    return [progress, from, to](double done) { return !progress || progress(from + (to - from) * done); };
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderModule(MO_Module& module, double frame,
                                                     const RD_RenderParameters& parameters,
                                                     const RD_SoftRenderer::Progress& progress)
{
    const UT_Result<CA_CelRef> cel = RD_SoftRenderer::render(module, frame, parameters, progress);
    if (!cel)
        return cel.error();
    return (*cel)->pixmap();
}

} // namespace

ShownModule::ShownModule(MO_Module& module) : _module(module), _source(pictureSourceOf(module))
{
    if (_source.kind == RenderedKind::NORMALS)
        _otherBlue = std::ranges::any_of(_source.nodes,
                                         [](MO_Module* node) { return !NormalMapNode(*node).hasElevationInBlue(); });
}

ShownModule::~ShownModule() = default;

UT_Result<ShownFrame> ShownModule::render(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                          const RD_SoftRenderer::Progress& progress) const
{
    ShownFrame made;
    made.kind = _source.kind;
    made.window = RD_RenderJob(parameters).canvas();
    const bool twice = _otherBlue && wanted.elevation && wanted.channels;
    const double firstEnds = twice ? kNodeEnds / 2.0 : kNodeEnds;
    auto picture =
        renderModule(wanted.elevation ? elevated() : _module, frame, parameters, part(progress, 0.0, firstEnds));
    if (!picture)
        return picture.error();
    made.picture = *picture;
    if (twice) {
        auto channels = renderChannels(frame, parameters, part(progress, firstEnds, kNodeEnds));
        if (!channels)
            return channels.error();
        made.channels = *channels;
    } else if (wanted.channels) {
        made.channels = made.picture;
    }
    if (wanted.drawing && made.kind != RenderedKind::COLOURS) {
        auto painted = renderModule(drawing(), frame, parameters, part(progress, kNodeEnds, 1.0));
        if (!painted)
            return painted.error();
        made.drawing = *painted;
    } else if (wanted.drawing) {
        made.drawing = made.picture;
    }
    return made;
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::renderChannels(double frame, const RD_RenderParameters& parameters,
                                                                    const RD_SoftRenderer::Progress& progress) const
{
    return renderModule(_module, frame, parameters, progress);
}

MO_Module& ShownModule::elevated() const
{
    if (!_otherBlue)
        return _module;
    std::call_once(_elevated.once, [this] {
        copyTo(_elevated);
        for (MO_Module* const node : pictureSourceOf(*_elevated.module).nodes)
            NormalMapNode(*node).putElevationInBlue();
    });
    return *_elevated.module;
}

MO_Module& ShownModule::drawing() const
{
    std::call_once(_drawing.once, [this] {
        copyTo(_drawing);
        _drawing.module = &showDrawings(*_drawing.scene, *_drawing.module);
    });
    return *_drawing.module;
}

void ShownModule::copyTo(Copy& copy) const
{
    copy.scene = MO_copyScene(dynamic_cast<const MO_Scene&>(*_module.sceneCommon()));
    copy.module = copy.scene->findModule(_module.instanceName());
}
