// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The questions of one rasterisation, answered from the table of greys.
#pragma once

#include "render/DepthComputationCelColorTransform.h"

namespace VallorinLib {

/// Answers one rasterisation's questions from the table. Read-only: several threads may ask at once.
class DepthComputationColorTransform final : public GR_GraphicOpsColorTransform
{
public:
    explicit DepthComputationColorTransform(const DepthComputationCelColorTransform& transform);
    ~DepthComputationColorTransform() override;

    CM_SharedPtr<CM_BaseColorObj> GetColorObjectEntry(const CM_ColorId_t& id) override;
    /// A plain colour that carries the id, for a listed one, whatever kind the palette's own colour is; otherwise one
    /// without id.
    CM_SharedPtr<CM_BaseColorObj> GetColorObject(const CM_ColorId_t& id) override;
    /// The grey, or the transparent paint for what is not listed and for a null pointer.
    VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color) override;
    bool isPositionDependent() const override;

private:
    const DepthComputationCelColorTransform* celTransform;
};

} // namespace VallorinLib
