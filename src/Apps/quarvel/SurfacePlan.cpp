// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each kind of picture is a run of its own over the same frames.
#include "SurfacePlan.h"

#include "FrameFileNames.h"
#include "InputAdvice.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/frames/SurfaceFrames.h"
#include "jobs/shown/SurfacePictures.h"
#include "jobs/targets/Targets.h"

#include <utility>

namespace {

// A file of integers holds a range of heights, which must be the same for all frames.
UT_Result<NM_HeightRange> givenHeightRange(const RenderOptions& options, bool isOpen)
{
    if (isOpen && options.shard.second > 1)
        return UT_Error{QStringLiteral("say with --height-range how many pixels white is in %1, because the parts of a "
                                       "run do not know each other's heights, or write .exr, which holds heights in "
                                       "pixels")
                            .arg(options.height)};
    return NM_HeightRange{.black = 0.0, .white = options.heightRange.value_or(0.0)};
}

UT_Result<RenderFramesSettings> settingsFor(FrameContent content, const QString& output, const RenderOptions& options,
                                            const RenderPlan& plan)
{
    const auto file = frameFileOf(output, options, plan.settings.frames.size());
    if (!file)
        return file.error();
    RenderFramesSettings run = plan.settings;
    if (content == FrameContent::HEIGHT)
        run.picture.form.bits = options.form.bits.value_or(16);
    RenderFramesSettings settings = surfaceSettings(run, content, output);
    settings.file = *file;
    settings.gloss = options.gloss;
    settings.roughness = options.form.target && options.form.target->beside.roughness;
    return settings;
}

} // namespace

UT_Result<void> planSurfaces(const RenderOptions& options, RenderPlan& plan)
{
    const std::pair<const QString&, FrameContent> wanted[] = {{options.height, FrameContent::HEIGHT},
                                                              {options.occlusion, FrameContent::OCCLUSION},
                                                              {options.numbers, FrameContent::NUMBERS},
                                                              {options.glossFile, FrameContent::GLOSS}};
    if (auto exact = options.numbers.isEmpty() ? UT_Result<void>() : checkNumbersFile(options.numbers); !exact)
        return exact;
    plan.findsHeights = !options.height.isEmpty() && !options.heightRange && !IIO_isFloatFile(options.height);
    const auto range = givenHeightRange(options, plan.findsHeights);
    if (!range)
        return range.error();
    for (const auto& [output, content] : wanted) {
        if (output.isEmpty())
            continue;
        const bool needsHeights = content == FrameContent::HEIGHT || content == FrameContent::OCCLUSION;
        if (const auto has = checkHasHeights(plan.shown->kind()); needsHeights && !has)
            return withAdvice(has.error(), QStringLiteral(" with --node"));
        UT_Result<RenderFramesSettings> settings = settingsFor(content, output, options, plan);
        if (!settings)
            return settings.error();
        if (content == FrameContent::HEIGHT)
            settings->heights = *range;
        plan.surfaces.emplace_back(output, std::move(*settings));
    }
    return {};
}
