// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing that is rasterised in stages.
#include "MultiStageKvd/MultiStageKvd.h"

#include "QuarvelCelCore/CELVEC_SeamClosing.h"

MultiStageKvd::RenderingStage::~RenderingStage() = default;

bool MultiStageKvd::RenderingStage::paint(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea&) const
{
    return false;
}

UT_SharedPtr<MultiStageKvd> MultiStageKvd::embed(UT_SharedPtr<CELVEC_Kvd> primary)
{
    return UT_SharedPtr<MultiStageKvd>(new MultiStageKvd(std::move(primary)));
}

MultiStageKvd::MultiStageKvd(UT_SharedPtr<CELVEC_Kvd> primary)
    : CELVEC_Kvd(primary->palette()), _primary(std::move(primary))
{}

MultiStageKvd::MultiStageKvd(const MultiStageKvd& other)
    : CELVEC_Kvd(other), _primary(other._primary->shareForRendering()), _stages(other._stages)
{}

MultiStageKvd::~MultiStageKvd() = default;

void MultiStageKvd::addStage(UT_SharedPtr<RenderingStage> stage)
{
    _stages.push_back(std::move(stage));
}

std::span<const CELVEC_Shape> MultiStageKvd::shapes(GR_Art art) const
{
    return _primary->shapes(art);
}

UT_SharedPtr<CELVEC_Kvd> MultiStageKvd::shareForRendering() const
{
    return UT_SharedPtr<CELVEC_Kvd>(new MultiStageKvd(*this));
}

void MultiStageKvd::render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const
{
    // Seams are closed once, in the finished pixels.
    CELVEC_RenderArgs open = args;
    open.closesSeams = false;
    std::span<const UT_SharedPtr<RenderingStage>> stages = _stages;
    if (!stages.empty() && stages.front()->paint(*this, open, target))
        stages = stages.subspan(1);
    else
        _primary->render(open, target);
    for (const UT_SharedPtr<RenderingStage>& stage : stages)
        stage->render(*this, open, target);
    if (args.closesSeams)
        CELVEC_closeSeams(target);
}

void MultiStageKvd::addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const
{
    addRenderedCoverage(args, step, coverage);
}

std::optional<Math::Box2di> MultiStageKvd::renderedRect(const CELVEC_RenderArgs& args) const
{
    return _primary->renderedRect(args);
}

std::unique_ptr<CELVEC_AlphaPlane> MultiStageKvd::sharedAlpha(const CELVEC_RenderArgs&, const CELVEC_Kvd&) const
{
    return nullptr;
}
