// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Builds a scene with one drawing and renders its only frame.
#include "jobs/drawing/NormalMapJob.h"

#include "jobs/limits/JobLimits.h"
#include "jobs/shown/ShownMemory.h"

namespace {

UT_Result<void> checkSize(const RD_RenderParameters& parameters)
{
    const auto [width, height] = parameters.resolution;
    if (width > RD_RenderParameters::kMaxResolution || height > RD_RenderParameters::kMaxResolution)
        return UT_Error{
            QStringLiteral("a picture of %1 x %2 pixels is too large; at most %3 on either side are possible")
                .arg(width)
                .arg(height)
                .arg(RD_RenderParameters::kMaxResolution),
            UT_ErrorKind::REFUSED};
    return {};
}

UT_Result<void> checkMemory(const RD_RenderParameters& parameters, double needed, int atOnce)
{
    const double present = jobLimits().memory / atOnce;
    if (needed <= present)
        return {};
    return tooLarge(QStringLiteral("a picture"), parameters.resolution, needed, present);
}

} // namespace

UT_Result<ShownFrame> renderNormalMap(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const ShownParts& wanted, const JobProgress& progress, int atOnce)
{
    const RD_RenderParameters parameters{settings.renderInFloat ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                                                : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                                         pictureSize(drawing.size, settings)};
    if (UT_Result<void> possible = checkSize(parameters); !possible)
        return possible.error();
    const UT_Result<DrawingScene> scene = DrawingScene::build(drawing, settings);
    if (!scene)
        return scene.error();
    const ShownModule shown(scene->normalMap());
    const int frame = scene->scene().firstFrame();
    const double needed = shownFrameBytes(shown, std::span(&frame, 1), parameters, wanted);
    if (UT_Result<void> fits = checkMemory(parameters, needed, atOnce); !fits)
        return fits.error();
    return shown.render(frame, parameters, wanted, progress);
}
