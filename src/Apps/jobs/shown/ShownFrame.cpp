// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Renders each part of a frame from the scene, or from the copy that the part needs.
#include "jobs/shown/ShownFrame.h"

#include "QuarvelSceneCore/rendering/RD_RenderShown.h"
#include "jobs/shown/FrameMargin.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/ObjectRims.h"
#include "jobs/shown/ObjectTilts.h"
#include "jobs/shown/RenderPrecision.h"
#include "jobs/shown/SurfaceLines.h"
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

// With a margin in which strokes that leave the frame go on.
RD_RenderParameters beyondTheFrame(const RD_RenderParameters& parameters)
{
    constexpr int kBeyond = 32;
    RD_RenderParameters wide = parameters;
    const auto [width, height] = parameters.resolution;
    if (std::max(width, height) + 2 * kBeyond <= RD_RenderParameters::kMaxResolution)
        wide.margins = {kBeyond, kBeyond, kBeyond, kBeyond};
    return wide;
}

void noteRises(const SurfaceRises& rises, ShownFrame& made)
{
    for (const auto& [node, ofObjects] : rises)
        made.objects.setRises(node, ofObjects, 1.0);
}

} // namespace

struct ShownModule::ObjectChanges
{
    ObjectRims rims;
    std::vector<SurfaceLine> lines;
    ObjectTilts tilts;

    bool any() const { return rims.any() || !lines.empty() || tilts.any(); }
};

struct ShownModule::Rimmed
{
    explicit Rimmed(SceneCopy changed) : copy(std::move(changed)), shown(*copy.module) {}

    SceneCopy copy;
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
    if (UT_Result<void> done = addPicture(frame, parameters, wanted, progress, kept, made); !done)
        return done.error();
    if (UT_Result<void> done = addDrawing(frame, parameters, wanted, progress, made); !done)
        return done.error();
    return made;
}

UT_Result<void> ShownModule::addPicture(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                        const RD_SoftRenderer::Progress& progress, RD_KeptInputs* kept,
                                        ShownFrame& made) const
{
    const RD_RenderParameters used = usedFor(parameters, wanted);
    const bool repairs = !wanted.channels && made.kind == RenderedKind::NORMALS && isFloat(used);
    const bool twice = _otherBlue && wanted.elevation && wanted.channels;
    const double firstEnds = twice ? kNodeEnds / 2.0 : kNodeEnds;
    auto picture = renderNode(frame, used, {.elevationInBlue = wanted.elevation, .closedSeams = repairs},
                              part(progress, 0.0, firstEnds), wanted.channels ? nullptr : kept);
    if (!picture)
        return picture.error();
    made.picture = *picture;
    if (!wanted.channels)
        return {};
    if (!twice) {
        made.channels = made.picture;
        return {};
    }
    auto channels = renderChannels(frame, parameters, part(progress, firstEnds, kNodeEnds));
    if (!channels)
        return channels.error();
    made.channels = *channels;
    return {};
}

UT_Result<void> ShownModule::addDrawing(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                        const RD_SoftRenderer::Progress& progress, ShownFrame& made) const
{
    if (made.kind == RenderedKind::COLOURS) {
        made.drawing = wanted.drawing ? made.picture : nullptr;
        return {};
    }
    const ObjectChanges changes = objectChanges(frame);
    // Correcting a float picture needs the coverage of the drawing.
    const bool repairs = !wanted.channels && made.kind == RenderedKind::NORMALS;
    auto* const corrected = repairs ? dynamic_cast<CEL_PixmapAreaRGBAFloat*>(made.picture.get()) : nullptr;
    if (!wanted.drawing && !corrected && !changes.any())
        return {};
    const bool notes = wanted.inputs || wanted.objects || changes.any();
    const bool isKnown = wanted.knownDrawing && (wanted.knownInputs || !changes.any()) && !wanted.drawing &&
                         !wanted.inputs && !wanted.objects;
    const auto rest = part(progress, kNodeEnds, 1.0);
    if (corrected && !wanted.drawing && !notes && !isKnown)
        if (const UT_Result<bool> done = takeCoverageAlone(*corrected, frame, parameters, rest); !done || *done)
            return done ? UT_Result<void>() : done.error();
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> painted = wanted.knownDrawing;
    if (!isKnown)
        painted = notes ? paintAndNote(frame, parameters, wanted, made, rest) : paint(frame, parameters, rest);
    if (!painted)
        return painted.error();
    if (corrected)
        takeCoverage(*corrected, **painted);
    made.drawing = wanted.drawing ? *painted : nullptr;
    if (!changes.any())
        return {};
    const ShownInputs& inputs = isKnown && wanted.knownInputs ? *wanted.knownInputs : made.inputs;
    return change(changes, inputs, frame, parameters, wanted, progress, made);
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
    return paint(frame, parameters, progress);
}

