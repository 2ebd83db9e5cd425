// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each run has the settings that "quarvel render" makes of the same choices, so the files are the same.
#include "studio/export/ExportPlan.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/frames/FrameRange.h"
#include "jobs/frames/RenderMemory.h"
#include "jobs/frames/SurfaceFrames.h"
#include "jobs/frames/UsualWidth.h"
#include "jobs/import/KeptOrigins.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/shown/ShownMemory.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExportPlan)
};

UT_Result<std::vector<int>> framesOf(const MO_Scene& scene, const QString& text)
{
    const int first = scene.firstFrame();
    const int last = scene.lastFrame();
    const auto range =
        text.trimmed().isEmpty() ? UT_Result<FrameRange>(FrameRange::all(first, last)) : FrameRange::parse(text);
    if (!range)
        return range.error();
    const auto list = range->within(first, last);
    if (!list)
        return list.error();
    if (list->frames.empty())
        return UT_Error{
            Texts::tr("None of these frames is in the scene, which has the frames %1 to %2.").arg(first).arg(last)};
    return list->frames;
}

UT_Result<FrameFileName> nameOf(const QString& pattern, std::size_t frames)
{
    UT_Result<FrameFileName> file = FrameFileName::parse(pattern);
    if (file && !file->hasNumber() && frames > 1)
        return UT_Error{
            Texts::tr("%1 would be written over by every frame; write %2.")
                .arg(QFileInfo(pattern).fileName(), QFileInfo(FrameFileName::proposal(pattern)).fileName())};
    return file;
}

RD_RenderParameters parametersOf(const MO_Scene& scene, const ExportChoices& choices)
{
    return {choices.floatRender ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
            {choices.width, scene.heightInPixels(choices.width)}};
}

QStringList existing(const FrameFileName& name, const std::vector<int>& frames)
{
    QStringList there;
    for (const int frame : frames)
        if (const QString file = name.of(frame); QFileInfo::exists(file))
            there << file;
    return there;
}

// The settings of the module's own picture; those of the other pictures are derived from them.
FramePictureSettings ownPicture(const ExportChoices& choices, RenderedKind source)
{
    FramePictureSettings picture;
    picture.source = source;
    picture.shown = source;
    picture.layout = choices.layout;
    picture.form = choices.form;
    picture.floatFile = IIO_isFloatFile(choices.file);
    picture.half = choices.half;
    picture.scene = choices.sceneName;
    picture.node = choices.node;
    return picture;
}

FramePictureSettings completed(FramePictureSettings picture, const ShownModule& shown,
                               const RD_RenderParameters& parameters)
{
    picture.elevation = needsElevationInBlue(picture);
    picture.floatRender = shown.usedFor(parameters, partsOf(picture)).celFormat() == CEL_FORMAT_RGBAFLOAT;
    return picture;
}

// What goes beside maps.
void setSurface(RenderFramesSettings& run, FrameContent content, ExportPicture picture, const ExportChoices& choices)
{
    run = surfaceSettings(run, content, choices.fileOf(picture));
    run.gloss = choices.gloss;
    run.roughness = choices.target && choices.target->beside.roughness;
    if (content != FrameContent::HEIGHT)
        return;
    // 8 bits of a height are visible as steps, so only a person can ask for them, no program.
    run.picture.form.bits = choices.target ? 16 : choices.form.bits;
    run.heights.white = choices.white;
}

// The content of a run and its picture.
void setContent(RenderFramesSettings& run, ExportPicture picture, const ExportChoices& choices,
                const ShownModule& shown)
{
    const FramePictureSettings own = ownPicture(choices, shown.kind());
    const FramePictureSettings base = completed(own, shown, run.parameters);
    run.picture = base;
    switch (picture) {
    case ExportPicture::MAP:
        return;
    case ExportPicture::ELEVATION:
        run.picture = own;
        run.picture.shown = RenderedKind::ELEVATION;
        run.picture = completed(run.picture, shown, run.parameters);
        return;
    case ExportPicture::LIT:
        run.content = FrameContent::LIT;
        run.picture = litPictureSettings(base);
        return;
    case ExportPicture::DRAWING:
        if (shown.kind() == RenderedKind::COLOURS)
            return;
        run.content = FrameContent::DRAWING;
        run.picture = drawingPictureSettings(base, choices.fileOf(picture));
        return;
    case ExportPicture::HEIGHT:
        return setSurface(run, FrameContent::HEIGHT, picture, choices);
    case ExportPicture::OCCLUSION:
        return setSurface(run, FrameContent::OCCLUSION, picture, choices);
    case ExportPicture::NUMBERS:
        return setSurface(run, FrameContent::NUMBERS, picture, choices);
    case ExportPicture::GLOSS:
        return setSurface(run, FrameContent::GLOSS, picture, choices);
    }
}

} // namespace

