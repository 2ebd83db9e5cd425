// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node comes first, then the frames, then the files: each is needed to judge the next.
#include "RenderPlan.h"

#include "FormatLosses.h"
#include "FrameFileNames.h"
#include "GlossOption.h"
#include "InputAdvice.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "SurfacePlan.h"
#include "jobs/frames/FilmFile.h"
#include "jobs/frames/FrameRange.h"
#include "jobs/frames/RenderMemory.h"
#include "jobs/frames/RenderPage.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/scene/DescribeScene.h"
#include "jobs/shown/ShownMemory.h"
#include "jobs/targets/Targets.h"
#include "jobs/text/NameList.h"

#include <QDir>

namespace {

QString namesOf(const MO_Scene& scene)
{
    return namesForPeople(moduleNames(scene));
}

UT_Result<MO_Module*> moduleOf(const MO_Scene& scene, const RenderOptions& options)
{
    if (!options.node.isEmpty()) {
        if (MO_Module* const module = scene.findModule(options.node))
            return module;
        return UT_Error{QStringLiteral("there is no node \"%1\"; there is %2").arg(options.node, namesOf(scene))};
    }
    if (MO_Module* const module = scene.outputModule())
        return module;
    return UT_Error{QStringLiteral("the scene has no display; name a node with --node, one of %1").arg(namesOf(scene))};
}

UT_Result<std::vector<int>> framesOf(const MO_Scene& scene, const RenderOptions& options, Report& report)
{
    const int first = scene.firstFrame();
    const int last = scene.lastFrame();
    const auto range = options.frames.isEmpty() ? FrameRange::all(first, last) : FrameRange::parse(options.frames);
    if (!range)
        return range.error();
    const auto list = range->within(first, last);
    if (!list)
        return withAdvice(list.error(), QStringLiteral(" with --frames"));
    const QString scenes = QStringLiteral("the scene's frames are %1 to %2").arg(first).arg(last);
    if (list->frames.empty())
        return UT_Error{QStringLiteral("there is nothing to render: %1").arg(scenes)};
    if (list->outside > 0)
        report.warning(options.scene,
                       QStringLiteral("%1 of the frames are left out; %2").arg(list->outside).arg(scenes));
    return shardOf(list->frames, options.shard.first, options.shard.second);
}

UT_Result<void> nameFiles(const RenderOptions& options, RenderFramesSettings& settings)
{
    if (!options.output.isEmpty()) {
        const auto file = frameFileOf(options.output, options, settings.frames.size());
        if (!file)
            return file.error();
        settings.file = *file;
    }
    if (auto page = options.page.isEmpty() ? UT_Result<void>() : LitPageFile::check(options.page); !page)
        return page;
    return options.preview.isEmpty() ? UT_Result<void>() : FilmFile::check(options.preview);
}

// The form where neither an option nor a target decides.
NM_MapForm usualForm(const FramePictureSettings& picture)
{
    if (isIntegerMap(picture))
        return kFormForMost;
    // A map as the default layer of an OpenEXR file is opaque, as programs that show it expect.
    const bool isMap = picture.floatFile && picture.exr != ExrContent::LAYERS;
    return {.alpha = isMap ? NM_Alpha::FULL : NM_Alpha::COVERAGE};
}

FramePictureSettings pictureSettings(const RenderOptions& options, const RenderPlan& plan)
{
    FramePictureSettings picture;
    picture.source = plan.shown->kind();
    picture.shown = options.shown.value_or(plan.shown->kind());
    picture.layout = options.layout;
    picture.floatFile = IIO_isFloatFile(options.output);
    picture.exr = options.form.exr;
    picture.objectNumbers = options.form.objectNumbers;
    picture.form = formInFile(options.form.resolved(usualForm(picture)), options.output);
    picture.half = options.form.half;
    picture.scene = QDir(QDir(options.scene).absolutePath()).dirName();
    picture.node = plan.shown->module().instanceName();
    picture.elevation = needsElevationInBlue(picture);
    picture.floatRender =
        plan.shown->usedFor(plan.settings.parameters, partsOf(picture)).celFormat() == CEL_FORMAT_RGBAFLOAT;
    return picture;
}

// The same frames in the same size, in other files; without a name they are not wanted.
UT_Result<RenderFramesSettings> inFiles(const QString& output, const RenderOptions& options, const RenderPlan& plan)
{
    RenderFramesSettings settings = plan.settings;
    if (output.isEmpty())
        return settings;
    const auto file = frameFileOf(output, options, settings.frames.size());
    if (!file)
        return file.error();
    settings.file = *file;
    return settings;
}

UT_Result<RenderFramesSettings> litSettings(const RenderOptions& options, const RenderPlan& plan)
{
    UT_Result<RenderFramesSettings> lit = inFiles(options.lit, options, plan);
    if (!lit || options.lit.isEmpty())
        return lit;
    if (IIO_isFloatFile(options.lit))
        return UT_Error{QStringLiteral("--lit writes pictures for the eye; name a .png file, not %1").arg(options.lit)};
    lit->content = FrameContent::LIT;
    lit->picture = litPictureSettings(plan.settings.picture);
    // The map's own padding is not the picture's.
    lit->picture.form.pad = options.form.resolved({}).pad;
    if (options.light) {
        lit->lighting = lightingOf(*options.light);
        lit->lightNote = QStringLiteral("%1, %2").arg(options.light->azimuth).arg(options.light->height);
    }
    return lit;
}

UT_Result<RenderFramesSettings> drawingSettings(const RenderOptions& options, const RenderPlan& plan)
{
    UT_Result<RenderFramesSettings> drawing = inFiles(options.drawing, options, plan);
    if (!drawing || options.drawing.isEmpty())
        return drawing;
    drawing->content = FrameContent::DRAWING;
    drawing->picture = drawingPictureSettings(plan.settings.picture, options.drawing);
    return drawing;
}

UT_Result<void> warnOfMissingColours(const MO_Scene& scene, const RenderOptions& options, Report& report)
{
    if (!options.gloss.isAny())
        return {};
    const auto copy = MO_copyScene(scene);
    if (!copy)
        return copy.error();
    if (const QString warning = glossWarning(paintGloss(**copy, options.gloss)); !warning.isEmpty())
        report.warning(options.scene, warning);
    return {};
}

// The parts of a frame that any of the runs needs. One run follows another, so each takes at most the memory for these.
ShownParts partsOfAll(const RenderOptions& options, const RenderPlan& plan)
{
    ShownParts all = partsOf(plan.settings);
    const auto add = [&all](const ShownParts& parts) {
        all.elevation = all.elevation || parts.elevation;
        all.drawing = all.drawing || parts.drawing;
        all.channels = all.channels || parts.channels;
        all.objects = all.objects || parts.objects;
    };
    if (!options.lit.isEmpty())
        add(partsOf(plan.lit));
    if (!options.drawing.isEmpty())
        add(partsOf(plan.drawing));
    for (const auto& [output, surface] : plan.surfaces)
        add(partsOf(surface));
    all.drawing = all.drawing || !options.page.isEmpty();
    return all;
}

UT_Result<void> chooseAtOnce(const RenderOptions& options, RenderPlan& plan)
{
    const RenderFramesSettings& settings = plan.settings;
    const JobLimits limits = jobLimits();
    const double needed = shownFrameBytes(*plan.shown, settings.frames, settings.parameters, partsOfAll(options, plan));
    const UT_Result<int> atOnce =
        framesAtOnce(options.jobs > 0 ? options.jobs : limits.threads, settings.parameters, needed,
                     options.memory > 0.0 ? options.memory : limits.memoryForFrames());
    if (!atOnce)
        return withAdvice(atOnce.error(), QStringLiteral(", or allow more with --memory"));
    plan.settings.atOnce = plan.lit.atOnce = plan.drawing.atOnce = *atOnce;
    for (auto& [output, surface] : plan.surfaces)
        surface.atOnce = *atOnce;
    return {};
}

void warnWhereFramesHaveNoDigest(const RenderOptions& options, Report& report)
{
    const auto format = IIO_pictureFormatOf(options.output);
    if (options.resume && format && !format->texts)
        warnOfNoDigest(options.output, QStringLiteral("renders all frames again"), report);
}

// Pictures of colours lose nothing visible in 8 bits.
void warnOfLosses(const RenderOptions& options, const RenderPlan& plan, Report& report)
{
    if (plan.settings.picture.shown != RenderedKind::COLOURS)
        warnOfEightBits(options.output, report);
}

} // namespace

