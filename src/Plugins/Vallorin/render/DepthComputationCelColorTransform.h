// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of greys that a drawing is repainted with for volume building: every colour of the node's colour table as
// an opaque grey of its level, every other colour not at all.
#pragma once

#include "QuarvelCelCore/CEL_ColorTransform.h"
#include "parameters/VallorinAttributes.h"

#include <map>
#include <utility>
#include <vector>

namespace VallorinLib {

/// Holds the table of greys and makes the transform of each rasterisation. Immutable, so threads may share one.
class DepthComputationCelColorTransform final : public CEL_ColorTransform
{
public:
    /// A record's grey is the low byte of its value: 256 paints as 0. Where a colour is listed twice, the later
    /// record's grey counts.
    explicit DepthComputationCelColorTransform(const std::vector<VallorinAttributes::ColorInformation>& records);
    ~DepthComputationCelColorTransform() override;

    /// The transform refers to this object, which must outlive it.
    std::unique_ptr<GR_GraphicOpsColorTransform> createGraphicOpsTransform() override;
    /// The greys do not depend on the drawing's own palette, so there is nothing to prepare.
    void attachedTo(const CELVEC_Kvd& drawing) override;

private:
    friend class DepthComputationColorTransform;

    std::vector<std::pair<CM_SharedPtr<CM_Color>, VS_RGBA>> colourEntries;
    std::map<CM_ColorId_t, VS_RGBA> paints;
    CM_SharedPtr<CM_Color> defaultColour;
};

} // namespace VallorinLib
