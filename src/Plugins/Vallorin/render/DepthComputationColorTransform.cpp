// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Look-ups in the table of greys.
#include "render/DepthComputationColorTransform.h"

#include <algorithm>

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
    const auto isListed = [&](const auto& entry) { return entry.first->GetColorId() == id; };
    const auto found = std::ranges::find_if(celTransform->colourEntries, isListed);
    CM_Color* color =
        found == celTransform->colourEntries.end() ? celTransform->defaultColour.get() : found->first.get();
    return CM_SharedPtr<CM_BaseColorObj>(color);
}

VS_RGBA DepthComputationColorTransform::GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color)
{
    if (!color)
        return {};
    const auto found = celTransform->paints.find(color->GetColorId());
    return found == celTransform->paints.end() ? VS_RGBA{} : found->second;
}

bool DepthComputationColorTransform::isPositionDependent() const
{
    return false;
}

} // namespace VallorinLib
