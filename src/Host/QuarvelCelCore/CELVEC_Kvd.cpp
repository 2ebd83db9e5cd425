// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The vector drawing's shapes and settings. CELVEC_Rasteriser turns shapes into pixels.
#include "QuarvelCelCore/CELVEC_Kvd.h"

#include "QuarvelCelCore/private/CELVEC_Rasteriser.h"

#include <array>

struct CELVEC_Kvd::Geometry
{
    std::array<std::vector<CELVEC_Shape>, kGR_allArts.size()> arts;
};

CEL_ColorTransform::~CEL_ColorTransform() = default;

void CEL_ColorTransform::attachedTo(const CELVEC_Kvd&) {}

CELVEC_Kvd::CELVEC_Kvd(CM_SharedPtr<CM_Palette> palette)
    : _palette(std::move(palette)), _geometry(std::make_shared<Geometry>())
{}

CELVEC_Kvd::CELVEC_Kvd(const CELVEC_Kvd&) = default;

CELVEC_Kvd::~CELVEC_Kvd() = default;

void CELVEC_Kvd::addShape(GR_Art art, CELVEC_Shape shape)
{
    if (_geometry.use_count() > 1)
        _geometry = std::make_shared<Geometry>(*_geometry);
    _geometry->arts[static_cast<std::size_t>(art)].push_back(std::move(shape));
}

std::span<const CELVEC_Shape> CELVEC_Kvd::shapes(GR_Art art) const
{
    return _geometry->arts[static_cast<std::size_t>(art)];
}

UT_SharedPtr<CELVEC_Kvd> CELVEC_Kvd::shareForRendering() const
{
    return UT_SharedPtr<CELVEC_Kvd>(new CELVEC_Kvd(*this));
}

UT_SharedPtr<CELVEC_Kvd> CELVEC_Kvd::withPalette(const CM_SharedPtr<CM_Palette>& palette) const
{
    UT_SharedPtr<CELVEC_Kvd> copy(new CELVEC_Kvd(*this));
    copy->setPalette(palette);
    return copy;
}

void CELVEC_Kvd::setArtSelector(const GR_ArtSelector& selector)
{
    _selector = selector;
}

void CELVEC_Kvd::setColorTransform(UT_SharedPtr<CEL_ColorTransform> transform)
{
    _transform = std::move(transform);
    if (_transform)
        _transform->attachedTo(*this);
}

void CELVEC_Kvd::render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const
{
    CELVEC_rasterise(*this, *colours(), args, target);
}

void CELVEC_Kvd::addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const
{
    CELVEC_rasteriseCoverage(*this, *colours(), args, step, coverage);
}

std::unique_ptr<CELVEC_AlphaPlane> CELVEC_Kvd::sharedAlpha(const CELVEC_RenderArgs& args, const CELVEC_Kvd& white) const
{
    if (_transform || !white._transform)
        return nullptr;
    return CELVEC_rasteriseSharedAlpha({*this, *colours()}, {white, *white.colours()}, args);
}

void CELVEC_Kvd::addRenderedCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step,
                                     CEL_CoveragePlane& coverage) const
{
    CEL_PixmapAreaRGBA16 picture(args.size, args.canvas);
    render(args, picture);
    coverage.add(picture, step);
}

std::unique_ptr<GR_GraphicOpsColorTransform> CELVEC_Kvd::colours() const
{
    return _transform ? _transform->createGraphicOpsTransform()
                      : std::make_unique<GR_GraphicOpsColorTransform>(_palette);
}

std::optional<Math::Box2di> CELVEC_Kvd::renderedRect(const CELVEC_RenderArgs& args) const
{
    if (_transform)
        return std::nullopt;
    GR_GraphicOpsColorTransform fromPalette(_palette);
    return CELVEC_rasterisedRect(*this, fromPalette, args);
}
