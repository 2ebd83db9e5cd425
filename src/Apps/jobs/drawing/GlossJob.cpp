// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing's own scene, with other colours.
#include "jobs/drawing/GlossJob.h"

UT_Result<RenderedGloss> renderGloss(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                     const GlossSettings& gloss)
{
    const UT_Result<DrawingScene> scene = DrawingScene::build(drawing, settings);
    if (!scene)
        return scene.error();
    RenderedGloss rendered;
    rendered.missing = paintGloss(scene->scene(), gloss);
    const RD_RenderParameters parameters{settings.renderInFloat ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                                                : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                                         scene->resolution()};
    auto picture = ShownModule(scene->normalMap()).renderDrawing(scene->scene().firstFrame(), parameters);
    if (!picture)
        return picture.error();
    rendered.picture = std::move(*picture);
    return rendered;
}
