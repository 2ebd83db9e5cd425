// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints a drawing a second time, in greys, and merges the greys and the object's level into its coverage.
#include "node/ObjectAlgoRenderStage.h"

#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "render/LevelMerge.h"
#include "render/PixelTraits.h"

VallorinRequestHandler::ObjectAlgoRenderStage::ObjectAlgoRenderStage(double frame, std::int32_t objectId,
                                                                     bool scaleByCoverage, double objectLevel,
                                                                     std::shared_ptr<const ObjectColours> colours)
    : _frame(frame)
    , _objectId(objectId)
    , _scaleByCoverage(scaleByCoverage)
    , _objectLevel(objectLevel)
    , _colours(std::move(colours))
{}

VallorinRequestHandler::ObjectAlgoRenderStage::~ObjectAlgoRenderStage() = default;

void VallorinRequestHandler::ObjectAlgoRenderStage::render(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args,
                                                           CEL_PixmapArea& target) const
{
    const UT_SharedPtr<CEL_PixmapArea> source = CEL_PixmapFactory::create2d(target.format(), args.size, args.canvas);
    if (!source)
        return;
    greysOf(drawing)->render(args, *source);

    CEL_withFormat(target, [&](auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        mergeLevel<Pixel>(typed, *CEL_asFormat<Pixel>(*source), VolumeTraits<Pixel>::levelOf(_objectLevel),
                          _scaleByCoverage);
    });
}

bool VallorinRequestHandler::ObjectAlgoRenderStage::paint(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args,
                                                          CEL_PixmapArea& target) const
{
    const std::unique_ptr<CELVEC_AlphaPlane> alpha = drawing.primary()->sharedAlpha(args, *greysOf(drawing));
    if (!alpha)
        return false;
    CEL_withFormat(target, [&](auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        placeLevel<Pixel>(*alpha, VolumeTraits<Pixel>::levelOf(_objectLevel), _scaleByCoverage, typed);
    });
    return true;
}

UT_SharedPtr<CELVEC_Kvd> VallorinRequestHandler::ObjectAlgoRenderStage::greysOf(const MultiStageKvd& drawing) const
{
    UT_SharedPtr<CELVEC_Kvd> greys = drawing.primary()->shareForRendering();
    greys->setArtSelector(GR_ArtSelector());
    greys->setColorTransform(_colours->greys());
    return greys;
}