bool isIntegerMap(const FramePictureSettings& picture)
{
    return !picture.floatFile && picture.shown == RenderedKind::NORMALS && picture.layout == NM_Layout::TANGENT;
}

UT_Result<RenderPlan> renderPlan(const MO_Scene& scene, const RenderOptions& options, Report& report)
{
    RenderPlan plan;
    const auto module = moduleOf(scene, options);
    if (!module)
        return module.error();
    plan.shown = std::make_unique<ShownModule>(**module);
    const auto frames = framesOf(scene, options, report);
    if (!frames)
        return frames.error();
    plan.settings.frames = *frames;
    plan.settings.parameters = {options.renderInFloat ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                                      : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                                renderResolution(options, scene.frameHeight())};
    if (const auto named = nameFiles(options, plan.settings); !named)
        return named.error();
    plan.settings.picture = pictureSettings(options, plan);
    plan.settings.resume = options.resume;
    warnWhereFramesHaveNoDigest(options, report);
    warnOfLosses(options, plan, report);
    auto lit = litSettings(options, plan);
    if (!lit)
        return lit.error();
    plan.lit = std::move(*lit);
    auto drawing = drawingSettings(options, plan);
    if (!drawing)
        return drawing.error();
    plan.drawing = std::move(*drawing);
    if (const auto planned = planSurfaces(options, plan); !planned)
        return planned.error();
    if (const auto safe = checkFrameFiles(scene, options, plan.settings.frames); !safe)
        return safe.error();
    if (const auto chosen = chooseAtOnce(options, plan); !chosen)
        return chosen.error();
    if (const auto warned = warnOfMissingColours(scene, options, report); !warned)
        return warned.error();
    if (!options.page.isEmpty() && plan.settings.picture.shown != RenderedKind::NORMALS)
        return UT_Error{QStringLiteral("--html lights normals, and the picture of \"%1\" is none; name a node with "
                                       "--node, or say --as normals")
                            .arg(plan.settings.picture.node)};
    plan.framesPerSecond = options.framesPerSecond.value_or(scene.frameRate());
    return plan;
}