ShownModule::ObjectChanges ShownModule::objectChanges(double frame) const
{
    const bool hasNormals = _source.kind == RenderedKind::NORMALS;
    return {ObjectRims(_source.nodes, frame), surfaceLinesOf(_source.nodes, frame),
            hasNormals ? ObjectTilts(_source.nodes, frame) : ObjectTilts()};
}

UT_Result<void> ShownModule::change(const ObjectChanges& changes, const ShownInputs& inputs, double frame,
                                    const RD_RenderParameters& parameters, const ShownParts& wanted,
                                    const RD_SoftRenderer::Progress& progress, ShownFrame& made) const
{
    const auto rest = part(progress, 1.0, 1.0);
    const auto forPictures = [&](const auto& apply) {
        apply(*made.picture, wanted.elevation);
        if (made.channels && made.channels != made.picture)
            apply(*made.channels, false);
    };
    SurfaceRises rises = risesOf(frame, changes.rims, made.window.width());
    if (changes.rims.any()) {
        const auto rims = renderRims(changes.rims, frame, parameters, rest);
        if (!rims)
            return rims.error();
        forPictures([&](CEL_PixmapArea& picture, bool elevationInBlue) {
            changes.rims.addTo(picture, **rims, inputs, elevationInBlue);
        });
    }
    if (!changes.lines.empty()) {
        std::vector<SurfaceLine> lines = changes.lines;
        for (SurfaceLine& line : lines) {
            const RD_RenderParameters wide = beyondTheFrame(parameters);
            const CopyResult copy = showing(line);
            if (!copy)
                return copy.error();
            const auto strokes = renderModule(*(*copy)->module, frame, wide, rest);
            if (!strokes)
                return strokes.error();
            line.strokes = StrokeRelief(**strokes, RD_RenderJob(wide).canvas());
        }
        const SurfaceRises before = rises;
        forPictures([&](CEL_PixmapArea& picture, bool elevationInBlue) {
            SurfaceRises widened = before;
            addSurfaceLines(picture, lines, _source.nodes, inputs, elevationInBlue, widened);
            if (&picture == made.picture.get())
                rises = widened;
        });
    }
    forPictures([&](CEL_PixmapArea& picture, bool) { changes.tilts.apply(picture, inputs); });
    noteRises(rises, made);
    return {};
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::renderRims(const ObjectRims& rims, double frame,
                                                                const RD_RenderParameters& parameters,
                                                                const RD_SoftRenderer::Progress& progress) const
{
    const auto copy = rimmed(rims);
    if (!copy)
        return copy.error();
    const ShownModule& shown = (*copy)->shown;
    const RD_RenderParameters used = shown.usedFor(parameters, {});
    const bool repairs = isFloat(used) && _source.kind == RenderedKind::NORMALS;
    return shown.renderNode(frame, used, {.elevationInBlue = true, .closedSeams = repairs}, progress);
}

UT_Result<std::shared_ptr<const ShownModule::Rimmed>> ShownModule::rimmed(const ObjectRims& rims) const
{
    return _rimmed.of(rims.tables(), [&] {
        UT_Result<SceneCopy> made = copySceneOf(_module);
        if (!made)
            return made;
        for (MO_Module* const module : pictureSourceOf(*made->module).nodes)
            if (const auto table = rims.tables().find(module->instanceName()); table != rims.tables().end())
                NormalMapNode(*module).setObjects(table->second);
        return made;
    });
}

ShownModule::CopyResult ShownModule::showing(const SurfaceLine& line) const
{
    return _lines.of({line.node, line.port}, [&] {
        UT_Result<SceneCopy> made = copySceneOf(_module);
        if (!made)
            return made;
        showOnly(*made->scene, line);
        made->module = &showDrawings(*made->scene, *made->module);
        return made;
    });
}

SurfaceRises ShownModule::risesOf(double frame, const ObjectRims& rims, int width) const
{
    SurfaceRises all;
    for (MO_Module* const node : _source.nodes) {
        std::map<int, double>& rises = all[node->instanceName()];
        rises = NormalMapNode(*node).rises(frame);
        rims.addRises(node->instanceName(), rises);
        for (auto& [number, rise] : rises)
            rise *= width / MO_SceneCommon::kFrameWidth;
    }
    return all;
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
    const CopyResult copy = changed(change);
    if (!copy)
        return copy.error();
    MO_Module& module = *copy ? *(*copy)->module : _module;
    if (wide.margins.isEmpty())
        return renderModule(module, frame, wide, progress, kept);
    const UT_Result<CA_CelRef> cel = RD_renderShown(module, frame, wide, job.frame(), progress, kept);
    if (!cel)
        return cel.error();
    const UT_SharedPtr<CEL_PixmapArea> picture = (*cel)->pixmap();
    picture->realloc(picture->allocatedRect().getIntersection(job.frame()), true);
    return picture;
}

ShownModule::CopyResult ShownModule::changed(const Change& change) const
{
    if (!change.elevationInBlue && !change.closedSeams && change.canvasFactor == change.frameFactor)
        return std::shared_ptr<const SceneCopy>();
    return _changed.of(change, [&] {
        UT_Result<SceneCopy> made = copySceneOf(_module);
        if (!made)
            return made;
        for (MO_Module* const module : pictureSourceOf(*made->module).nodes) {
            const NormalMapNode node(*module);
            if (change.elevationInBlue)
                node.putElevationInBlue();
            if (change.closedSeams)
                closeSeams(*module);
            if (change.canvasFactor != change.frameFactor)
                node.scaleElevations(static_cast<double>(change.frameFactor) /
                                     static_cast<double>(change.canvasFactor));
        }
        return made;
    });
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::paint(double frame, const RD_RenderParameters& parameters,
                                                           const RD_SoftRenderer::Progress& progress) const
{
    const CopyResult copy = drawing();
    if (!copy)
        return copy.error();
    return renderModule(*(*copy)->module, frame, parameters, progress);
}

// All stand-ins of the copy record into one list, so frames are painted one at a time.
UT_Result<UT_SharedPtr<CEL_PixmapArea>> ShownModule::paintAndNote(double frame, const RD_RenderParameters& parameters,
                                                                  const ShownParts& wanted, ShownFrame& made,
                                                                  const RD_SoftRenderer::Progress& progress) const
{
    const std::scoped_lock lock(_notingMutex);
    if (!_noting.module) {
        UT_Result<SceneCopy> copy = copySceneOf(_module);
        if (!copy)
            return copy.error();
        _noting = std::move(*copy);
        _noting.module = &showDrawings(*_noting.scene, *_noting.module, &_noted);
    }
    _noted = {.inputs = {}, .wantsObjects = wanted.objects, .objects = {}};
    auto painted = renderModule(*_noting.module, frame, parameters, progress);
    DrawingNotes notes = std::exchange(_noted, {});
    made.inputs = std::move(notes.inputs);
    made.objects = std::move(notes.objects);
    noteRises(risesOf(frame, {}, made.window.width()), made);
    return painted;
}

ShownModule::CopyResult ShownModule::drawing() const
{
    return _drawing.of({}, [&] {
        UT_Result<SceneCopy> made = copySceneOf(_module);
        if (made)
            made->module = &showDrawings(*made->scene, *made->module);
        return made;
    });
}

ShownModule::CopyResult ShownModule::coverage() const
{
    return _coverage.of({}, [&] {
        UT_Result<SceneCopy> made = copySceneOf(_module);
        if (made)
            made->module = showCoverage(*made->scene, *made->module);
        return made;
    });
}

// Modules that join pictures pass no coverage on, and the graph is the same at every frame.
UT_Result<bool> ShownModule::takeCoverageAlone(CEL_PixmapAreaRGBAFloat& picture, double frame,
                                               const RD_RenderParameters& parameters,
                                               const RD_SoftRenderer::Progress& progress) const
{
    if (isFloat(parameters) || !_passesCoverage)
        return false;
    const CopyResult copy = coverage();
    if (!copy)
        return copy.error();
    MO_Module* const module = (*copy)->module;
    if (!module) {
        _passesCoverage = false;
        return false;
    }
    const UT_Result<CA_CelRef> rendered = RD_SoftRenderer::render(*module, frame, parameters, progress);
    if (!rendered)
        return rendered.error();
    const auto painted = coverageOf(**rendered);
    if (!painted) {
        _passesCoverage = false;
        return false;
    }
    takeCoverage(picture, *painted);
    return true;
}
