// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Answers the questions of one rasterisation from the table of greys.
#pragma once

#include "render/DepthComputationCelColorTransform.h"

namespace VallorinLib {

/// Read-only: several threads may ask at once.
class DepthComputationColorTransform final : public GR_GraphicOpsColorTransform
{
public:
    explicit DepthComputationColorTransform(const DepthComputationCelColorTransform& transform);
    ~DepthComputationColorTransform() override;

    CM_SharedPtr<CM_BaseColorObj> GetColorObjectEntry(const CM_ColorId_t& id) override;
    /// For a listed id, a plain colour with that id, made for the first row that lists it, whatever kind the palette's
    /// own colour is; for any other id the one default colour, which has no id.
    CM_SharedPtr<CM_BaseColorObj> GetColorObject(const CM_ColorId_t& id) override;
    /// The grey of the colour's id; the transparent paint, which contributes no coverage, for an id that is not listed,
    /// for the default colour (also where the table lists the null id) and for a null pointer.
    VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color) override;
    bool isPositionDependent() const override;

private:
    const DepthComputationCelColorTransform* celTransform;
};

} // namespace VallorinLib
