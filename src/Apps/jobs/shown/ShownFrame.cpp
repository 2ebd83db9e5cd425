// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Renders each part of a frame from the scene, or from the copy that the part needs.
#include "jobs/shown/ShownFrame.h"

#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "jobs/shown/FrameMargin.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/ObjectRims.h"
#include "jobs/shown/ObjectTilts.h"
#include "jobs/shown/RenderPrecision.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>
#include <utility>

namespace {

// The share of the node in the progress, since it takes most of the time; two renders of it take half each.
constexpr double kNodeEnds = 0.8;

RD_SoftRenderer::Progress part(const RD_SoftRenderer::Progress& progress, double from, double to)
{
    return [progress, from, to](double done) { return !progress || progress(from + (to - from) * done); };
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderModule(MO_Module& module, double frame,
                                                     const RD_RenderParameters& parameters,
                                                     const RD_SoftRenderer::Progress& progress,
                                                     RD_KeptInputs* kept = nullptr)
{
    const UT_Result<CA_CelRef> cel = RD_SoftRenderer::render(module, frame, parameters, progress, kept);
    if (!cel)
        return cel.error();
    return (*cel)->pixmap();
}

bool isFloat(const RD_RenderParameters& parameters)
{
    return parameters.celFormat() == CEL_FORMAT_RGBAFLOAT;
}

// Computed in float, as the node does.
float canvasFactor(const Math::Box2di& canvas)
{
    return static_cast<float>(canvas.width() / MO_SceneCommon::kFrameWidth);
}

} // namespace

struct ShownModule::Rimmed
{
    explicit Rimmed(Copy changed) : copy(std::move(changed)), shown(*copy.module) {}

