// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Look-ups in the table of greys.
#include "render/DepthComputationColorTransform.h"

namespace VallorinLib {

DepthComputationColorTransform::DepthComputationColorTransform(const DepthComputationCelColorTransform& transform)
    : celTransform(&transform)
{}

DepthComputationColorTransform::~DepthComputationColorTransform() = default;

CM_SharedPtr<CM_BaseColorObj> DepthComputationColorTransform::GetColorObjectEntry(const CM_ColorId_t& id)
{
    return GetColorObject(id);
}

CM_SharedPtr<CM_BaseColorObj> DepthComputationColorTransform::GetColorObject(const CM_ColorId_t& id)
{
    CM_Color* const listed = celTransform->listedColour(id);
    return CM_SharedPtr<CM_BaseColorObj>(listed ? listed : celTransform->unlistedColour());
}

VS_RGBA DepthComputationColorTransform::GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color)
{
    // A row of the table with an unreadable id has the null id, and so has the default colour. A look-up by id would
    // paint every unlisted colour in that row's grey.
    if (!color || color.get() == celTransform->unlistedColour())
        return {};
    return celTransform->paintOf(color->GetColorId());
}

bool DepthComputationColorTransform::isPositionDependent() const
{
    return false;
}

} // namespace VallorinLib
