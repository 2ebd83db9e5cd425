// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The defaults: colours come from the palette and stay unchanged.
#include "QuarvelGraphicCore/GR_GraphicOpsColorTransform.h"

#include <algorithm>

GR_GraphicOpsColorTransform::~GR_GraphicOpsColorTransform() = default;

CM_SharedPtr<CM_BaseColorObj> GR_GraphicOpsColorTransform::GetColorObjectEntry(const CM_ColorId_t& id)
{
    return GetColorObject(id);
}

CM_SharedPtr<CM_BaseColorObj> GR_GraphicOpsColorTransform::GetColorObject(const CM_ColorId_t& id)
{
    return _palette ? _palette->findColor(id) : nullptr;
}

QTransform GR_GraphicOpsColorTransform::getTransformation() const
{
    return {};
}

VS_RGBA GR_GraphicOpsColorTransform::GetColor(int level) const
{
    const auto grey = static_cast<std::uint8_t>(std::clamp(level, 0, 255));
    return {grey, grey, grey, 255};
}

VS_RGBA GR_GraphicOpsColorTransform::GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color)
{
    if (!color)
        return {};
    const CM_Rgba& c = color->GetNominalColor();
    return {c.red, c.green, c.blue, c.alpha};
}

bool GR_GraphicOpsColorTransform::isPositionDependent() const
{
    return false;
}

bool GR_GraphicOpsColorTransform::isNeedColorId() const
{
    return true;
}

bool GR_GraphicOpsColorTransform::isAffectsMatrix() const
{
    return false;
}

bool GR_GraphicOpsColorTransform::renderSelectedColorsOnly() const
{
    return false;
}

std::unique_ptr<GR_GraphicOpsColorTransform> GR_GraphicOpsColorTransform::CreateTextureColorTransform() const
{
    return nullptr;
}

void GR_GraphicOpsColorTransform::applyMatrixTransform(QTransform&) const {}

std::unique_ptr<GR_GraphicOpsColorTransform> GR_GraphicOpsColorTransform::toPickingTransform() const
{
    return nullptr;
}

void GR_GraphicOpsColorTransform::ApplyColorTransform(VS_RGBA&) const {}

void GR_GraphicOpsColorTransform::ApplyColorTransform(CM_Rgba& colour) const
{
    VS_RGBA paint{colour.red, colour.green, colour.blue, colour.alpha};
    ApplyColorTransform(paint);
    colour = {paint.red, paint.green, paint.blue, paint.alpha};
}

void GR_GraphicOpsColorTransform::ApplyColorTransform(std::span<VS_RGBA> paints) const
{
    for (VS_RGBA& paint : paints)
        ApplyColorTransform(paint);
}

void GR_GraphicOpsColorTransform::ApplyColorTransform(std::span<CM_Rgba> colours) const
{
    for (CM_Rgba& colour : colours)
        ApplyColorTransform(colour);
}

void GR_GraphicOpsColorTransform::setCurrentArt(GR_Art art)
{
    _currentArt = art;
}

UT_Id GR_GraphicOpsColorTransform::cacheId() const
{
    return {};
}

UT_Id GR_GraphicOpsColorTransform::getPickingCacheId() const
{
    return {};
}

void GR_GraphicOpsColorTransform::closingColorTransform() {}