    Copy copy;
    ShownModule shown;
};

ShownModule::ShownModule(MO_Module& module) : _module(module), _source(pictureSourceOf(module))
{
    if (_source.kind == RenderedKind::NORMALS)
        _otherBlue = std::ranges::any_of(_source.nodes,
                                         [](MO_Module* node) { return !NormalMapNode(*node).hasElevationInBlue(); });
}

ShownModule::~ShownModule() = default;

UT_Result<ShownFrame> ShownModule::render(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                          const RD_SoftRenderer::Progress& progress, RD_KeptInputs* kept) const
{
    ShownFrame made;
    made.kind = _source.kind;
    made.window = RD_RenderJob(parameters).frame();
    const bool twice = _otherBlue && wanted.elevation && wanted.channels;
    const double firstEnds = twice ? kNodeEnds / 2.0 : kNodeEnds;
    const RD_RenderParameters used = usedFor(parameters, wanted);
    const ObjectTilts tilts = made.kind == RenderedKind::NORMALS ? ObjectTilts(_source.nodes, frame) : ObjectTilts();
    const ObjectRims rims(_source.nodes, frame);
    const bool changesObjects = tilts.any() || rims.any();
    const bool repairs = !wanted.channels && isFloat(used) && made.kind == RenderedKind::NORMALS;
    auto picture = renderNode(frame, used, {.elevationInBlue = wanted.elevation, .closedSeams = repairs},
                              part(progress, 0.0, firstEnds), wanted.channels ? nullptr : kept);
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
    // Correcting a float picture needs the coverage of the drawing.
    if (made.kind == RenderedKind::COLOURS) {
        made.drawing = wanted.drawing ? made.picture : nullptr;
    } else if (wanted.drawing || repairs || changesObjects) {
        const auto rest = part(progress, kNodeEnds, 1.0);
        const bool isNoted = wanted.inputs || wanted.objects || changesObjects;
        const bool isKnown = wanted.knownDrawing && !wanted.drawing && !isNoted;
        auto painted = isKnown   ? UT_Result<UT_SharedPtr<CEL_PixmapArea>>(wanted.knownDrawing)
                       : isNoted ? paintAndNote(frame, parameters, wanted, made, rest)
                                 : renderModule(*drawing()->module, frame, parameters, rest);
        if (!painted)
            return painted.error();
        if (repairs)
            takeCoverage(dynamic_cast<CEL_PixmapAreaRGBAFloat&>(*made.picture), **painted);
        made.drawing = wanted.drawing ? *painted : nullptr;
        if (rims.any())
            if (UT_Result<void> added = addRims(rims, frame, parameters, wanted, progress, made); !added)
                return added.error();
        tilts.apply(*made.picture, made.inputs);
        if (made.channels && made.channels != made.picture)
            tilts.apply(*made.channels, made.inputs);
    }
    return made;
}

RD_RenderParameters ShownModule::usedFor(const RD_RenderParameters& parameters, const ShownParts& wanted) const
{
    RD_RenderParameters used = parameters;
    if (_source.kind == RenderedKind::NORMALS && !wanted.channels && needsFloat(_source.nodes, parameters))
        used.imageProcessingFormat = RD_RenderParameters::IMAGE_PROCESSING_FLOAT;
    return used;
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::renderChannels(double frame, const RD_RenderParameters& parameters,
                                                                    const RD_SoftRenderer::Progress& progress) const
{
    return renderNode(frame, parameters, {}, progress);
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::renderDrawing(double frame, const RD_RenderParameters& parameters,
                                                                   const RD_SoftRenderer::Progress& progress) const
{
    if (_source.kind == RenderedKind::COLOURS)
        return renderNode(frame, parameters, {}, progress);
    return renderModule(*drawing()->module, frame, parameters, progress);
}

UT_Result<void> ShownModule::addRims(const ObjectRims& rims, double frame, const RD_RenderParameters& parameters,
                                     const ShownParts& wanted, const RD_SoftRenderer::Progress& progress,
                                     ShownFrame& made) const
{
    const std::shared_ptr<const Rimmed> copy = rimmed(rims);
    const ShownModule& shown = copy->shown;
    const RD_RenderParameters used = shown.usedFor(parameters, {});
    const bool repairs = isFloat(used) && made.kind == RenderedKind::NORMALS;
    const auto picture =
        shown.renderNode(frame, used, {.elevationInBlue = true, .closedSeams = repairs}, part(progress, 1.0, 1.0));
    if (!picture)
        return picture.error();
    rims.addTo(*made.picture, **picture, made.inputs, wanted.elevation);
    if (made.channels && made.channels != made.picture)
        rims.addTo(*made.channels, **picture, made.inputs, false);
    noteRises(frame, rims, made);
    return {};
}

std::shared_ptr<const ShownModule::Rimmed> ShownModule::rimmed(const ObjectRims& rims) const
{
    const std::scoped_lock lock(_mutex);
    // Rims that are animated have other values at every frame.
    constexpr std::size_t kMost = 8;
    if (_rimmed.size() > kMost)
        _rimmed.clear();
    std::shared_ptr<const Rimmed>& known = _rimmed[rims.tables()];
    if (known)
        return known;
    Copy made = copy();
    for (MO_Module* const module : pictureSourceOf(*made.module).nodes)
        if (const auto table = rims.tables().find(module->instanceName()); table != rims.tables().end())
            NormalMapNode(*module).setObjects(table->second);
    return known = std::make_shared<const Rimmed>(std::move(made));
}

void ShownModule::noteRises(double frame, const ObjectRims& rims, ShownFrame& made) const
{
    for (MO_Module* const node : _source.nodes) {
        std::map<int, double> rises = NormalMapNode(*node).rises(frame);
        rims.addRises(node->instanceName(), rises);
        made.objects.setRises(node->instanceName(), rises, made.window.width() / MO_SceneCommon::kFrameWidth);
    }
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::renderNode(double frame, const RD_RenderParameters& parameters,
                                                                const Change& wanted,
                                                                const RD_SoftRenderer::Progress& progress,
                                                                RD_KeptInputs* kept) const
{
    RD_RenderParameters wide = parameters;
    wide.margins = marginsFor(_source.nodes, frame, parameters);
    const RD_RenderJob job(wide);
    Change change = wanted;
    change.elevationInBlue = wanted.elevationInBlue && _otherBlue;
    change.canvasFactor = canvasFactor(job.canvas());
    change.frameFactor = canvasFactor(job.frame());
    const std::shared_ptr<const Copy> copy = changed(change);
    auto picture = renderModule(copy ? *copy->module : _module, frame, wide, progress, kept);
    if (picture && !wide.margins.isEmpty())
        (*picture)->realloc((*picture)->allocatedRect().getIntersection(job.frame()), true);
    return picture;
}

std::shared_ptr<const ShownModule::Copy> ShownModule::changed(const Change& change) const
{
    if (!change.elevationInBlue && !change.closedSeams && change.canvasFactor == change.frameFactor)
        return nullptr;
    const std::scoped_lock lock(_mutex);
    // The margins of frames are multiples of 32 pixels, so more different copies are rare.
    constexpr std::size_t kMost = 16;
    if (_changed.size() > kMost)
        _changed.clear();
    std::shared_ptr<const Copy>& known = _changed[change];
    if (known)
        return known;
    Copy made = copy();
    for (MO_Module* const module : pictureSourceOf(*made.module).nodes) {
        const NormalMapNode node(*module);
        if (change.elevationInBlue)
            node.putElevationInBlue();
        if (change.closedSeams)
            closeSeams(*module);
        if (change.canvasFactor != change.frameFactor)
            node.scaleElevations(static_cast<double>(change.frameFactor) / static_cast<double>(change.canvasFactor));
    }
    return known = std::make_shared<const Copy>(std::move(made));
}

// All stand-ins of the copy record into one list, so frames are painted one at a time.
UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::paintAndNote(double frame, const RD_RenderParameters& parameters,
                                                                  const ShownParts& wanted, ShownFrame& made,
                                                                  const RD_SoftRenderer::Progress& progress) const
{
    const std::scoped_lock lock(_notingMutex);
    if (!_noting.module) {
        _noting = copy();
        _noting.module = &showDrawings(*_noting.scene, *_noting.module, &_noted);
    }
    _noted = {.inputs = {}, .wantsObjects = wanted.objects, .objects = {}};
    auto painted = renderModule(*_noting.module, frame, parameters, progress);
    DrawingNotes notes = std::exchange(_noted, {});
    made.inputs = std::move(notes.inputs);
    made.objects = std::move(notes.objects);
    noteRises(frame, {}, made);
    return painted;
}

std::shared_ptr<const ShownModule::Copy> ShownModule::drawing() const
{
    const std::scoped_lock lock(_mutex);
    if (_drawing)
        return _drawing;
    Copy made = copy();
    made.module = &showDrawings(*made.scene, *made.module);
    return _drawing = std::make_shared<const Copy>(std::move(made));
}

ShownModule::Copy ShownModule::copy() const
{
    Copy made;
    made.scene = MO_copyScene(dynamic_cast<const MO_Scene&>(*_module.sceneCommon()));
    made.module = made.scene->findModule(_module.instanceName());
    return made;
}