QList<ExportPicture> exportPicturesOf(RenderedKind kind)
{
    switch (kind) {
    case RenderedKind::NORMALS:
        return {std::begin(kExportPictures), std::end(kExportPictures)};
    case RenderedKind::ELEVATION:
        return {ExportPicture::ELEVATION, ExportPicture::DRAWING, ExportPicture::HEIGHT,
                ExportPicture::OCCLUSION, ExportPicture::NUMBERS, ExportPicture::GLOSS};
    case RenderedKind::COLOURS:
        break;
    }
    return {ExportPicture::DRAWING};
}

QStringList filesToReplace(const MO_Scene& scene, const ExportChoices& choices)
{
    const auto frames = framesOf(scene, choices.frames);
    QStringList there;
    for (const QString& pattern : frames ? choices.files() : QStringList())
        if (const auto name = FrameFileName::parse(pattern))
            there << existing(*name, *frames);
    there.removeDuplicates();
    return there;
}

UT_Result<void> checkExportFiles(const MO_Scene& scene, const ExportChoices& choices)
{
    const QStringList there = filesToReplace(scene, choices);
    if (const auto origin = originAmong(scene, there))
        return UT_Error{Texts::tr("%1 is the drawing that the scene was made of, and would be lost; choose another "
                                  "name.")
                            .arg(QFileInfo(*origin).fileName())};
    // A link whose name a person chose is written through; one beside it came with the folder, and may lead to any
    // file.
    ExportChoices named = choices;
    named.pictures = choices.pictures.mid(0, 1);
    const QStringList chosen = filesToReplace(scene, named);
    for (const QString& file : there)
        if (QFileInfo(file).isSymLink() && !chosen.contains(file))
            return UT_Error{Texts::tr("%1 is a link to another file; choose another name, or remove it.")
                                .arg(QFileInfo(file).fileName())};
    return {};
}

int ownWidth(const MO_Scene& scene)
{
    struct Width
    {
        double pixels = 0.0;
        int elements = 0;
    };
    std::vector<Width> widths; // the first drawing's first
    scene.root().forEachModule([&](const MO_Module& module) {
        const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
        const double scale = element ? element->scaleX()->value(scene.firstFrame()) : 0.0;
        if (!(scale > 0.0))
            return;
        const double pixels = MO_SceneCommon::kFrameWidth / scale;
        const auto known = std::ranges::find(widths, pixels, &Width::pixels);
        (known == widths.end() ? widths.emplace_back(Width{pixels, 0}) : *known).elements += 1;
    });
    const auto most = std::ranges::max_element(widths, {}, &Width::elements);
    const double width = most == widths.end() ? 0.0 : most->pixels;
    return width >= 1.0 && width <= RD_RenderParameters::kMaxResolution ? static_cast<int>(std::lround(width))
                                                                        : kUsualWidth;
}

UT_Result<ExportPlan> ExportPlan::of(const MO_Scene& scene, const ExportChoices& choices)
{
    const auto frames = framesOf(scene, choices.frames);
    if (!frames)
        return frames.error();
    if (choices.pictures.isEmpty())
        return UT_Error{Texts::tr("Nothing is chosen to be written; choose one of the pictures.")};
    if (choices.pictures.contains(ExportPicture::GLOSS) && !choices.gloss.isAny())
        return UT_Error{Texts::tr("No colour is glossy yet; \"Colours...\" sets the gloss of each.")};
    if (const auto mayWrite = checkExportFiles(scene, choices); !mayWrite)
        return mayWrite.error();
    ExportPlan plan;
    auto copy = MO_copyScene(scene);
    if (!copy)
        return copy.error();
    plan.scene = std::move(*copy);
    MO_Module* const module = plan.scene->findModule(choices.node);
    if (!module)
        return UT_Error{Texts::tr("There is no node \"%1\" any more.").arg(choices.node)};
    plan.shown = std::make_unique<ShownModule>(*module);
    const QList<ExportPicture> known = exportPicturesOf(plan.shown->kind());
    for (const ExportPicture picture : choices.pictures) {
        if (!known.contains(picture))
            return UT_Error{
                Texts::tr("The node \"%1\" does not make all of these pictures any more.").arg(choices.node)};
        const auto file = nameOf(choices.fileOf(picture), frames->size());
        if (!file)
            return file.error();
        RenderFramesSettings run;
        run.frames = *frames;
        run.file = *file;
        run.parameters = parametersOf(scene, choices);
        setContent(run, picture, choices, *plan.shown);
        // One frame at a time leaves a processor core for the window.
        const double needed = shownFrameBytes(*plan.shown, run.frames, run.parameters, partsOf(run));
        const auto atOnce = framesAtOnce(1, run.parameters, needed, jobLimits().memoryForFrames());
        if (!atOnce)
            return atOnce.error();
        run.atOnce = *atOnce;
        plan.runs.push_back(std::move(run));
    }
    return plan;
}
