// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of greys in which a drawing is repainted for volume building: every colour of the node's colour table
// becomes an opaque grey of its level, every other colour is left out.
#pragma once

#include "QuarvelCelCore/CEL_ColorTransform.h"
#include "parameters/VallorinAttributes.h"

#include <map>
#include <unordered_map>
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

    /// A colour object with a row's id, and the row's paint.
    using Entry = std::pair<CM_SharedPtr<CM_Color>, VS_RGBA>;

    /// One entry for each row of the table, in its order.
    const std::vector<Entry>& entries() const { return colourEntries; }
    /// The colour object of the first row with this id; null for an id that is not listed.
    CM_Color* listedColour(const CM_ColorId_t& id) const;
    /// The object for all colours that are not listed. It has no id.
    CM_Color* unlistedColour() const { return defaultColour.get(); }
    /// The paint of the last row with this id; the transparent one for an id that is not listed.
    VS_RGBA paintOf(const CM_ColorId_t& id) const;

private:
    struct HashOfId
    {
        std::size_t operator()(const CM_ColorId_t& id) const { return std::hash<std::uint64_t>()(id.value()); }
    };

    std::vector<Entry> colourEntries;
    std::map<CM_ColorId_t, VS_RGBA> paints;
    CM_SharedPtr<CM_Color> defaultColour;
    /// The index in colourEntries where an id is first listed. A rasteriser asks for every shape, and tables have a row
    /// for each colour of the drawing: scanning them took half of the time of drawings with tens of thousands of
    /// colours.
    std::unordered_map<CM_ColorId_t, std::size_t, HashOfId> firstEntries;
};

} // namespace VallorinLib
